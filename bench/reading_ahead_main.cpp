// SPDX-License-Identifier: MIT
// How long Tarnwick takes to read all menus of the application in front, as before a menu that takes the
// keyboard from it.
//   bench_reading_ahead ROUNDS
// prints the microseconds of each round, one a line, then "messages N" for one round; a round
// ends after 0.4 s at the latest.
#include "bench/messages.h"
#include "menu/AppAccessibility.h"
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/session/LinuxSession.h"
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/WaylandFrontApplication.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/qt/application/QtClock.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace std::chrono_literals;
using namespace tarnwick;

namespace {

/// More than a pop-up ever waits.
constexpr auto Most = 400ms;

int measure(LinuxReading& reading, int rounds)
{
    const auto front = reading.front->lookAgain();
    const auto mirror = AppAccessibility::initWithFocusedApp();
    if (!front || !front->accessible || !mirror) {
        std::fputs("bench_reading_ahead: nothing to read\n", stderr);
        return 1;
    }
    mirror->setKeyEquivalents(true);
    long messages = 0;
    for (int round = 0; round < rounds; ++round) {
        mirror->update();
        const long before = bench_messages_sent();
        const auto begin = std::chrono::steady_clock::now();
        reading.tree.menus.readAhead(front->accessible.service, Most);
        const auto took = std::chrono::steady_clock::now() - begin;
        std::printf("%lld\n", static_cast<long long>(
                                  std::chrono::duration_cast<std::chrono::microseconds>(took).count()));
        messages = std::max(messages, bench_messages_sent() - before);
        QCoreApplication::processEvents(); // the next reading has its half second anew
    }
    std::printf("messages %ld\n", messages);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("bench_reading_ahead ROUNDS\n", stderr);
        return 2;
    }
    const int rounds = QByteArray(argv[1]).toInt();
    const std::shared_ptr<CompositorConnection> compositor = CompositorConnection::open();
    if (!compositor) {
        std::fputs("bench_reading_ahead: no compositor\n", stderr);
        return 1;
    }
    LinuxSession session(argc, argv, LinuxSession::Part::Visitor, "wayland");
    QtClock clock;
    const auto toplevels = Toplevels::open(compositor);
    const auto reading = std::make_shared<LinuxReading>(
        [&](AtspiActiveWindow& inTree) { return WaylandFrontApplication::make(inTree, toplevels); });
    LinuxWorkspace workspace(reading);
    AtspiAccessibility accessibility(reading);
    Clock::setShared(&clock);
    Workspace::setShared(&workspace);
    Accessibility::setShared(&accessibility);
    static_cast<void>(accessibility.apiEnabled());
    return measure(*reading, rounds);
}
