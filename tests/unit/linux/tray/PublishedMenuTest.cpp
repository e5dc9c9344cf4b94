// SPDX-License-Identifier: MIT
#include "platform/linux/tray/PublishedMenu.h"

#include "platform/linux/tray/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QPixmap>
#include <gtest/gtest.h>

#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class PublishedMenuTest : public ::testing::Test
{
protected:
    PublishedMenuTest()
    {
        QObject::connect(&published, &PublishedMenu::LayoutUpdated, [this](uint number, int parent) {
            updates.append(QString::number(number) + u' ' + QString::number(parent));
        });
    }
    [[nodiscard]] PublishedLayout layout(int parent = 0, int depth = -1, const QStringList& names = {})
    {
        PublishedLayout found;
        revision = published.GetLayout(parent, depth, names, found);
        return found;
    }
    [[nodiscard]] QVariantMap propertiesOf(int id) { return layout(id).properties; }

    QMenu menu;
    PublishedMenu published{menu};
    QStringList updates;
    uint revision = 0;
};

} // namespace

TEST_F(PublishedMenuTest, labels_markMnemonicsAsTheProtocolDoes)
{
    const std::pair<QString, QString> labels[] = {
        {u"Quit"_s, u"Quit"_s},
        {u"&Quit"_s, u"_Quit"_s},
        {u"Cut && Paste"_s, u"Cut & Paste"_s},
        {u"snake_case"_s, u"snake__case"_s},
        {u"Last&"_s, u"Last&"_s},
        {u"&&&x"_s, u"&_x"_s},
        {u""_s, u""_s},
    };
    for (const auto& [text, label] : labels) {
        menu.clear();
        menu.addAction(text);
        EXPECT_EQ(propertiesOf(1).value(u"label"_s).toString(), label) << qPrintable(text);
    }
}

TEST_F(PublishedMenuTest, layout_tellsTheEntriesInOrder)
{
    menu.addAction(u"One"_s);
    menu.addSeparator();
    menu.addAction(u"Two"_s)->setEnabled(false);
    QAction* checked = menu.addAction(u"Three"_s);
    checked->setCheckable(true);
    checked->setChecked(true);
    const PublishedLayout all = layout();
    EXPECT_EQ(all.id, 0);
    EXPECT_EQ(all.properties, (QVariantMap{{u"children-display"_s, u"submenu"_s}}));
    ASSERT_EQ(all.children.size(), 4);
    EXPECT_EQ(all.children[0].properties, (QVariantMap{{u"label"_s, u"One"_s}}));
    EXPECT_EQ(all.children[1].properties, (QVariantMap{{u"type"_s, u"separator"_s}}));
    EXPECT_EQ(all.children[2].properties, (QVariantMap{{u"label"_s, u"Two"_s}, {u"enabled"_s, false}}));
    EXPECT_EQ(
        all.children[3].properties,
        (QVariantMap{{u"label"_s, u"Three"_s}, {u"toggle-type"_s, u"checkmark"_s}, {u"toggle-state"_s, 1}}));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(all.children[i].id, i + 1);
    EXPECT_TRUE(layout(0, 0).children.isEmpty()) << "no deeper than was asked for";
    EXPECT_TRUE(layout(1).children.isEmpty());
    const PublishedLayout types = layout(0, -1, {u"type"_s});
    EXPECT_TRUE(types.children[0].properties.isEmpty()) << "only what was asked for";
    EXPECT_EQ(types.children[1].properties.size(), 1);
}

TEST_F(PublishedMenuTest, properties_areThoseOfEntriesThatAreThere)
{
    menu.addAction(u"One"_s);
    const PublishedEntries entries =
        published.GetGroupProperties({1, 2, -1, std::numeric_limits<int>::lowest(), 0}, {});
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].id, 1);
    EXPECT_EQ(entries[1].id, 0);
    EXPECT_EQ(published.GetProperty(1, u"label"_s).variant(), u"One"_s);
    EXPECT_EQ(published.GetProperty(2, u"label"_s).variant(), QString());
    EXPECT_EQ(published.GetProperty(1, u"nothing"_s).variant(), QString());
}

