// SPDX-License-Identifier: MIT
#include "tests/torture/MainLoopWatch.h"

#include "tests/FairTimer.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

constexpr auto AskEvery = 5ms;
constexpr auto WorthALine = 50ms;

QByteArray secondsOf(double time)
{
    return QByteArray::number(time, 'f', 4);
}

double secondsOf(std::chrono::steady_clock::time_point moment)
{
    return std::chrono::duration<double>(moment.time_since_epoch()).count();
}

} // namespace

MainLoopWatch::MainLoopWatch(const QString& file)
    : _file(open(QFile::encodeName(file).constData(), O_CREAT | O_WRONLY | O_APPEND | O_CLOEXEC, 0600))
{
    _thread = std::thread([this] {
        for (; !_ended; std::this_thread::sleep_for(AskEvery))
            if (_answered)
                _ask();
    });
}

MainLoopWatch::~MainLoopWatch()
{
    _ended = true;
    _thread.join();
    close(_file);
}

void MainLoopWatch::_ask()
{
    _answered = false;
    const Moment asked = std::chrono::steady_clock::now();
    QMetaObject::invokeMethod(
        this, [this, asked] { _answer(asked); }, Qt::QueuedConnection);
}

void MainLoopWatch::_answer(Moment asked)
{
    const Moment now = std::chrono::steady_clock::now();
    const double paused = std::exchange(_paused, 0);
    const int pauses = std::exchange(_pauses, 0);
    const double starved = secondsStarved();
    const double waited = std::chrono::duration<double>(now - asked).count();
    const double starvedMeanwhile = std::min(waited, starved - std::exchange(_starved, starved));
    if (now - asked >= WorthALine || paused > 0) {
        const QByteArray line = secondsOf(secondsOf(asked)) + ' ' + secondsOf(secondsOf(now)) + ' ' +
                                secondsOf(paused) + ' ' + secondsOf(starvedMeanwhile) + ' ' +
                                QByteArray::number(pauses) + '\n';
        [[maybe_unused]] const auto written =
            write(_file, line.constData(), static_cast<size_t>(line.size()));
    }
    _answered = true;
}

} // namespace tarnwick
