// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiQuestion.h"
#include "platform/linux/bus/BusConnector.h"

#include <functional>
#include <initializer_list>
#include <utility>

namespace tarnwick {

/// One thing to ask of one object; the answer goes into `facts`.
struct AtspiInquiry
{
    AtspiFacts* facts;
    AtspiQuestion question;
};

/// The accessibility bus. Reads only with calls that leave the other application as it is. GUI thread only.
class AtspiBus final : public BusConnector
{
public:
    /// To be told of the address at every new connection.
    explicit AtspiBus(std::function<void(const QByteArray&)> connected = {})
        : BusConnector(&AtspiBus::address, std::move(connected))
    {
    }

    /// The root object behind a name on the standing connection.
    [[nodiscard]] BusReference root(const QByteArray& service) const;

    /// Sends all inquiries at once and stores the answers that come by the deadline. References of an
    /// earlier connection are not asked: the same names may mean others now.
    void ask(const QList<AtspiInquiry>& inquiries, Deadline deadline);
    /// The children of all `parents`, in document order, `maximum` at most; those that are not told by the
    /// deadline are missing. The parents' own facts are filled in.
    QList<AtspiFacts> childrenOf(QList<AtspiFacts>& parents, qsizetype maximum, Deadline deadline);

    /// Asks one object one or more things.
    [[nodiscard]] AtspiFacts facts(const BusReference& reference,
                                   std::initializer_list<AtspiQuestion> questions, Deadline deadline);

    /// Calls to be sent on the standing connection; null when the reference is not of it.
    [[nodiscard]] SdBusMessage actionCall(const BusReference& reference);
    [[nodiscard]] SdBusMessage stateCall(const BusReference& reference);

    /// Address of the accessibility bus; empty when it cannot be had by the deadline. Asking starts the bus.
    [[nodiscard]] static QByteArray address(Deadline deadline);

private:
    [[nodiscard]] SdBusMessage _call(const BusReference& reference, AtspiQuestion question);
};

} // namespace tarnwick
