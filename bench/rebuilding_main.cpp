// SPDX-License-Identifier: MIT
// How long Tarnwick takes to rebuild its root menu for the application in front.
//   bench_rebuilding ROUNDS
// prints the microseconds of each round, one a line, then "messages N" for the last one and "first N" for the
// messages of the first, which has to find the menu bar in the tree; the later ones know it.
#include "app/Inspection.h"
#include "bench/messages.h"
#include "menu/AppAccessibility.h"
#include "menu/Menu.h"

#include <chrono>
#include <cstdio>
#include <thread>

using namespace tarnwick;

namespace {

/// What Tarnwick waits after the switch of the application, at which it looks for the bar, before it
/// rebuilds.
constexpr auto afterSwitch = std::chrono::milliseconds(650);

qint64 microsecondsToRebuild(AppAccessibility& mirror)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    mirror.update();
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("bench_rebuilding ROUNDS\n", stderr);
        return 2;
    }
    const int rounds = QByteArray(argv[1]).toInt();
    const Inspection inspection = openInspection(argc, argv);
    inspection.makeShared();
    inspection.accessibility->apiEnabled();
    // What is read once in the life of the program is no part of the first round.
    static_cast<void>(inspection.workspace->activeApplication());
    const auto mirror = AppAccessibility::initWithFocusedApp();
    if (!mirror) {
        std::fputs("bench_rebuilding: nothing to read\n", stderr);
        return 1;
    }
    mirror->setKeyEquivalents(true);
    long first = 0;
    long messages = 0;
    for (int round = 0; round < rounds; ++round) {
        const long before = bench_messages_sent();
        std::printf("%lld\n", static_cast<long long>(microsecondsToRebuild(*mirror)));
        messages = bench_messages_sent() - before;
        if (round == 0) {
            first = messages;
            std::this_thread::sleep_for(afterSwitch);
        }
    }
    std::printf("messages %ld\nfirst %ld\nentries %d\n", messages, first, mirror->menu()->numberOfItems());
    return 0;
}
