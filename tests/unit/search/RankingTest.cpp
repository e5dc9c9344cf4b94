// SPDX-License-Identifier: MIT
// The table that this reads, tests/data/search/ranking.txt, says what is found and in which order.
#include "tests/unit/search/SearchTest.h"

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

struct Row
{
    int line = 0;
    QString menu;
    QStringList chosen; ///< before, the last one last
    QString query;
    QStringList expected;
    bool more = false; ///< others may follow
};

/// Throws std::runtime_error where a line means nothing.
QList<Row> rows()
{
    QFile file(QString::fromUtf8(TARNWICK_SEARCH_DATA "/ranking.txt"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no table");
    QList<Row> rows;
    Row next;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines.at(i);
        next.line = static_cast<int>(i) + 1;
        if (line.startsWith(u"menu "_s)) {
            next.menu = line.mid(5);
        } else if (line.startsWith(u"chosen "_s)) {
            next.chosen.append(line.mid(7));
        } else if (line.startsWith(u"? "_s)) {
            next.query = line.mid(2);
            rows.append(next);
            next.chosen.clear();
        } else if (line == u"  …"_s && !rows.isEmpty()) {
            rows.last().more = true;
        } else if (line.startsWith(u"  "_s) && !rows.isEmpty()) {
            rows.last().expected.append(line.mid(2));
        } else if (!line.isEmpty() && !line.startsWith(u'#')) {
            throw std::runtime_error("line " + std::to_string(i + 1) + " means nothing");
        }
    }
    return rows;
}

class RankingTest : public SearchTest
{
protected:
    QStringList foundFor(const Row& row)
    {
        chosenBefore = {};
        for (const QString& chosen : row.chosen)
            chosenBefore.note(u"Editor"_s, chosen.split(u" > "_s));
        if (row.menu != _shown) {
            accessibility.setMenuBar(application, MenuFile::read(u"search/"_s + row.menu));
            _shown = row.menu;
        }
        mirror->update();
        openRoot();
        return found(*finished(), row.query);
    }

private:
    QString _shown;
};

} // namespace

TEST_F(RankingTest, entries_areFoundInTheOrderOfTheTable)
{
    const auto table = rows();
    EXPECT_GE(table.size(), 60);
    for (const Row& row : table) {
        SCOPED_TRACE(QStringLiteral("ranking.txt:%1: ? %2").arg(row.line).arg(row.query).toStdString());
        const QStringList all = foundFor(row);
        const QStringList shown = row.more ? all.first(std::min(all.size(), row.expected.size())) : all;
        EXPECT_EQ(shown.join(u'\n').toStdString(), row.expected.join(u'\n').toStdString());
        EXPECT_TRUE(!row.more || all.size() > row.expected.size()) << "nothing follows: take … away";
    }
}

} // namespace tarnwick
