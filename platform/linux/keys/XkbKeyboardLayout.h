// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/XkbKeymap.h"
#include "shortcut/KeyboardLayout.h"

#include <QList>
#include <QObject>

#include <memory>

namespace tarnwick {

/// The layout of a desktop that tells it as a keyboard map.
class XkbKeyboardLayout : public QObject, public KeyboardLayout
{
    Q_OBJECT

public:
    ~XkbKeyboardLayout() override;

    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override;
    [[nodiscard]] quint8 keyboardType() const override;
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) override;

    /// The map that types now; null where there is none.
    [[nodiscard]] virtual std::shared_ptr<const XkbKeymap> keymap() const = 0;

protected:
    XkbKeyboardLayout();
    /// Observers are told later, once for all changes until then.
    void notifyLater();

private:
    void _notify();

    bool _notifying = false;
    QList<std::function<void()>> _observers;
};

} // namespace tarnwick
