// SPDX-License-Identifier: MIT
#include "platform/macos/login/SharedFileListLoginItems.h"

#include "platform/macos/system/CfText.h"
#include "platform/macos/system/SystemSymbol.h"

#include <CoreServices/CoreServices.h>
#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

static_assert(quint32{kLSSharedFileListNoUserInteraction} == quint32{LoginItems::NoUserInteraction});
static_assert(quint32{kLSSharedFileListDoNotMountVolumes} == quint32{LoginItems::DoNotMountVolumes});

/// What the system still has of shared file lists.
struct FileListSymbols
{
    decltype(LSSharedFileListCreate)* create =
        systemFunction<decltype(LSSharedFileListCreate)>("LSSharedFileListCreate");
    decltype(LSSharedFileListCopySnapshot)* copySnapshot =
        systemFunction<decltype(LSSharedFileListCopySnapshot)>("LSSharedFileListCopySnapshot");
    decltype(LSSharedFileListItemResolve)* resolve =
        systemFunction<decltype(LSSharedFileListItemResolve)>("LSSharedFileListItemResolve");
    decltype(LSSharedFileListInsertItemURL)* insertItemUrl =
        systemFunction<decltype(LSSharedFileListInsertItemURL)>("LSSharedFileListInsertItemURL");
    decltype(LSSharedFileListItemRemove)* remove =
        systemFunction<decltype(LSSharedFileListItemRemove)>("LSSharedFileListItemRemove");
    CFStringRef sessionLoginItems = systemConstant<CFStringRef>("kLSSharedFileListSessionLoginItems");
    LSSharedFileListItemRef beforeFirst =
        systemConstant<LSSharedFileListItemRef>("kLSSharedFileListItemBeforeFirst");

    [[nodiscard]] bool areComplete() const
    {
        return create && copySnapshot && resolve && insertItemUrl && remove && sessionLoginItems &&
               beforeFirst;
    }
};

class FileListItem final : public LoginItems::Item
{
public:
    explicit FileListItem(CfOwned<LSSharedFileListItemRef> item) : _item(std::move(item)) {}
    [[nodiscard]] LSSharedFileListItemRef get() const { return _item.get(); }

private:
    CfOwned<LSSharedFileListItemRef> _item;
};

bool isOfFileList(const LoginItems::Item& item)
{
    return dynamic_cast<const FileListItem*>(&item) != nullptr;
}

LSSharedFileListItemRef itemRef(const LoginItems::Item& item)
{
    return static_cast<const FileListItem&>(item).get();
}

class FileList final : public LoginItems::List
{
public:
    /// `successor` may be null.
    FileList(const FileListSymbols& system, CfOwned<LSSharedFileListRef> list,
             std::unique_ptr<List> successor)
        : _system(system), _list(std::move(list)), _successor(std::move(successor))
    {
    }

    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> copySnapshot() override
    {
        return _fileListItems() +
               (_successor ? _successor->copySnapshot() : QList<std::shared_ptr<LoginItems::Item>>());
    }

    [[nodiscard]] std::optional<QUrl> resolve(const LoginItems::Item& item, quint32 resolveFlags) override
    {
        if (!isOfFileList(item))
            return _successor->resolve(item, resolveFlags);
        CFURLRef url = nullptr;
        if (_system.resolve(itemRef(item), resolveFlags, &url, nullptr) != noErr)
            return std::nullopt;
        const CfOwned<CFURLRef> owned(url);
        const QString path = filePathOf(url);
        return path.isEmpty() ? std::nullopt : std::optional(QUrl::fromLocalFile(path));
    }

    void insertBeforeFirst(const QUrl& applicationUrl) override
    {
        _insertIntoFileList(applicationUrl);
        // Today's systems may take the call and do nothing.
        if (_successor && !_fileListHas(applicationUrl))
            _successor->insertBeforeFirst(applicationUrl);
    }

    void remove(const LoginItems::Item& item) override
    {
        if (isOfFileList(item))
            _system.remove(_list.get(), itemRef(item));
        else
            _successor->remove(item);
    }

private:
    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> _fileListItems() const
    {
        UInt32 seed = 0;
        const CfOwned<CFArrayRef> snapshot(_system.copySnapshot(_list.get(), &seed));
        QList<std::shared_ptr<LoginItems::Item>> items;
        const CFIndex count = snapshot ? CFArrayGetCount(snapshot.get()) : 0;
        for (CFIndex i = 0; i < count; ++i) {
            auto* const item = static_cast<LSSharedFileListItemRef>(
                const_cast<void*>(CFArrayGetValueAtIndex(snapshot.get(), i)));
            if (item)
                items.append(std::make_shared<FileListItem>(cfRetained(item)));
        }
        return items;
    }

    void _insertIntoFileList(const QUrl& applicationUrl) const
    {
        const CfOwned<CFURLRef> url = cfFileUrl(applicationUrl.toLocalFile(), true);
        if (!url)
            return;
        const CfOwned<LSSharedFileListItemRef> inserted(_system.insertItemUrl(
            _list.get(), _system.beforeFirst, nullptr, nullptr, url.get(), nullptr, nullptr));
    }

    [[nodiscard]] bool _fileListHas(const QUrl& applicationUrl)
    {
        const auto items = _fileListItems();
        return std::any_of(items.cbegin(), items.cend(), [&](const auto& item) {
            return resolve(*item, LoginItems::NoUserInteraction | LoginItems::DoNotMountVolumes) ==
                   applicationUrl;
        });
    }

    FileListSymbols _system;
    CfOwned<LSSharedFileListRef> _list;
    std::unique_ptr<List> _successor;
};

} // namespace

SharedFileListLoginItems::SharedFileListLoginItems(std::unique_ptr<LoginItems> successor)
    : _successor(std::move(successor))
{
}

std::unique_ptr<LoginItems::List> SharedFileListLoginItems::createSessionLoginItems()
{
    auto successor = _successor ? _successor->createSessionLoginItems() : nullptr;
    const FileListSymbols system;
    if (!system.areComplete())
        return successor;
    CfOwned<LSSharedFileListRef> list(system.create(kCFAllocatorDefault, system.sessionLoginItems, nullptr));
    if (!list)
        return successor;
    return std::make_unique<FileList>(system, std::move(list), std::move(successor));
}

} // namespace tarnwick
