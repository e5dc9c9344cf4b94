// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/XkbKeymap.h"
#include "shortcut/KeyboardLayout.h"

#include <QList>
#include <QObject>

#include <memory>

namespace tarnwick {

/// The layout of the X server.
class XkbKeyboardLayout final : public QObject, public KeyboardLayout
{
    Q_OBJECT

public:
    XkbKeyboardLayout();
    ~XkbKeyboardLayout() override;

    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override;
    [[nodiscard]] quint8 keyboardType() const override;
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) override;

    /// The map that types now; null without an X server.
    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap() const;

private:
    void _notifyLater();
    void _notify();

    bool _notifying = false;
    QList<std::function<void()>> _observers;
};

} // namespace tarnwick
