// SPDX-License-Identifier: MIT
#include "app/Desktop.h"
#include "app/MainInterface.h"
#include "app/Translations.h"
#include "prefs/PreferencesWindowController.h"

using namespace tarnwick;

int main(int argc, char** argv)
{
    const Desktop desktop = openDesktop(argc, argv);
    desktop.makeShared();
    if (desktop.session->handedOverToRunningInstance())
        return 0;
    const Translations translations;
    AppDelegate::initialize();
    std::unique_ptr<MainInterface> interface;
    return desktop.session->run([&interface] {
        interface =
            std::make_unique<MainInterface>([] { return std::make_unique<PreferencesWindowController>(); });
        interface->finishLaunching();
    });
}
