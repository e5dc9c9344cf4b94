// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QGridLayout;

namespace tarnwick {

class ActionTarget;
class SRRecorderControl;
class TWMouseButtonIdentifier;

/// What opens the menu: a hot key, an extra mouse button.
class HotKeyPane final : public QWidget
{
    Q_OBJECT

public:
    /// The mouse-button control sends "mouseButtonChanged:" to `target`, which is not owned.
    explicit HotKeyPane(ActionTarget& target);

    [[nodiscard]] SRRecorderControl* shortcutRecorder() const { return _shortcutRecorder; }
    [[nodiscard]] TWMouseButtonIdentifier* mouseButtonIdentifier() const { return _mouseButtonIdentifier; }

protected:
    bool event(QEvent* event) override;

private:
    void _fitFields();
    void _addHotKey(QGridLayout& grid);
    void _addMouseButton(QGridLayout& grid, ActionTarget& target);
    void _addSwitch(QGridLayout& grid, const QString& text, const QString& key);
    void _addField(QGridLayout& grid, const QString& label, QWidget& field, const QString& hint);

    SRRecorderControl* _shortcutRecorder = nullptr;
    TWMouseButtonIdentifier* _mouseButtonIdentifier = nullptr;
};

} // namespace tarnwick
