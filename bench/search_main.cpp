// SPDX-License-Identifier: MIT
// How long a query takes among the entries of a menu bar, beside a plain look for it in the same titles.
//   bench_search FILE ENTRIES ROUNDS
// FILE is a .menu file whose entries are repeated until there are so many. Prints for each round a line with
// what it is of, "whole" or "grown", and the nanoseconds of the search and of the baseline. "whole": a query
// that was not there before is matched and what it finds is ranked. "grown": the same for each letter more.
#include "bench/many_entries.h"

#include <QStringList>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

// What is typed: what finds nearly everything, much, a little and nothing.
const QStringList Queries{u"e"_s, u"sa"_s, u"save as"_s, u"insert"_s, u"arrow up"_s, u"ptn"_s, u"xyzzy"_s};

template <typename Function>
long long nanoseconds(const Function& function)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    function();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - begin).count();
}

qsizetype seen = 0; // so that nothing is left out

void measure(SearchIndex& index, const QString& query, const QString& before, const char* what)
{
    index.setQuery({});
    if (!before.isEmpty())
        index.setQuery(SearchQuery::of(before));
    const auto search = nanoseconds([&] {
        index.setQuery(SearchQuery::of(query));
        seen += index.ranked().size();
    });
    const auto plain = nanoseconds([&] {
        for (int number = 0; number < index.size(); ++number)
            seen += index.entry(number).title.contains(query) ? 1 : 0;
    });
    std::printf("%s %lld %lld\n", what, search, plain);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("bench_search FILE ENTRIES ROUNDS\n", stderr);
        return 2;
    }
    SearchIndex index = manyEntries(argv[1], QByteArray(argv[2]).toInt());
    const int rounds = QByteArray(argv[3]).toInt();
    for (int round = 0; round < rounds; ++round) {
        for (const QString& query : Queries) {
            measure(index, query, {}, "whole");
            for (qsizetype letters = 2; letters <= query.size(); ++letters)
                measure(index, query.first(letters), query.first(letters - 1), "grown");
        }
    }
    std::printf("entries %d\n", index.size());
    std::fprintf(stderr, "%lld\n", static_cast<long long>(seen));
    return 0;
}
