// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"
#include "tests/fakes/Journal.h"

#include <utility>

namespace tarnwick {

/// What the user starts at login, first to last.
class FakeLoginItems final : public LoginItems
{
public:
    class Entry final : public Item
    {
    public:
        explicit Entry(std::optional<QUrl> itemUrl) : url(std::move(itemUrl)) {}
        std::optional<QUrl> url; ///< nothing: cannot be resolved
    };

    bool available = true;                 ///< lever: whether the desktop has such a list
    QList<std::shared_ptr<Entry>> entries; ///< lever and look
    int openLists = 0;                     ///< look: lists that were not released
    int listsMade = 0;                     ///< look
    QList<quint32> resolveFlags;           ///< look: the flags of every resolution
    Journal* journal = nullptr;            ///< "login items", "insert <url>", "remove"

    /// Lever: adds an entry at the end.
    void add(std::optional<QUrl> url) { entries.append(std::make_shared<Entry>(std::move(url))); }

    /// Look: the URLs of the entries, an empty one for those that cannot be resolved.
    [[nodiscard]] QList<QUrl> urls() const
    {
        QList<QUrl> all;
        for (const auto& each : entries)
            all.append(each->url.value_or(QUrl()));
        return all;
    }

    [[nodiscard]] std::unique_ptr<List> createSessionLoginItems() override
    {
        note(journal, QStringLiteral("login items"));
        ++listsMade;
        return available ? std::make_unique<OpenList>(*this) : nullptr;
    }

private:
    class OpenList final : public List
    {
    public:
        explicit OpenList(FakeLoginItems& items) : _items(items) { ++_items.openLists; }
        ~OpenList() override { --_items.openLists; }
        OpenList(const OpenList&) = delete;
        OpenList& operator=(const OpenList&) = delete;

        [[nodiscard]] QList<std::shared_ptr<Item>> copySnapshot() override
        {
            return {_items.entries.cbegin(), _items.entries.cend()};
        }

        [[nodiscard]] std::optional<QUrl> resolve(const Item& item, quint32 flags) override
        {
            _items.resolveFlags.append(flags);
            return static_cast<const Entry&>(item).url;
        }

        void insertBeforeFirst(const QUrl& applicationUrl) override
        {
            note(_items.journal, QStringLiteral("insert ") + applicationUrl.toString());
            _items.entries.prepend(std::make_shared<Entry>(applicationUrl));
        }

        void remove(const Item& item) override
        {
            note(_items.journal, QStringLiteral("remove"));
            _items.entries.removeIf([&](const std::shared_ptr<Entry>& each) { return each.get() == &item; });
        }

    private:
        FakeLoginItems& _items;
    };
};

} // namespace tarnwick
