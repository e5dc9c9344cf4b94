// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiToolkits.h"

namespace tarnwick {

namespace {

/// More applications than this are not kept in mind.
constexpr qsizetype MaximumApplications = 1000;

} // namespace

void AtspiToolkits::ask(const QList<BusReference>& roots, Deadline deadline)
{
    QList<AtspiFacts> applications;
    for (const BusReference& root : roots)
        if (!_told.contains(root))
            applications.append({.reference = root});
    if (applications.isEmpty())
        return;
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& application : applications)
        inquiries.append({&application, AtspiQuestion::Toolkit});
    _bus.ask(inquiries, deadline);
    if (_told.size() >= MaximumApplications)
        _told.clear();
    for (const AtspiFacts& application : std::as_const(applications))
        if (application.toolkit)
            _told.insert(application.reference, toolkitNamed(*application.toolkit));
}

std::optional<AtspiToolkit> AtspiToolkits::told(const BusReference& root) const
{
    const auto found = _told.constFind(root);
    return found != _told.cend() ? std::optional(*found) : std::nullopt;
}

std::optional<AtspiToolkit> AtspiToolkits::of(const BusReference& root, Deadline deadline)
{
    ask({root}, deadline);
    return told(root);
}

void AtspiToolkits::shown(const BusReference& root, AtspiToolkit toolkit)
{
    if (_told.contains(root))
        _told.insert(root, toolkit);
}

} // namespace tarnwick
