// SPDX-License-Identifier: MIT
#include "tests/fuzz/PeerBus.h"

#include "platform/linux/bus/SdBusMessage.h"
#include "tests/fuzz/Fuzzing.h"

#include <QApplication>
#include <QDBusServer>
#include <QSocketNotifier>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

void makeApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv); // until the end: the libraries' own clean-up comes after everything else
}

int noteAnswer(sd_bus_message* /*reply*/, void* answered, sd_bus_error* /*error*/)
{
    *static_cast<bool*>(answered) = true;
    return 1;
}

} // namespace

PeerBus& PeerBus::shared()
{
    static auto* const bus = new PeerBus; // no thread of it is there any more when statics are destroyed
    return *bus;
}

PeerBus::PeerBus() : _connection(QString())
{
    makeApplication();
    auto* server = new QDBusServer(u"unix:tmpdir=/tmp"_s);
    require(server->isConnected(), "there is a server");
    bool connected = false;
    QObject::connect(server, &QDBusServer::newConnection,
                     [this, &connected](const QDBusConnection& connection) {
                         _connection = connection;
                         connected = true;
                     });
    require(sd_bus_new(&_bus) >= 0 && sd_bus_set_address(_bus, server->address().toUtf8().constData()) >= 0 &&
                sd_bus_start(_bus) >= 0,
            "two ends are connected");
    auto* notifier = new QSocketNotifier(sd_bus_get_fd(_bus), QSocketNotifier::Read);
    QObject::connect(notifier, &QSocketNotifier::activated, [] {}); // wakes who waits
    _until([&] { return connected && sd_bus_is_ready(_bus) > 0; });
}

void PeerBus::_until(const std::function<bool()>& done)
{
    while (!done()) {
        const int worked = sd_bus_process(_bus, nullptr);
        require(worked >= 0, "the connection stays");
        if (worked == 0 && !done())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

bool PeerBus::call(const Call& what, sd_bus_message* arguments)
{
    sd_bus_message* made = nullptr;
    require(sd_bus_message_new_method_call(_bus, &made, nullptr, what.path, what.interface, what.member) >= 0,
            "there is a message");
    const SdBusMessage message(made);
    if (sd_bus_message_copy(made, arguments, 1) < 0)
        return false;
    bool answered = false;
    require(sd_bus_call_async(_bus, nullptr, made, noteAnswer, &answered, 0) >= 0, "a call can be sent");
    _until([&answered] { return answered; });
    QCoreApplication::processEvents();
    return true;
}

} // namespace tarnwick
