// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/TriggerAdvice.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace tarnwick {

/// Shows what there is to say about the control above it; hidden where that is nothing. A line for a
/// configuration can be selected, is read by screen readers, and goes to the clipboard by a button.
class TriggerHintView final : public QWidget
{
    Q_OBJECT

public:
    /// `copyText` is what stands on the button.
    explicit TriggerHintView(const QString& copyText);

    void setHint(const TriggerHint& hint);

    [[nodiscard]] QLabel* explanation() const { return _explanation; }
    [[nodiscard]] QLabel* line() const { return _line; }
    [[nodiscard]] QLabel* result() const { return _result; }
    [[nodiscard]] QPushButton* copyButton() const { return _copyButton; }

private:
    void _copy() const;

    TriggerHint _hint;
    QLabel* _explanation;
    QLabel* _line;
    QPushButton* _copyButton;
    QLabel* _result;
};

} // namespace tarnwick
