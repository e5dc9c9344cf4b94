// SPDX-License-Identifier: MIT
#include "platform/linux/keys/Accelerator.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

struct ModifierName
{
    QLatin1StringView name;
    bool Accelerator::*modifier; ///< null for one that tells when the key acts, not on what
};

// In any case.
constexpr ModifierName ModifierNames[] = {
    {"primary"_L1, &Accelerator::control}, {"control"_L1, &Accelerator::control},
    {"ctrl"_L1, &Accelerator::control},    {"ctl"_L1, &Accelerator::control},
    {"shift"_L1, &Accelerator::shift},     {"shft"_L1, &Accelerator::shift},
    {"alt"_L1, &Accelerator::alt},         {"mod1"_L1, &Accelerator::alt},
    {"super"_L1, &Accelerator::super},     {"mod4"_L1, &Accelerator::super},
    {"meta"_L1, &Accelerator::meta},       {"release"_L1, nullptr},
};

/// False for a name that none of them has.
bool addModifier(QStringView name, Accelerator& accelerator)
{
    const auto* const found = std::ranges::find_if(ModifierNames, [name](const ModifierName& known) {
        return name.compare(known.name, Qt::CaseInsensitive) == 0;
    });
    if (found == std::end(ModifierNames))
        return false;
    if (found->modifier)
        accelerator.*found->modifier = true;
    return true;
}

} // namespace

std::optional<Accelerator> Accelerator::parse(const QString& text)
{
    Accelerator accelerator;
    QStringView rest = text;
    while (rest.startsWith(u'<')) {
        const qsizetype end = rest.indexOf(u'>');
        if (end < 0 || !addModifier(rest.sliced(1, end - 1), accelerator))
            return std::nullopt;
        rest = rest.sliced(end + 1);
    }
    accelerator.key = rest.toString();
    return accelerator;
}

} // namespace tarnwick
