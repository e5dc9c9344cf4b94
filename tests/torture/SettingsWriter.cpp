// SPDX-License-Identifier: MIT
// Writes settings one after the other, as fast as it can, to be killed at it:
//   settings_writer FILE KEY FIRST [COUNT]
// sets KEY, and the same in KEY with "Text" behind it, to FIRST, to the number after it, and so on, and tells
// of each number that it goes on to the next one.
#include "platform/qt/settings/QtDefaultsStore.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <limits>
#include <thread>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4)
        return 2;
    tarnwick::QtDefaultsStore store(arguments.at(1));
    const QString key = arguments.at(2);
    const int first = arguments.at(3).toInt();
    const int count =
        arguments.size() > 4 ? arguments.at(4).toInt() : std::numeric_limits<int>::max() - first;
    for (int number = first; number < first + count; ++number) {
        store.setValue(key, number);
        store.setValue(key + u"Text"_s, u"%1 "_s.arg(number).repeated(number % 200));
        store.synchronize();
        std::printf("%d\n", number);
        std::fflush(stdout);
        if (arguments.size() > 4) // there may be others
            std::this_thread::sleep_for(std::chrono::milliseconds(number % 4));
    }
    return 0;
}
