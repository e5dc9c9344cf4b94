// SPDX-License-Identifier: MIT
#include "tests/unit/search/SearchTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using MenuSearchTest = SearchTest;

/// The title of a row with what is marked in brackets.
QString marked(const MenuSearch& search, int row)
{
    const int number = search.rows().at(row);
    QString title = search.entry(number).title;
    const auto marks = search.marks(number);
    for (auto mark = marks.crbegin(); mark != marks.crend(); ++mark) {
        title.insert(mark->end, u']');
        title.insert(mark->begin, u'[');
    }
    return title;
}

QString manyEntries(int count)
{
    QString bar = u"File\n"_s;
    for (int i = 0; i < count; ++i)
        bar += u"  Entry %1 of many\n"_s.arg(i);
    return bar;
}

/// Menus of menus of entries; the titles are the same in each.
QString manyMenus(int outer, int inner, int entries)
{
    QString bar;
    for (int first = 0; first < outer; ++first) {
        bar += u"Menu %1\n"_s.arg(first);
        for (int second = 0; second < inner; ++second) {
            bar += u"  Submenu %1\n"_s.arg(second);
            for (int entry = 0; entry < entries; ++entry)
                bar += u"    Entry %1\n"_s.arg(QChar(u'A' + entry));
        }
    }
    return bar;
}

} // namespace

TEST_F(MenuSearchTest, openMenus_areFoundBeforeAnythingIsRead)
{
    show(u"File\n  Save\nEdit\n  Save All\n"_s);
    const auto file = opened(u"File"_s);
    const int reads = accessibility.calls.attributeValues;
    const auto search = begun({file});
    EXPECT_EQ(found(*search, u"save"_s), QStringList({u"File > Save"_s}));
    EXPECT_EQ(accessibility.calls.attributeValues, reads);
    EXPECT_FALSE(search->isFinished());
    EXPECT_FALSE(search->step());
    EXPECT_EQ(rowsOf(*search), QStringList({u"File > Save"_s, u"Edit > Save All"_s}));
}

TEST_F(MenuSearchTest, emptyQuery_findsNothing)
{
    show(u"File\n  Save\n"_s);
    const auto search = finished();
    for (const char16_t* typed : {u"", u" ", u"\u0301"}) {
        EXPECT_EQ(found(*search, QString::fromUtf16(typed)), QStringList());
        EXPECT_FALSE(search->hasQuery());
        EXPECT_EQ(search->highlighted(), std::nullopt);
    }
    EXPECT_EQ(found(*search, u"s"_s), QStringList({u"File > Save"_s}));
    EXPECT_TRUE(search->hasQuery());
}

TEST_F(MenuSearchTest, menuWithoutEntries_findsNothing)
{
    show(u""_s);
    EXPECT_EQ(found(*finished(), u"save"_s), QStringList());
}

TEST_F(MenuSearchTest, oneEntry_isFound)
{
    show(u"Quit\n"_s);
    EXPECT_EQ(found(*finished(), u"qui"_s), QStringList({u"Quit"_s}));
}

TEST_F(MenuSearchTest, entryReadLater_neverMovesTheHighlightedRow)
{
    show(u"File\n  Save As\n  Save All\nEdit\n  Save\n  Sav\n"_s);
    const auto file = opened(u"File"_s);
    const auto search = begun({file});
    search->setText(u"sav"_s);
    search->highlight(1);
    EXPECT_FALSE(search->step());
    EXPECT_EQ(rowsOf(*search),
              QStringList({u"File > Save As"_s, u"File > Save All"_s, u"Edit > Sav"_s, u"Edit > Save"_s}));
    EXPECT_EQ(search->highlighted(), 1);
    search->setText(u"sav"_s);
    EXPECT_EQ(rowsOf(*search).first(), u"Edit > Sav"_s);
    EXPECT_EQ(search->highlighted(), 0);
}

TEST_F(MenuSearchTest, whatIsReadInQuickSuccession_isShownTogether)
{
    show(u"File\n  Save\nEdit\n  Save All\nView\n  Saved\nTools\n  Save It\nHelp\n  Saving\n"_s);
    const auto search = begun({opened(u"File"_s)});
    search->setText(u"sav"_s);
    EXPECT_EQ(search->rows().size(), 1);
    EXPECT_TRUE(search->step());
    EXPECT_EQ(search->rows().size(), 1);
    clock.advance(MenuSearch::TimeBetweenShowings);
    EXPECT_TRUE(search->step());
    EXPECT_EQ(search->rows().size(), 3);
    EXPECT_TRUE(search->step());
    EXPECT_EQ(search->rows().size(), 3);
    EXPECT_FALSE(search->step());
    EXPECT_EQ(search->rows().size(), 5);
}

TEST_F(MenuSearchTest, firstThatIsFound_isShownAtOnce)
{
    show(u"File\n  New\nEdit\n  Save\nView\n  Zoom\n"_s);
    const auto search = begun({opened(u"File"_s)});
    search->setText(u"sav"_s);
    EXPECT_TRUE(search->step());
    EXPECT_EQ(search->rows().size(), 1);
}

