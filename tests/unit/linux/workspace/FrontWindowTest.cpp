// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiWindowMatch.h"
#include "platform/linux/atspi/ChildrenJustTold.h"
#include "platform/linux/atspi/KnownMenuBars.h"
#include "platform/linux/x11/FrontWindowFilter.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace tarnwick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const X11Window Editor{10, 100};
const X11Window OtherEditor{11, 100};
const X11Window Terminal{20, 200};
const X11Window Nothing{};

AtspiFacts window(const char* path, const QString& name, bool active)
{
    AtspiFacts facts;
    facts.reference = {":1.5", path, 1};
    facts.name = name;
    facts.states = active ? quint64{1} << atspi::StateActive : 0;
    return facts;
}

} // namespace

TEST(FrontWindowFilter, see_tellsEachChangeOnce)
{
    FrontWindowFilter filter;
    const FrontWindowFilter::Time now{};
    EXPECT_EQ(filter.see(Editor, now), Editor);
    EXPECT_EQ(filter.see(Editor, now), std::nullopt);
    EXPECT_EQ(filter.see(Terminal, now), Terminal);
    EXPECT_EQ(filter.see(Editor, now), Editor);
}

TEST(FrontWindowFilter, aWindowThatDoesNotCount_leavesTheFrontAsItIs)
{
    FrontWindowFilter filter;
    const FrontWindowFilter::Time now{};
    EXPECT_EQ(filter.see(Editor, now), Editor);
    EXPECT_EQ(filter.see(std::nullopt, now), std::nullopt);
    EXPECT_EQ(filter.see(Editor, now), std::nullopt);
}

TEST(FrontWindowFilter, none_countsAfterAFifthOfASecond)
{
    FrontWindowFilter filter;
    const FrontWindowFilter::Time now{};
    EXPECT_EQ(filter.due(), std::nullopt);
    EXPECT_EQ(filter.see(Nothing, now), std::nullopt) << "none at the start is no change";
    EXPECT_EQ(filter.see(Editor, now), Editor);
    EXPECT_EQ(filter.see(Nothing, now), std::nullopt);
    EXPECT_EQ(filter.due(), now + 200ms);
    EXPECT_EQ(filter.see(Nothing, now + 199ms), std::nullopt);
    EXPECT_EQ(filter.due(), now + 200ms) << "counted from the first time";
    EXPECT_EQ(filter.see(Nothing, now + 200ms), Nothing);
    EXPECT_EQ(filter.due(), std::nullopt);
    EXPECT_EQ(filter.see(Nothing, now + 900ms), std::nullopt);
}

TEST(FrontWindowFilter, aShortNone_isNoChange)
{
    FrontWindowFilter filter;
    const FrontWindowFilter::Time now{};
    EXPECT_EQ(filter.see(Editor, now), Editor);
    EXPECT_EQ(filter.see(Nothing, now), std::nullopt);
    EXPECT_EQ(filter.see(Editor, now + 100ms), std::nullopt);
    EXPECT_EQ(filter.due(), std::nullopt);
    EXPECT_EQ(filter.see(Nothing, now + 250ms), std::nullopt) << "it starts anew";
    EXPECT_EQ(filter.see(Terminal, now + 300ms), Terminal);
}

QString certaintyText(AtspiWindowMatch::Certainty certainty)
{
    switch (certainty) {
    case AtspiWindowMatch::Certainty::Never:
        return {};
    case AtspiWindowMatch::Certainty::OnceSettled:
        return u" once settled"_s;
    case AtspiWindowMatch::Certainty::Now:
        return u" certain"_s;
    }
    return {};
}

