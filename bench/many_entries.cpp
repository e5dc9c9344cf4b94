// SPDX-License-Identifier: MIT
#include "bench/many_entries.h"

#include "tests/fixtures/MenuText.h"

#include <fstream>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using Held = std::pair<int, const fixture::MenuText*>; ///< a menu and the entry that holds it

void add(const std::vector<fixture::MenuText>& menu, int holder, std::vector<Held>& held, SearchIndex& index)
{
    CollectedMenu collected{holder, index.path(holder) + QStringList(index.entry(holder).title), {}};
    for (const fixture::MenuText& entry : menu) {
        if (entry.separator)
            continue;
        if (entry.holdsMenu())
            held.emplace_back(index.size() + static_cast<int>(collected.entries.size()), &entry);
        collected.entries.append({nullptr, QString::fromStdString(entry.title), entry.enabled});
    }
    index.add(collected);
}

} // namespace

SearchIndex manyEntries(const char* path, int entries)
{
    std::ifstream file(path);
    const auto bar = fixture::MenuText::read(file);
    SearchIndex index;
    if (bar.empty())
        return index;
    CollectedMenu root;
    constexpr int MostCopies = 100;
    for (int copy = 0; copy < MostCopies; ++copy)
        root.entries.append({nullptr, u"Window %1"_s.arg(copy)});
    index.add(root);
    for (int copy = 0; copy < MostCopies && index.size() < entries; ++copy) {
        std::vector<Held> held;
        add(bar, copy, held, index);
        for (std::size_t i = 0; i < held.size() && index.size() < entries; ++i) {
            const auto [holder, entry] = held.at(i);
            add(entry->children, holder, held, index);
        }
    }
    return index;
}

} // namespace tarnwick
