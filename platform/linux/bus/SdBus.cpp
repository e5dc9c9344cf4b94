// SPDX-License-Identifier: MIT
#include "platform/linux/bus/SdBus.h"

#include <algorithm>
#include <poll.h>
#include <utility>
#include <vector>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// The limit of a call that is sent without one of its own; sd-bus would give it 25 s.
constexpr std::uint64_t LongestCallMicroseconds = 2'000'000;
/// Messages taken in before the event loop goes on with other things.
constexpr int MessagesPerTurn = 500;

/// The bus remembers a call for five minutes when no answer comes, and at 50,000 of them takes no further
/// calls from us, to whomever.
constexpr auto OwedFor = 5min;
constexpr qsizetype ManyOwed = 8000;
constexpr qsizetype OutstandingWhenManyAreOwed = 16;

struct ReplyHandler
{
    std::function<void(sd_bus_message*)> answered;
};

int handleReply(sd_bus_message* reply, void* data, sd_bus_error* /*error*/)
{
    const auto* handler = static_cast<ReplyHandler*>(data);
    handler->answered(sd_bus_message_is_method_error(reply, nullptr) != 0 ? nullptr : reply);
    return 1;
}

} // namespace

/// The calls of one exchange() that have not been answered yet.
class SdBus::Exchange
{
public:
    Exchange(sd_bus* bus, qsizetype count, qsizetype room,
             const std::function<void(qsizetype, sd_bus_message*)>& answered)
        : _bus(bus), _answered(answered), _left(count)
    {
        _pending.resize(static_cast<std::size_t>(std::min(count, room)));
        for (Pending& pending : _pending)
            _free.push_back(&pending);
    }

    [[nodiscard]] bool hasRoom() const { return !_free.empty(); }
    [[nodiscard]] bool finished() const { return _left == 0; }
    [[nodiscard]] qsizetype unanswered() const
    {
        return static_cast<qsizetype>(_pending.size() - _free.size());
    }

    void send(qsizetype index, const SdBusMessage& message)
    {
        Pending* pending = _free.back();
        sd_bus_slot* slot = nullptr;
        // Without a limit of its own: whoever waits for it knows the deadline.
        if (!message || sd_bus_call_async(_bus, &slot, message.get(), _onReply, pending, UINT64_MAX) < 0) {
            --_left;
            return;
        }
        _free.pop_back();
        pending->exchange = this;
        pending->index = index;
        pending->slot.reset(slot);
    }

private:
    struct Pending
    {
        Exchange* exchange = nullptr;
        qsizetype index = 0;
        SdBusSlot slot;
    };

    static int _onReply(sd_bus_message* reply, void* data, sd_bus_error* /*error*/)
    {
        auto* pending = static_cast<Pending*>(data);
        pending->exchange->_finish(pending, reply);
        return 1;
    }

    void _finish(Pending* pending, sd_bus_message* reply)
    {
        pending->slot.reset();
        _free.push_back(pending);
        --_left;
        if (sd_bus_message_is_method_error(reply, nullptr) == 0)
            _answered(pending->index, reply);
    }

    sd_bus* _bus;
    const std::function<void(qsizetype, sd_bus_message*)>& _answered;
    qsizetype _left;
    std::vector<Pending> _pending;
    std::vector<Pending*> _free;
};

std::unique_ptr<SdBus> SdBus::open(const QByteArray& address, Deadline deadline)
{
    sd_bus* raw = nullptr;
    if (sd_bus_new(&raw) < 0)
        return nullptr;
    std::unique_ptr<SdBus> bus(new SdBus(raw));
    if (sd_bus_set_address(raw, address.constData()) < 0 || sd_bus_set_bus_client(raw, 1) < 0 ||
        sd_bus_set_method_call_timeout(raw, LongestCallMicroseconds) < 0 || sd_bus_start(raw) < 0)
        return nullptr;
    while (sd_bus_is_ready(raw) <= 0)
        if (!bus->_step(deadline))
            return nullptr;
    bus->_watch();
    return bus;
}

SdBus::SdBus(sd_bus* bus) : _bus(bus) {}

SdBus::~SdBus()
{
    _close();
}

void SdBus::_close()
{
    for (auto* notifier : {&_readable, &_writable})
        if (*notifier) { // may be the one that is telling us
            (*notifier)->setEnabled(false);
            notifier->release()->deleteLater();
        }
    sd_bus_close_unref(std::exchange(_bus, nullptr));
}