TEST_F(MenuSearchTest, faintResult_isNotHighlightedBeforeAllIsRead)
{
    show(u"File\n  Stage Volume\nEdit\n  Cut\nTools\n  Save\n"_s);
    const auto search = begun({opened(u"File"_s)});
    search->setText(u"save"_s);
    EXPECT_EQ(rowsOf(*search), QStringList({u"File > Stage Volume"_s}));
    EXPECT_EQ(search->highlighted(), std::nullopt);
    EXPECT_TRUE(search->step());
    EXPECT_EQ(search->highlighted(), std::nullopt);
    EXPECT_FALSE(search->step());
    EXPECT_EQ(rowsOf(*search), QStringList({u"Tools > Save"_s, u"File > Stage Volume"_s}));
    EXPECT_EQ(search->highlighted(), 0);
}

TEST_F(MenuSearchTest, faintResult_isHighlightedWhenNothingBetterHasCome)
{
    show(u"File\n  Stage Volume\nEdit\n  Cut\n"_s);
    const auto search = begun({opened(u"File"_s)});
    search->setText(u"save"_s);
    EXPECT_FALSE(search->step());
    EXPECT_EQ(search->highlighted(), 0);
}

TEST_F(MenuSearchTest, cancel_keepsWhatWasFound)
{
    show(u"File\n  Save\nEdit\n  Save All\n"_s);
    const auto search = begun({opened(u"File"_s)});
    search->setText(u"save"_s);
    search->cancel();
    EXPECT_TRUE(search->isFinished());
    EXPECT_FALSE(search->step());
    EXPECT_EQ(rowsOf(*search), QStringList({u"File > Save"_s}));
}

TEST_F(MenuSearchTest, sameTitleInSeveralMenus_isSeveralResults)
{
    show(u"Edit\n  Copy\n  Copy\nView\n  Copy\n  More\n    Copy\n"_s);
    const auto search = finished();
    EXPECT_EQ(found(*search, u"copy"_s),
              QStringList({u"Edit > Copy"_s, u"Edit > Copy"_s, u"View > Copy"_s, u"View > More > Copy"_s}));
    QSet<const MenuItem*> items;
    for (const int number : search->rows())
        items.insert(search->entry(number).item.get());
    EXPECT_EQ(items.size(), 4);
    EXPECT_EQ(search->entry(search->rows().at(2)).menu, root().itemWithTitle(u"View"_s)->submenu());
}

TEST_F(MenuSearchTest, holders_leadToTheEntry)
{
    show(u"File\n  Recent\n    Older\n      notes.txt\n"_s);
    const auto search = finished();
    search->setText(u"notes"_s);
    QStringList titles;
    for (const int holder : search->holders(search->rows().first()))
        titles.append(search->entry(holder).title);
    EXPECT_EQ(titles, QStringList({u"File"_s, u"Recent"_s, u"Older"_s}));
    EXPECT_EQ(search->path(search->rows().first()), titles);
}

TEST_F(MenuSearchTest, chosenEntry_goesFirstAmongItsEqualsInLaterSearches)
{
    show(u"File\n  Save As\n  Save All\n  Save\n"_s);
    auto search = finished();
    search->setText(u"sa"_s);
    search->noteChosen(search->rows().at(1));
    EXPECT_EQ(found(*finished(), u"sa"_s).first(), u"File > Save All"_s);
    EXPECT_EQ(found(*finished(), u"save"_s),
              QStringList({u"File > Save"_s, u"File > Save All"_s, u"File > Save As"_s}));
    chosenBefore = {};
    chosenBefore.note(u"Another"_s, {u"File"_s, u"Save All"_s});
    EXPECT_EQ(found(*finished(), u"sa"_s).first(), u"File > Save As"_s);
}

TEST_F(MenuSearchTest, choicesBeyondTheLimit_areForgotten)
{
    chosenBefore.note(u"Editor"_s, {u"first"_s});
    for (int i = 1; i < ChosenBefore::Most; ++i)
        chosenBefore.note(u"Editor"_s, {QString::number(i)});
    EXPECT_GT(chosenBefore.when(u"Editor"_s, {u"first"_s}), 0U);
    chosenBefore.note(u"Editor"_s, {u"first"_s});
    chosenBefore.note(u"Editor"_s, {u"last"_s});
    EXPECT_GT(chosenBefore.when(u"Editor"_s, {u"first"_s}), 0U);
    EXPECT_EQ(chosenBefore.when(u"Editor"_s, {u"1"_s}), 0U);
    EXPECT_GT(chosenBefore.when(u"Editor"_s, {u"2"_s}), 0U);
}

