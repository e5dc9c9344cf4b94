// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiBus.h"
#include "platform/linux/atspi/AtspiToolkit.h"

#include <QHash>

namespace tarnwick {

/// How applications publish their menus. Each application is asked once. GUI thread only.
class AtspiToolkits
{
public:
    /// The bus must outlive this.
    explicit AtspiToolkits(AtspiBus& bus) : _bus(bus) {}

    /// Asks the applications with these roots, all at once, unless they have told before.
    void ask(const QList<BusReference>& roots, Deadline deadline);
    /// What the application with this root has told; nothing while it has not.
    [[nodiscard]] std::optional<AtspiToolkit> told(const BusReference& root) const;
    /// The same, and asks first.
    [[nodiscard]] std::optional<AtspiToolkit> of(const BusReference& root, Deadline deadline);

    /// The application's menus have shown more than its toolkit's name did. Kept in mind only of one that has
    /// told that name: otherwise it is yet to be asked.
    void shown(const BusReference& root, AtspiToolkit toolkit);

private:
    AtspiBus& _bus;
    QHash<BusReference, AtspiToolkit> _told;
};

} // namespace tarnwick
