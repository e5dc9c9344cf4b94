// SPDX-License-Identifier: MIT
#include "platform/linux/look/WindowIcon.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <memory>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QString Name = u"example.quorlane.Tarnwick"_s;
const QList<QSize> AllSizes{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}};

/// A theme of icons of the desktop, which has one directory.
class WindowIconTest : public testing::Test
{
protected:
    WindowIconTest() : themes(QIcon::themeSearchPaths()), theme(QIcon::themeName())
    {
        EXPECT_TRUE(QDir(directory.path()).mkpath(u"desk/48x48/apps"_s));
        write(
            u"desk/index.theme"_s,
            "[Icon Theme]\nName=Desk\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\nContext=Applications\n");
        QIcon::setThemeSearchPaths({directory.path()});
        QIcon::setThemeName(u"desk"_s);
        qApp->installEventFilter(&icon);
    }
    ~WindowIconTest() override
    {
        QIcon::setThemeSearchPaths(themes);
        QIcon::setThemeName(theme);
    }
    Q_DISABLE_COPY_MOVE(WindowIconTest)

    void write(const QString& path, const QByteArray& contents) const
    {
        QFile file(directory.filePath(path));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(contents);
    }
    void addToTheme(QRgb color) const
    {
        QImage picture(48, 48, QImage::Format_ARGB32);
        picture.fill(color);
        EXPECT_TRUE(picture.save(directory.filePath(u"desk/48x48/apps/%1.png"_s.arg(Name))));
    }
    static QIcon ofWindow(Qt::WindowFlags flags)
    {
        QWidget window(nullptr, flags);
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        return window.windowIcon();
    }
    static QImage drawn(const QIcon& icon, int side)
    {
        return icon.pixmap(QSize(side, side), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    }
    static QImage builtIn(int side) { return drawn(QIcon(u":/icons/%1.png"_s.arg(side)), side); }

    QTemporaryDir directory;
    WindowIcon icon{Name};

private:
    QStringList themes;
    QString theme;
};

} // namespace

TEST_F(WindowIconTest, themeThatHasTheIcon_givesIt_asLargeAsItIs)
{
    addToTheme(0xFFFF0000);
    const QIcon shown = ofWindow(Qt::Window);
    EXPECT_EQ(shown.availableSizes(), AllSizes.first(4)) << "none is made larger";
    for (const int side : {16, 48})
        EXPECT_EQ(drawn(shown, side).pixel(side / 2, side / 2), 0xFFFF0000) << side;
}

TEST_F(WindowIconTest, themeWithoutTheIcon_leavesTheBuiltInOne)
{
    const QIcon shown = ofWindow(Qt::Window);
    EXPECT_EQ(shown.availableSizes(), AllSizes);
    for (const QSize& size : AllSizes) {
        ASSERT_FALSE(builtIn(size.width()).isNull());
        EXPECT_EQ(builtIn(size.width()).size(), size);
        EXPECT_EQ(drawn(shown, size.width()), builtIn(size.width())) << size.width();
    }
}

TEST_F(WindowIconTest, themeWhosePictureCannotBeRead_leavesTheBuiltInOne)
{
    write(u"desk/48x48/apps/%1.png"_s.arg(Name), "no picture");
    EXPECT_EQ(drawn(ofWindow(Qt::Window), 48), builtIn(48));
}

TEST_F(WindowIconTest, windowsThatPanelsList_haveTheIcon_menusAndHelpersDoNot)
{
    const struct
    {
        const char* window;
        Qt::WindowFlags flags;
        bool listed;
    } rows[] = {
        {"a window", Qt::Window, true},
        {"a dialog", Qt::Dialog, true},
        {"a menu", Qt::Popup, false},
        {"a tool tip", Qt::ToolTip, false},
        {"what keeps the pointer", Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint, false},
        {"the icon in a tray", Qt::FramelessWindowHint | Qt::BypassWindowManagerHint, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(!ofWindow(row.flags).isNull(), row.listed) << row.window;
}

TEST_F(WindowIconTest, anotherWindow_hasTheSameIcon_withoutReadingItAgain)
{
    const QIcon first = ofWindow(Qt::Window);
    addToTheme(0xFFFF0000);
    EXPECT_EQ(ofWindow(Qt::Dialog).cacheKey(), first.cacheKey());
}