TEST_F(MenuSearchTest, matchedLetters_areMarked)
{
    const struct
    {
        const char16_t* title;
        const char16_t* typed;
        const char16_t* marked;
    } rows[] = {
        {u"Save As…", u"save", u"[Save] As…"},
        {u"Save As…", u"save as...", u"[Save As]…"},
        {u"Save As…", u"as save", u"[Save] [As]…"},
        {u"Save As…", u"sas", u"[S]ave [As]…"},
        {u"Résumé", u"resume", u"[Résumé]"},
        {u"Re\u0301sume", u"re", u"[Re\u0301]sume"},
        {u"Größe", u"gros", u"[Größ]e"}, // half of the sharp s is all of it
        {u"E&xit", u"exit", u"[E]&[xit]"},
        {u"Zoom  In", u"zoom in", u"[Zoom ] [In]"}, // of several blanks the first one is met
        {u"\U0001F600 Smile", u"\U0001F600", u"[\U0001F600] Smile"},
        {u"קובץ חדש", u"חדש", u"קובץ [חדש]"},
        {u"שְׁמִירָה", u"שמ", u"[שְׁמִ]ירָה"},
        {u"ＡＢＣ", u"bc", u"Ａ[ＢＣ]"},
        {u"Increase", u"ics", u"[I]n[c]rea[s]e"},
        {u"Save", u"save file", u"[Save]"}, // the other word is in the path
        {u"Save", u"file", u"Save"},
        {u"Save Save", u"save av", u"[Save] Save"}, // the same letters met twice
    };
    for (const auto& row : rows) {
        const QString typed = QString::fromUtf16(row.typed);
        SCOPED_TRACE(typed.toStdString());
        const auto file = MenuFile::parse(u"File\n  x\n"_s);
        accessibility.setMenuBar(application, file);
        accessibility.setAttribute(accessibility.menuItem(application, {u"File"_s, u"x"_s}), AXTitleAttribute,
                                   QString::fromUtf16(row.title));
        mirror->update();
        const auto search = finished();
        search->setText(typed);
        const auto& found = search->rows();
        const auto at = std::find_if(found.cbegin(), found.cend(),
                                     [&](int number) { return !search->path(number).isEmpty(); });
        ASSERT_NE(at, found.cend());
        EXPECT_EQ(marked(*search, static_cast<int>(at - found.cbegin())).toStdString(),
                  QString::fromUtf16(row.marked).toStdString());
    }
}

TEST_F(MenuSearchTest, shownTitle_isWhatIsSearchedAndMarked)
{
    show(u"File\n  Two\\nLines\n"_s);
    MenuSearch search(
        mirror->menu(), {},
        [](const MenuItem& item) { return QString(item.title()).replace(u'\n', u"    "_s); }, u"Editor"_s,
        chosenBefore);
    while (search.step()) {
    }
    search.setText(u"lines"_s);
    ASSERT_EQ(search.rows().size(), 1);
    EXPECT_EQ(marked(search, 0), u"Two    [Lines]"_s);
}

TEST_F(MenuSearchTest, twentyThousandEntries_areFoundAllAndEach)
{
    constexpr int Count = 20000;
    show(manyEntries(Count));
    const auto search = finished();
    EXPECT_EQ(found(*search, u"many"_s).size(), Count);
    EXPECT_EQ(found(*search, u"entry"_s).at(1), u"File > Entry 1 of many"_s);
    EXPECT_EQ(found(*search, u"entry 19999 of"_s), QStringList({u"File > Entry 19999 of many"_s}));
}

TEST_F(MenuSearchTest, twentyThousandEntriesOfTwoThousandMenus_areFoundInTheOrderOfTheMenus)
{
    show(manyMenus(20, 100, 10));
    const auto search = begun();
    search->setText(u"entry j"_s);
    while (search->step()) {
    }
    const QStringList rows = rowsOf(*search);
    ASSERT_EQ(rows.size(), 20 * 100);
    EXPECT_EQ(rows.at(0), u"Menu 0 > Submenu 0 > Entry J"_s);
    EXPECT_EQ(rows.at(1), u"Menu 0 > Submenu 1 > Entry J"_s);
    EXPECT_EQ(rows.at(100), u"Menu 1 > Submenu 0 > Entry J"_s);
    EXPECT_EQ(rows.last(), u"Menu 19 > Submenu 99 > Entry J"_s);
    EXPECT_EQ(found(*search, u"j 99 19"_s), QStringList({u"Menu 19 > Submenu 99 > Entry J"_s}));
}

TEST_F(MenuSearchTest, titleOfTenThousandCharacters_isFoundByItsEnd)
{
    constexpr int Length = 10000;
    show(u"File\n  %1 End\n"_s.arg(QString(Length, u'é')));
    const auto search = finished();
    search->setText(u"end"_s);
    ASSERT_EQ(search->rows().size(), 1);
    EXPECT_EQ(search->marks(search->rows().first()), QList<TextRange>({{Length + 1, Length + 4}}));
    search->setText(QString(Length, u'e'));
    EXPECT_EQ(search->rows().size(), 1) << "what is typed beyond a limit is passed over";
}

} // namespace tarnwick