TEST_F(PublishedMenuTest, aClick_triggersItsEntry_andNothingElseDoes)
{
    int triggered = 0;
    QAction* action = menu.addAction(u"One"_s);
    QObject::connect(action, &QAction::triggered, [&] { ++triggered; });
    for (const auto& [id, what] : {std::pair(1, u"hovered"_s), std::pair(0, u"clicked"_s),
                                   std::pair(2, u"clicked"_s), std::pair(-1, u"clicked"_s)})
        published.Event(id, what, QDBusVariant(0), 0);
    EXPECT_EQ(triggered, 0);
    published.Event(1, u"clicked"_s, QDBusVariant(0), 0);
    EXPECT_EQ(triggered, 1);
    EXPECT_EQ(published.EventGroup({{1, u"clicked"_s, {}, 0}, {7, u"clicked"_s, {}, 0}}), QList<int>{7});
    EXPECT_EQ(triggered, 2);
    action->setEnabled(false);
    published.Event(1, u"clicked"_s, QDBusVariant(0), 0);
    EXPECT_EQ(triggered, 2);
}

TEST_F(PublishedMenuTest, menu_isMadeAnewBeforeItShows)
{
    int shown = 0;
    int hidden = 0;
    QObject::connect(&menu, &QMenu::aboutToShow, [&] { ++shown; });
    QObject::connect(&menu, &QMenu::aboutToHide, [&] { ++hidden; });
    static_cast<void>(layout());
    const uint before = revision;
    EXPECT_FALSE(published.AboutToShow(1)) << "no menu";
    EXPECT_TRUE(published.AboutToShow(0));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(updates, QStringList(QString::number(before + 1) + u" 0"_s));
    static_cast<void>(layout());
    EXPECT_EQ(revision, before + 1);
    QList<int> unknown;
    EXPECT_EQ(published.AboutToShowGroup({0, 5}, unknown), QList<int>{0});
    EXPECT_EQ(unknown, QList<int>{5});
    published.Event(0, u"closed"_s, QDBusVariant(0), 0);
    EXPECT_EQ(hidden, 1);
}

TEST_F(PublishedMenuTest, properties_ofTheMenuItself)
{
    EXPECT_EQ(PublishedMenu::version(), 3U);
    EXPECT_EQ(PublishedMenu::status(), u"normal"_s);
    EXPECT_EQ(published.textDirection(), u"ltr"_s);
    menu.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(published.textDirection(), u"rtl"_s);
}

TEST(StatusNotifierItem, pictures_areInNetworkByteOrder)
{
    QMenu menu;
    int clicks = 0;
    StatusNotifierItem item(QDBusConnection(u"none"_s), menu, [&] { ++clicks; });
    int news = 0;
    QObject::connect(&item, &StatusNotifierItem::NewIcon, [&] { ++news; });
    EXPECT_TRUE(item.iconPixmap().isEmpty() || item.iconPixmap().first().pixels.isEmpty()) << "none yet";
    QPixmap picture(16, 16);
    picture.fill(QColor(0x12, 0x34, 0x56));
    item.setIcon(picture);
    EXPECT_EQ(news, 1);
    const StatusNotifierPictures pictures = item.iconPixmap();
    ASSERT_FALSE(pictures.isEmpty());
    EXPECT_EQ(pictures.first().width, 16);
    EXPECT_EQ(pictures.first().height, 16);
    EXPECT_EQ(pictures.first().pixels.size(), 16 * 16 * 4);
    EXPECT_EQ(pictures.first().pixels.left(4), QByteArray::fromHex("ff123456"));
    item.Activate(0, 0);
    EXPECT_EQ(clicks, 0) << "the host waits for the answer";
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 1);
}
