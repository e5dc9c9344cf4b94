// SPDX-License-Identifier: MIT
#include "platform/macos/SharedFileListLoginItems.h"

#include "platform/macos/CfText.h"

#include <CoreServices/CoreServices.h>
#include <utility>

namespace tarnwick {
namespace {

static_assert(quint32{kLSSharedFileListNoUserInteraction} == quint32{LoginItems::NoUserInteraction});
static_assert(quint32{kLSSharedFileListDoNotMountVolumes} == quint32{LoginItems::DoNotMountVolumes});

class FileListItem final : public LoginItems::Item
{
public:
    explicit FileListItem(CfOwned<LSSharedFileListItemRef> item) : _item(std::move(item)) {}
    [[nodiscard]] LSSharedFileListItemRef get() const { return _item.get(); }

private:
    CfOwned<LSSharedFileListItemRef> _item;
};

LSSharedFileListItemRef itemRef(const LoginItems::Item& item)
{
    return static_cast<const FileListItem&>(item).get();
}

class FileList final : public LoginItems::List
{
public:
    explicit FileList(CfOwned<LSSharedFileListRef> list) : _list(std::move(list)) {}

    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> copySnapshot() override
    {
        UInt32 seed = 0;
        const CfOwned<CFArrayRef> snapshot(LSSharedFileListCopySnapshot(_list.get(), &seed));
        QList<std::shared_ptr<LoginItems::Item>> items;
        const CFIndex count = snapshot ? CFArrayGetCount(snapshot.get()) : 0;
        for (CFIndex i = 0; i < count; ++i) {
            auto* const item = static_cast<LSSharedFileListItemRef>(
                const_cast<void*>(CFArrayGetValueAtIndex(snapshot.get(), i)));
            items.append(std::make_shared<FileListItem>(cfRetained(item)));
        }
        return items;
    }

    [[nodiscard]] std::optional<QUrl> resolve(const LoginItems::Item& item, quint32 resolveFlags) override
    {
        CFURLRef url = nullptr;
        if (LSSharedFileListItemResolve(itemRef(item), resolveFlags, &url, nullptr) != noErr)
            return std::nullopt;
        const CfOwned<CFURLRef> owned(url);
        return QUrl::fromLocalFile(filePathOf(url));
    }

    void insertBeforeFirst(const QUrl& applicationUrl) override
    {
        const CfOwned<CFURLRef> url = cfFileUrl(applicationUrl.toLocalFile(), true);
        const CfOwned<LSSharedFileListItemRef> inserted(LSSharedFileListInsertItemURL(
            _list.get(), kLSSharedFileListItemBeforeFirst, nullptr, nullptr, url.get(), nullptr, nullptr));
    }

    void remove(const LoginItems::Item& item) override
    {
        LSSharedFileListItemRemove(_list.get(), itemRef(item));
    }

private:
    CfOwned<LSSharedFileListRef> _list;
};

} // namespace

SharedFileListLoginItems::SharedFileListLoginItems(std::unique_ptr<LoginItems> successor)
    : _successor(std::move(successor))
{
}

std::unique_ptr<LoginItems::List> SharedFileListLoginItems::createSessionLoginItems()
{
    CfOwned<LSSharedFileListRef> list(
        LSSharedFileListCreate(kCFAllocatorDefault, kLSSharedFileListSessionLoginItems, nullptr));
    if (list)
        return std::make_unique<FileList>(std::move(list));
    return _successor ? _successor->createSessionLoginItems() : nullptr;
}

} // namespace tarnwick
