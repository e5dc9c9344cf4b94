// SPDX-License-Identifier: MIT
// Tarnwick as it is, looked at from inside:
//
//     TARNWICK_WATCH=FILE     the times when the main loop was away, as MainLoopWatch writes them
//     TARNWICK_HURRY=FACTOR   pauses and delays are FACTOR as long; 1 without
#include "app/Desktop.h"
#include "app/MainInterface.h"
#include "app/Translations.h"
#include "prefs/PreferencesWindowController.h"
#include "tests/torture/MainLoopWatch.h"
#include "tests/torture/WatchedClock.h"

using namespace tarnwick;

int main(int argc, char** argv)
{
    Desktop desktop = openDesktop(argc, argv);
    std::unique_ptr<MainLoopWatch> watch;
    bool hurried = false;
    const double factor = qEnvironmentVariable("TARNWICK_HURRY").toDouble(&hurried);
    desktop.clock =
        std::make_unique<WatchedClock>(std::move(desktop.clock), hurried ? factor : 1, [&](double pause) {
            if (watch)
                watch->addPause(pause);
        });
    desktop.makeShared();
    if (desktop.session->handedOverToRunningInstance())
        return 0;
    const Translations translations;
    AppDelegate::initialize();
    std::unique_ptr<MainInterface> interface;
    return desktop.session->run([&] {
        watch = std::make_unique<MainLoopWatch>(qEnvironmentVariable("TARNWICK_WATCH"));
        interface =
            std::make_unique<MainInterface>([] { return std::make_unique<PreferencesWindowController>(); });
        interface->finishLaunching();
    });
}
