// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace tarnwick {

/// A check box whose empty box can be seen on dark windows, too: styles draw its outline darker than the
/// window.
class CheckBox final : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
