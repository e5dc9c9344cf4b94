// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/Deadline.h"
#include "platform/linux/bus/SdBusMessage.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

/// A connection of our own to a D-Bus bus. Nothing waits longer than the deadline that it is given. Between
/// waits the event loop takes in what arrives. A connection that breaks stays closed. GUI thread only.
class SdBus : public QObject
{
    Q_OBJECT

public:
    /// Calls that are on their way at the same time, at most; much fewer once thousands were never answered.
    static constexpr qsizetype MaximumOutstanding = 2000;

    /// Null when the bus has not welcomed us by the deadline.
    [[nodiscard]] static std::unique_ptr<SdBus> open(const QByteArray& address, Deadline deadline);
    ~SdBus() override;

    [[nodiscard]] bool isOpen() const { return _bus && sd_bus_is_open(_bus) > 0; }

    /// A call without arguments, to be filled in; null when a name or path is not valid.
    [[nodiscard]] SdBusMessage methodCall(const QByteArray& service, const QByteArray& path,
                                          const char* interface, const char* member);

    /// Sends `count` calls, made one after another by `make`, and waits until all have been answered or the
    /// deadline has passed. `answered` sees each reply that is no error, in the order of arrival. Must not
    /// be called from a handler of sendWithReply().
    void exchange(qsizetype count, const std::function<SdBusMessage(qsizetype)>& make,
                  const std::function<void(qsizetype, sd_bus_message*)>& answered, Deadline deadline);
    /// One call; its reply, or null after an error or the deadline.
    [[nodiscard]] SdBusMessage call(SdBusMessage message, Deadline deadline);

    /// Sends without expecting a reply. False when it could not be sent.
    bool send(SdBusMessage message);
    /// `answered` runs once from the event loop, with null after an error, unless the slot is let go of.
    [[nodiscard]] SdBusSlot sendWithReply(SdBusMessage message, Deadline deadline,
                                          std::function<void(sd_bus_message*)> answered);

private:
    class Exchange;

    explicit SdBus(sd_bus* bus);
    /// Handles one message, or waits for one; false when the connection broke or the deadline has passed.
    bool _step(Deadline deadline);
    [[nodiscard]] qsizetype _roomForCalls();
    void _watch();
    void _takeIn();
    void _close();

    sd_bus* _bus;
    std::unique_ptr<QSocketNotifier> _readable;
    std::unique_ptr<QSocketNotifier> _writable;
    qsizetype _owed = 0; ///< answers that did not come
    std::optional<Deadline> _owedUntil;
};

} // namespace tarnwick
