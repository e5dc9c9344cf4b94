// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QGridLayout;

namespace tarnwick {

class ActionTarget;
class SRRecorderControl;
class TWMouseButtonIdentifier;
class TriggerHintView;

/// What opens the menu: a hot key, an extra mouse button. What TriggerAdvice has to say about one that is
/// switched on stands below it.
class HotKeyPane final : public QWidget
{
    Q_OBJECT

public:
    /// The mouse-button control sends "mouseButtonChanged:" to `target`, which is not owned.
    explicit HotKeyPane(ActionTarget& target);

    [[nodiscard]] SRRecorderControl* shortcutRecorder() const { return _shortcutRecorder; }
    [[nodiscard]] TWMouseButtonIdentifier* mouseButtonIdentifier() const { return _mouseButtonIdentifier; }
    [[nodiscard]] TriggerHintView* hotKeyHint() const { return _hotKeyHint; }
    [[nodiscard]] TriggerHintView* mouseButtonHint() const { return _mouseButtonHint; }

Q_SIGNALS:
    /// It needs another height.
    void resized();

protected:
    bool event(QEvent* event) override;

private:
    void _fitFields();
    void _addHotKey(QGridLayout& grid);
    void _addMouseButton(QGridLayout& grid, ActionTarget& target);
    void _addSwitch(QGridLayout& grid, const QString& text, const QString& key);
    void _addField(QGridLayout& grid, const QString& label, QWidget& field, const QString& hint);
    [[nodiscard]] TriggerHintView* _addHint(QGridLayout& grid, const QString& copyText);
    void _followAdvice();
    void _showAdvice();

    SRRecorderControl* _shortcutRecorder = nullptr;
    TWMouseButtonIdentifier* _mouseButtonIdentifier = nullptr;
    TriggerHintView* _hotKeyHint = nullptr;
    TriggerHintView* _mouseButtonHint = nullptr;
};

} // namespace tarnwick
