// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/MenuBarSearch.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <algorithm>

namespace tarnwick {

using namespace atspi;

namespace {

constexpr int MaximumDepth = 8;
constexpr int MaximumChildCount = 200;
constexpr qsizetype MaximumLevelSize = 1000;

bool mayBeLarge(quint32 role)
{
    switch (role) {
    case RoleList:
    case RoleListBox:
    case RoleMenu:
    case RolePopupMenu:
    case RoleTable:
    case RoleTerminal:
    case RoleText:
    case RoleTree:
    case RoleTreeTable:
    case RoleDocumentFrame:
    case RoleDocumentSpreadsheet:
    case RoleDocumentPresentation:
    case RoleDocumentText:
    case RoleDocumentWeb:
    case RoleDocumentEmail:
        return true;
    default:
        return false;
    }
}

bool worthEntering(const AtspiFacts& facts)
{
    return facts.role && facts.states && facts.childCount && !mayBeLarge(*facts.role) &&
           !has(*facts.states, StateManagesDescendants) && *facts.childCount > 0 &&
           *facts.childCount <= MaximumChildCount;
}

void describe(AtspiBus& bus, QList<AtspiFacts>& nodes, Deadline deadline)
{
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& node : nodes)
        for (const auto question : {AtspiQuestion::Role, AtspiQuestion::States, AtspiQuestion::ChildCount})
            inquiries.append({&node, question});
    bus.ask(inquiries, deadline);
}

} // namespace

BusReference findMenuBar(AtspiBus& bus, const BusReference& window, Deadline deadline)
{
    BusReference found;
    QList<AtspiFacts> level{{.reference = window}};
    for (int depth = 0; depth < MaximumDepth && !level.isEmpty() && !deadline.passed(); ++depth) {
        level = bus.childrenOf(level, MaximumLevelSize, deadline);
        describe(bus, level, deadline);
        const auto bar = std::find_if(level.cbegin(), level.cend(),
                                      [](const AtspiFacts& facts) { return facts.role == RoleMenuBar; });
        if (bar != level.cend()) {
            // Only what stands before it can hold one that comes first in document order.
            found = bar->reference;
            level.erase(bar, level.cend());
        }
        level.removeIf([](const AtspiFacts& facts) { return !worthEntering(facts); });
    }
    return found;
}

} // namespace tarnwick
