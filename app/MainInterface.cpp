// SPDX-License-Identifier: MIT
#include "app/MainInterface.h"

#include "app/AboutPanel.h"
#include "foundation/Application.h"
#include "mouse/QMMouseHotKey.h"

#include <utility>

namespace tarnwick {

MainInterface::MainInterface(AppDelegate::MakePreferences makePreferences)
    : _delegate(std::move(makePreferences))
{
    auto mouseHotKey = std::make_unique<QMMouseHotKey>();
    auto& trigger = *mouseHotKey;
    _delegate.setMouseHotKey(std::move(mouseHotKey));
    _delegate.setAboutPanel(std::make_unique<AboutPanel>(_delegate));
    Application::shared().setDelegate(&_delegate);
    trigger.awakeFromNib();
}

MainInterface::~MainInterface()
{
    Application::shared().setDelegate(nullptr);
}

void MainInterface::finishLaunching()
{
    _delegate.applicationWillFinishLaunching();
    if (!Application::shared().terminating())
        _delegate.applicationDidFinishLaunching();
}

} // namespace tarnwick