SdBusMessage SdBus::methodCall(const QByteArray& service, const QByteArray& path, const char* interface,
                               const char* member)
{
    sd_bus_message* message = nullptr;
    if (_bus && sd_bus_message_new_method_call(_bus, &message, service.constData(), path.constData(),
                                               interface, member) < 0)
        return nullptr;
    return SdBusMessage(message);
}

bool SdBus::_step(Deadline deadline)
{
    const int handled = sd_bus_process(_bus, nullptr);
    if (handled < 0)
        return false;
    if (handled > 0)
        return !deadline.passed();
    const int events = sd_bus_get_events(_bus);
    if (events < 0 || deadline.passed())
        return false;
    pollfd descriptor{sd_bus_get_fd(_bus), static_cast<short>(events), 0};
    return poll(&descriptor, 1, deadline.remainingMilliseconds()) != 0 || !deadline.passed();
}

void SdBus::exchange(qsizetype count, const std::function<SdBusMessage(qsizetype)>& make,
                     const std::function<void(qsizetype, sd_bus_message*)>& answered, Deadline deadline)
{
    if (!isOpen() || count <= 0)
        return;
    {
        Exchange exchange(_bus, count, _roomForCalls(), answered);
        qsizetype next = 0;
        do {
            for (; next < count && exchange.hasRoom() && !deadline.passed(); ++next)
                exchange.send(next, make(next));
        } while (!exchange.finished() && _step(deadline));
        _owed += exchange.unanswered();
    }
    _watch();
    if (deadline.passed()) // what sd-bus has read already does not wake the notifier
        QMetaObject::invokeMethod(this, &SdBus::_takeIn, Qt::QueuedConnection);
}

qsizetype SdBus::_roomForCalls()
{
    if (!_owedUntil || _owedUntil->passed()) {
        _owed = 0;
        _owedUntil = Deadline::in(OwedFor);
    }
    return _owed < ManyOwed ? MaximumOutstanding : OutstandingWhenManyAreOwed;
}

SdBusMessage SdBus::call(SdBusMessage message, Deadline deadline)
{
    SdBusMessage result;
    exchange(
        1, [&](qsizetype) { return std::move(message); },
        [&](qsizetype, sd_bus_message* reply) { result.reset(sd_bus_message_ref(reply)); }, deadline);
    return result;
}

bool SdBus::send(SdBusMessage message)
{
    if (!_bus || !message || sd_bus_message_set_expect_reply(message.get(), 0) < 0)
        return false;
    const bool sent = sd_bus_send(_bus, message.get(), nullptr) >= 0;
    _watch();
    return sent;
}

SdBusSlot SdBus::sendWithReply(SdBusMessage message, Deadline deadline,
                               std::function<void(sd_bus_message*)> answered)
{
    sd_bus_slot* slot = nullptr;
    auto handler = std::make_unique<ReplyHandler>(ReplyHandler{std::move(answered)});
    const std::uint64_t limit = std::max<std::uint64_t>(deadline.remainingMicroseconds(), 1);
    if (!_bus || !message ||
        sd_bus_call_async(_bus, &slot, message.get(), handleReply, handler.get(), limit) < 0)
        return nullptr;
    sd_bus_slot_set_destroy_callback(slot, [](void* data) { delete static_cast<ReplyHandler*>(data); });
    static_cast<void>(handler.release()); // the slot's from here on
    _watch();
    return SdBusSlot(slot);
}

void SdBus::_watch()
{
    const int events = _bus ? sd_bus_get_events(_bus) : -1;
    if (events < 0) {
        _close();
        return;
    }
    if (!_readable) {
        const int descriptor = sd_bus_get_fd(_bus);
        _readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        _writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
        connect(_readable.get(), &QSocketNotifier::activated, this, &SdBus::_takeIn);
        connect(_writable.get(), &QSocketNotifier::activated, this, &SdBus::_takeIn);
    }
    _writable->setEnabled((events & POLLOUT) != 0);
}

void SdBus::_takeIn()
{
    if (!_bus)
        return;
    int handled = 1;
    for (int i = 0; i < MessagesPerTurn && handled > 0; ++i)
        handled = sd_bus_process(_bus, nullptr);
    if (handled < 0) {
        _close();
        return;
    }
    if (handled > 0) // see exchange()
        QMetaObject::invokeMethod(this, &SdBus::_takeIn, Qt::QueuedConnection);
    _watch();
}

} // namespace tarnwick

#include "moc_SdBus.cpp"
