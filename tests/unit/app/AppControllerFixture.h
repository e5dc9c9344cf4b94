// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppController.h"
#include "foundation/ApplicationDelegate.h"
#include "mouse/QMMouseHotKey.h"
#include "tests/unit/app/AppFixture.h"

#include <memory>
#include <utility>

namespace tarnwick {

/// Looks at what the controller keeps.
class AppControllerProbe
{
public:
    explicit AppControllerProbe(AppController& controller) : _controller(controller) {}
    [[nodiscard]] AppAccessibility* mirror() const { return _controller._appUIElementInfo.get(); }
    [[nodiscard]] const TWAppChangeNotifier* notifier() const { return _controller._appChangeNotifier.get(); }
    [[nodiscard]] QVariant appPID() const { return _controller._appPID; }
    [[nodiscard]] bool enableHotkey() const { return _controller._enableHotkey; }
    [[nodiscard]] int fontSizeSmall() const { return _controller._fontSizeSmall; }
    [[nodiscard]] int titleFontSizeSmall() const { return _controller._titleFontSizeSmall; }

private:
    AppController& _controller;
};

/// An application's delegate that notes which commands it was given.
class NotingDelegate final : public ApplicationDelegate
{
public:
    QList<std::pair<QString, ActionSender*>> performed;

    [[nodiscard]] bool respondsTo(const QString& action) const override
    {
        return action == QStringLiteral("displayAboutPanel") ||
               action == QStringLiteral("showPreferencePanel");
    }
    void perform(const QString& action, ActionSender* sender) override { performed.append({action, sender}); }
};

class AppControllerFixture : public AppFixture
{
protected:
    AppControllerFixture() { application.setDelegate(&delegate); }

    /// Makes the controller and forgets what happened meanwhile.
    void start()
    {
        controller = std::make_unique<AppController>();
        journal.clear();
        rebuilds = 0;
    }

    [[nodiscard]] AppControllerProbe probe() const { return AppControllerProbe(*controller); }

    NotingDelegate delegate;
    QMMouseHotKey mouseHotKey;
    std::unique_ptr<AppController> controller;
};

} // namespace tarnwick
