// SPDX-License-Identifier: MIT
// Tarnwick as it is, looked at from inside:
//
//     TARNWICK_WATCH=FILE     the times when the main loop was away, as MainLoopWatch writes them
//     TARNWICK_HURRY=FACTOR   pauses and delays are FACTOR as long; 1 without
//     TARNWICK_SWITCHES=FILE  24 bytes for each switch of the front application that has been dealt with: how
//                             many bytes are allocated then, the process in front or 0, and a line end
//     TARNWICK_LEAK=BYTES     so many are lost at each switch, for a test of who should see it
#include "app/Desktop.h"
#include "app/MainInterface.h"
#include "app/TWAppChangeNotifier.h"
#include "app/Translations.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Workspace.h"
#include "prefs/PreferencesWindowController.h"
#include "tests/torture/MainLoopWatch.h"
#include "tests/torture/WatchedClock.h"

#include <QFile>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

using namespace tarnwick;

namespace {

std::size_t allocatedBytes()
{
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

/// What is forgotten at once need not be allocated, a compiler may say: so the last one is remembered.
void lose(int bytes)
{
    [[maybe_unused]] static char* volatile lastLost = nullptr;
    if (bytes > 0)
        lastLost = new char[static_cast<std::size_t>(bytes)];
}

qint64 processInFront()
{
    return Workspace::shared().activeProcessIdentifier().value_or(0);
}

/// Observers are told in the order of their coming: this one when the program has read the new menu bar.
std::unique_ptr<NotificationCenter::Observer> writeDownSwitches(const QString& path)
{
    const auto file = std::make_shared<QFile>(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return nullptr;
    const int loss = qEnvironmentVariableIntValue("TARNWICK_LEAK");
    return NotificationCenter::defaultCenter().addObserver(
        TWAppChangedNotification, nullptr, [file, loss](const Notification&) {
            lose(loss);
            file->write(QByteArray::number(qulonglong(allocatedBytes())).rightJustified(11) + ' ' +
                        QByteArray::number(processInFront()).rightJustified(11) + '\n');
        });
}

} // namespace

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
    std::unique_ptr<NotificationCenter::Observer> switches;
    return desktop.session->run([&] {
        watch = std::make_unique<MainLoopWatch>(qEnvironmentVariable("TARNWICK_WATCH"));
        interface =
            std::make_unique<MainInterface>([] { return std::make_unique<PreferencesWindowController>(); });
        interface->finishLaunching();
        switches = writeDownSwitches(qEnvironmentVariable("TARNWICK_SWITCHES"));
    });
}