TEST(KnownMenuBars, ofAndFound_keepABarInMindAsSoonAsItIsCertain)
{
    using Certainty = AtspiWindowMatch::Certainty;
    const BusReference bar{":1.5", "/bar", 1};
    const BusReference other{":1.5", "/other", 1};
    const KnownMenuBars::Time start{};
    const auto settled = start + KnownMenuBars::Settled;
    struct Look
    {
        BusReference bar;
        Certainty certainty;
        KnownMenuBars::Time at;
    };
    struct Row
    {
        const char* what;
        QList<Look> looks;
        BusReference known;
    };
    const Row rows[] = {
        {"nothing was looked for", {}, {}},
        {"it is certain", {{bar, Certainty::Now, start}}, bar},
        {"none is there", {{{}, Certainty::Now, start}}, {}},
        {"it is gone", {{bar, Certainty::Now, start}, {{}, Certainty::Never, start}}, {}},
        {"another one", {{bar, Certainty::Now, start}, {other, Certainty::Now, start}}, other},
        {"it may be another's", {{bar, Certainty::OnceSettled, start}}, {}},
        {"too early",
         {{bar, Certainty::OnceSettled, start}, {bar, Certainty::OnceSettled, settled - 1ms}},
         {}},
        {"it lasts", {{bar, Certainty::OnceSettled, start}, {bar, Certainty::OnceSettled, settled}}, bar},
        {"it changed", {{other, Certainty::OnceSettled, start}, {bar, Certainty::OnceSettled, settled}}, {}},
        {"by its state alone", {{bar, Certainty::Never, start}, {bar, Certainty::Never, settled}}, {}},
    };
    for (const Row& row : rows) {
        KnownMenuBars known;
        for (const Look& look : row.looks)
            known.found(Editor, look.bar, look.certainty, look.at);
        EXPECT_EQ(known.of(Editor), row.known) << row.what;
        EXPECT_EQ(known.ownerOf(bar), row.known == bar ? Editor.id : xcb_window_t{XCB_WINDOW_NONE})
            << row.what;
    }
}

TEST(KnownMenuBars, ofAnotherProcessOrWindow_isNotKnown)
{
    const BusReference bar{":1.5", "/bar", 1};
    KnownMenuBars known;
    known.found(Editor, bar, AtspiWindowMatch::Certainty::Now, {});
    EXPECT_EQ(known.of(OtherEditor), BusReference());
    EXPECT_EQ(known.of({Editor.id, Terminal.processIdentifier}), BusReference());
    EXPECT_EQ(known.of(Editor), bar);
    known.forget(Editor);
    EXPECT_EQ(known.of(Editor), BusReference());
}

TEST(ChildrenJustTold, take_givesThemOnceAndOnlyOfThisBar)
{
    const BusReference bar{":1.5", "/bar", 1};
    const QList<BusReference> children{{":1.5", "/child", 1}};
    FakeClock clock;
    const SharedPorts sharedPorts(clock);
    ChildrenJustTold told;
    EXPECT_EQ(told.take(bar), std::nullopt);
    told.tell(bar, children);
    EXPECT_EQ(told.take({":1.5", "/other", 1}), std::nullopt);
    EXPECT_EQ(told.take(bar), children);
    EXPECT_EQ(told.take(bar), std::nullopt);
    told.tell(bar, std::nullopt);
    EXPECT_EQ(told.take(bar), std::nullopt);
    told.tell(bar, children);
    clock.advance(std::chrono::duration<double>(ChildrenJustTold::Moment).count());
    EXPECT_EQ(told.take(bar), std::nullopt) << "that was some time ago";
}

TEST(AtspiWindowMatch, among_findsTheWindowByWhatIsTold)
{
    const AtspiFacts one = window("/1", u"One"_s, false);
    const AtspiFacts two = window("/2", u"Two"_s, true);
    const AtspiFacts twoAgain = window("/3", u"Two"_s, false);
    const auto among = [](const QList<AtspiFacts>& windows, const QString& title, bool active) {
        const auto match = AtspiWindowMatch::among(windows, title, active);
        return match ? QString::fromLatin1(match->window.path) + certaintyText(match->certainty) : u"none"_s;
    };
    EXPECT_EQ(among({}, u"One"_s, true), u"none"_s);
    EXPECT_EQ(among({one}, u"One"_s, false), u"/1 certain"_s);
    EXPECT_EQ(among({one}, u"One - Editor"_s, false), u"/1 certain"_s) << "titles may be longer";
    EXPECT_EQ(among({one}, u"Another title"_s, false), u"/1 once settled"_s) << "the only window so far";
    EXPECT_EQ(among({window("/4", QString(), true)}, u"One"_s, true), u"/4 once settled"_s);
    EXPECT_EQ(among({one, two}, u"One"_s, true), u"/1 certain"_s) << "the title goes before the state";
    EXPECT_EQ(among({one, two, twoAgain}, u"Two"_s, true), u"/2"_s) << "the active one of several";
    EXPECT_EQ(among({one, twoAgain, two}, u"Two"_s, false), u"/3"_s)
        << "the first, where none need be active";
    EXPECT_EQ(among({one, two}, u"Another title"_s, true), u"/2"_s) << "the active one";
    EXPECT_EQ(among({one, two}, u"Another title"_s, false), u"none"_s);
    EXPECT_EQ(among({one, twoAgain}, u"Another title"_s, true), u"none"_s);
}
