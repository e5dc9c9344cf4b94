// SPDX-License-Identifier: MIT
#include "platform/linux/session/SessionBusWatch.h"

#include "platform/linux/bus/SdBus.h"
#include "platform/linux/bus/SessionBus.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace tarnwick {

namespace {

constexpr auto BetweenAttempts = 2s;
constexpr auto Patience = 200ms;

QString nameOf(int number)
{
    return u"tarnwick session %1"_s.arg(number);
}

} // namespace

SessionBusWatch::SessionBusWatch()
{
    _again.setInterval(BetweenAttempts);
    connect(&_again, &QTimer::timeout, this, &SessionBusWatch::_tryAgain);
    if (_connection.isConnected())
        _watch();
}

SessionBusWatch::~SessionBusWatch()
{
    if (_number > 0)
        QDBusConnection::disconnectFromBus(nameOf(_number));
}

void SessionBusWatch::_watch()
{
    _connection.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                        u"Disconnected"_s, this, SLOT(_lost()));
}

void SessionBusWatch::_lost()
{
    _again.start();
    Q_EMIT changed();
}

void SessionBusWatch::_tryAgain()
{
    // The toolkit would wait for half a minute on a bus that takes calls and does not answer.
    if (!SdBus::open(SessionBus::address(), Deadline::in(Patience)))
        return;
    if (_number > 0)
        QDBusConnection::disconnectFromBus(nameOf(_number));
    const QDBusConnection found =
        QDBusConnection::connectToBus(QString::fromLocal8Bit(SessionBus::address()), nameOf(++_number));
    if (!found.isConnected())
        return;
    _again.stop();
    _connection = found;
    _watch();
    Q_EMIT changed();
}

} // namespace tarnwick

#include "moc_SessionBusWatch.cpp"
