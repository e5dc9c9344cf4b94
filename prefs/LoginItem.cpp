// SPDX-License-Identifier: MIT
#include "prefs/LoginItem.h"

#include "prefs/LoginItems.h"

namespace tarnwick {

namespace {

std::shared_ptr<LoginItems::Item> existingItem(LoginItems::List& list, const QUrl& applicationUrl)
{
    constexpr quint32 Quietly = LoginItems::NoUserInteraction | LoginItems::DoNotMountVolumes;
    const auto items = list.copySnapshot();
    for (const auto& item : items) {
        if (list.resolve(*item, Quietly) == applicationUrl)
            return item;
    }
    return nullptr;
}

} // namespace

void setLoginItemEnabled(const QUrl& applicationUrl, bool enabled)
{
    const auto list = LoginItems::shared().createSessionLoginItems();
    if (!list)
        return;
    const auto existing = existingItem(*list, applicationUrl);
    if (existing && !enabled)
        list->remove(*existing);
    if (!existing && enabled)
        list->insertBeforeFirst(applicationUrl);
}

} // namespace tarnwick
