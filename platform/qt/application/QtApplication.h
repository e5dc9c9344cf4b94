// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Application.h"
#include "platform/qt/application/QtEventConverter.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace tarnwick {

/// The process as a QApplication, which must be alive as long as this. Sees every key and mouse event of its
/// own windows before they do.
class QtApplication : public QObject, public Application
{
    Q_OBJECT

public:
    /// `mainMenuModifier` is what the shortcuts of the main menu are held with.
    explicit QtApplication(QtEventConverter converter, quint64 mainMenuModifier = ControlKeyMask);
    ~QtApplication() override;

    void terminate(ActionSender* sender) override;
    [[nodiscard]] bool terminating() const override { return _terminating; }
    /// Keeps the order of its windows, and leaves minimised ones where they are. The keyboard goes to the
    /// window in front.
    void activateIgnoringOtherApps(bool ignoringOtherApps) override;
    /// Made when it is first asked for, in the language of that moment.
    [[nodiscard]] std::shared_ptr<Menu> mainMenu() const override;
    [[nodiscard]] ApplicationDelegate* delegate() const override { return _delegate; }
    void setDelegate(ApplicationDelegate* delegate) override { _delegate = delegate; }
    [[nodiscard]] std::optional<Event> currentEvent() const override { return _currentEvent; }
    bool sendActionToFrom(const QString& action, ActionTarget* target, ActionSender* sender) override;
    void beep() override;
    [[nodiscard]] QString bundlePath() const override;
    [[nodiscard]] QString pathForResourceOfType(const QString& name, const QString& type) const override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QtEventConverter _converter;
    QList<QPointer<QWidget>> _windows; ///< those that have been on the screen, the one in front last
    bool _terminating = false;
    ApplicationDelegate* _delegate = nullptr;
    std::optional<Event> _currentEvent;
    std::function<std::shared_ptr<Menu>()> _makeMainMenu;
    mutable std::shared_ptr<Menu> _mainMenu;
};

} // namespace tarnwick
