// SPDX-License-Identifier: MIT
#include "platform/linux/look/LookSources.h"

#include "platform/linux/look/XSettingsDecode.h"

#include <QtEndian>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// Writes settings as a settings program does.
class XSettingsWriter
{
public:
    explicit XSettingsWriter(bool bigEndian) : _bigEndian(bigEndian) {}

    void number(const QByteArray& name, qint32 value)
    {
        _begin(0, name);
        _append(_entries, value);
    }

    void text(const QByteArray& name, const QByteArray& value)
    {
        _begin(1, name);
        _append(_entries, static_cast<quint32>(value.size()));
        _pad(value);
    }

    void color(const QByteArray& name)
    {
        _begin(2, name);
        _entries += QByteArray(8, 'c');
    }

    void unknown(const QByteArray& name) { _begin(3, name); }

    [[nodiscard]] QByteArray contents() const
    {
        QByteArray all(1, _bigEndian ? '\1' : '\0');
        all += QByteArray(3, '\0');
        _append(all, quint32(7)); // the serial number
        _append(all, _count);
        return all + _entries;
    }

private:
    void _begin(char type, const QByteArray& name)
    {
        ++_count;
        _entries += type;
        _entries += '\0';
        _append(_entries, static_cast<quint16>(name.size()));
        _pad(name);
        _append(_entries, quint32(3));
    }

    void _pad(const QByteArray& text)
    {
        _entries += text;
        while (_entries.size() % 4 != 0)
            _entries += '\0';
    }

    template <typename Integer>
    void _append(QByteArray& to, Integer value) const
    {
        const Integer ordered = _bigEndian ? qToBigEndian(value) : qToLittleEndian(value);
        to.append(reinterpret_cast<const char*>(&ordered), sizeof ordered);
    }

    bool _bigEndian;
    quint32 _count = 0;
    QByteArray _entries;
};

QByteArray exampleIn(bool bigEndian)
{
    XSettingsWriter writer(bigEndian);
    writer.text("Net/ThemeName", "Adwaita-dark");
    writer.color("Gtk/Some");
    writer.number("Gtk/EnableAnimations", -1);
    writer.text("Gtk/FontName", "Übung 11");
    return writer.contents();
}

TEST(XSettings, areRead_inBothByteOrders)
{
    const XSettingValues expected{{u"Net/ThemeName"_s, u"Adwaita-dark"_s},
                                  {u"Gtk/EnableAnimations"_s, -1},
                                  {u"Gtk/FontName"_s, u"Übung 11"_s}};
    for (const bool bigEndian : {false, true})
        EXPECT_EQ(decodeXSettings(exampleIn(bigEndian)), expected) << bigEndian;
}

TEST(XSettings, areNothing_whereTheyEndEarly)
{
    const QByteArray whole = exampleIn(false);
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodeXSettings(whole.first(size))) << size;
}

TEST(XSettings, areNothing_withATypeThatThereIsNot)
{
    XSettingsWriter writer(false);
    writer.unknown("Gtk/Some");
    EXPECT_FALSE(decodeXSettings(writer.contents()));
}

TEST(XSettings, areNone_whereThereAreNone)
{
    EXPECT_EQ(decodeXSettings(XSettingsWriter(true).contents()), XSettingValues());
}

TEST(FontOfGtk, isReadWordByWord)
{
    struct Row
    {
        const char* name;
        QString description;
        QString family;
        double size; ///< -1: not told
        QFont::Weight weight;
        QFont::Style style;
    };
    const Row rows[] = {
        {"family and size", u"Cantarell 11"_s, u"Cantarell"_s, 11, QFont::Normal, QFont::StyleNormal},
        {"a family of two words", u"Noto Sans 10.5"_s, u"Noto Sans"_s, 10.5, QFont::Normal,
         QFont::StyleNormal},
        {"a weight", u"Noto Sans Semi-Bold 10"_s, u"Noto Sans"_s, 10, QFont::DemiBold, QFont::StyleNormal},
        {"weight and style", u"Noto Sans Bold Italic 10"_s, u"Noto Sans"_s, 10, QFont::Bold,
         QFont::StyleItalic},
        {"in small letters", u"Noto Sans bold oblique 9"_s, u"Noto Sans"_s, 9, QFont::Bold,
         QFont::StyleOblique},
        {"a family that is a style word", u"Black 9"_s, u"Black"_s, 9, QFont::Normal, QFont::StyleNormal},
        {"several families", u"Ubuntu, Noto Sans, 12"_s, u"Ubuntu"_s, 12, QFont::Normal, QFont::StyleNormal},
        {"no size", u"Sans"_s, u"Sans"_s, -1, QFont::Normal, QFont::StyleNormal},
        {"a size of nothing", u"Sans 0"_s, u"Sans"_s, -1, QFont::Normal, QFont::StyleNormal},
        {"the largest size", u"Sans 200"_s, u"Sans"_s, 200, QFont::Normal, QFont::StyleNormal},
        {"a larger size", u"Sans 1e300"_s, u"Sans"_s, -1, QFont::Normal, QFont::StyleNormal},
        {"a size without end", u"Sans inf"_s, u"Sans"_s, -1, QFont::Normal, QFont::StyleNormal},
        {"a size that is no number", u"Sans nan"_s, u"Sans"_s, -1, QFont::Normal, QFont::StyleNormal},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto font = fontOfGtk(row.description);
        ASSERT_TRUE(font);
        EXPECT_EQ(font->family(), row.family);
        EXPECT_EQ(font->pointSizeF(), row.size > 0 ? row.size : QFont().pointSizeF());
        EXPECT_EQ(font->weight(), row.weight);
        EXPECT_EQ(font->style(), row.style);
    }
    for (const QString& none : {QString(), u"12"_s, u" , 9"_s, u",Sans 9"_s, u"\u2003 9"_s})
        EXPECT_FALSE(fontOfGtk(none)) << none.toStdString();
}

TEST(LookOfXSettings, isThatOfTheTheme)
{
    struct Row
    {
        const char* theme;
        QRgb window, text;
        bool standsIn;
    };
    const Row rows[] = {
        {"Adwaita", 0xFFF0F0F0, 0xFF202020, true},
        {"Adwaita-dark", 0xFF323232, 0xFFF0F0F0, true},
        {"Yaru-blue-dark", 0xFF323232, 0xFFF0F0F0, true},
        {"HighContrast", 0xFFFFFFFF, 0xFF000000, false},
        {"HighContrastInverse", 0xFF000000, 0xFFFFFFFF, false},
        {"ContrastHighInverse", 0xFF000000, 0xFFFFFFFF, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.theme);
        const Look look = lookOfXSettings({{u"Net/ThemeName"_s, QString::fromLatin1(row.theme)}});
        ASSERT_TRUE(look.palette);
        EXPECT_EQ(look.palette->color(QPalette::Window), row.window);
        EXPECT_EQ(look.palette->color(QPalette::WindowText), row.text);
        EXPECT_NE(look.palette->color(QPalette::Disabled, QPalette::WindowText), row.text);
        EXPECT_EQ(look.paletteStandsIn, row.standsIn);
        const QColor field = look.palette->color(QPalette::Base);
        EXPECT_TRUE(row.window != 0xFF000000 || field.lightness() >= 64) << "a field shows on black";
    }
}

TEST(LookOfXSettings, hasWhatIsToldOnly)
{
    const Look nothing = lookOfXSettings({});
    EXPECT_FALSE(nothing.palette || nothing.font || nothing.menuFont || nothing.reducesMotion);
    EXPECT_EQ(lookOfXSettings({{u"Gtk/FontName"_s, u"Serif 14"_s}}).font->family(), u"Serif"_s);
    EXPECT_FALSE(lookOfXSettings({{u"Gtk/EnableAnimations"_s, 1}}).reducesMotion);
    EXPECT_TRUE(lookOfXSettings({{u"Gtk/EnableAnimations"_s, 0}}).reducesMotion);
}

TEST(LookWithColorScheme, isAsPreferred_whateverTheThemeIs)
{
    const Look untold;
    const Look light = lookOfXSettings({{u"Net/ThemeName"_s, u"Adwaita"_s}});
    const Look dark = lookOfXSettings({{u"Net/ThemeName"_s, u"Adwaita-dark"_s}});
    for (const Look& look : {untold, light, dark}) {
        const Look preferred = withColorScheme(look, ColorScheme::Dark);
        EXPECT_TRUE(isDark(preferred.palette.value()));
        EXPECT_TRUE(preferred.paletteStandsIn);
        EXPECT_FALSE(isDark(withColorScheme(look, ColorScheme::Light).palette.value()));
        EXPECT_EQ(withColorScheme(look, ColorScheme::NoPreference).palette, look.palette);
    }
}

TEST(LookWithColorScheme, leavesHighContrastAlone)
{
    const Look contrast = lookOfXSettings({{u"Net/ThemeName"_s, u"HighContrast"_s}});
    const Look preferred = withColorScheme(contrast, ColorScheme::Dark);
    EXPECT_EQ(preferred.palette, contrast.palette);
    EXPECT_FALSE(preferred.paletteStandsIn);
}

TEST(LookOfKdeGlobals, takesEachColourFromItsGroup_andTheUppermostLayerFirst)
{
    const QByteArray upper =
        "[Colors:Window]\nBackgroundNormal=1,2,3\n\n[General]\nfont=Serif,13,-1,5,50,0,0,0,0,0\n";
    const QByteArray lower =
        "[General]\nfont=Sans,9\nmenuFont=Sans,8,-1,5,50,0,0,0,0,0\n"
        "[Colors:Window]\nBackgroundNormal=9,9,9\nForegroundNormal=250,251,252\n"
        "[Colors:View]\nBackgroundNormal=4,5,6,255\nForegroundNormal=7,8,9\nForegroundLink=nonsense\n"
        "[Colors:Button]\nBackgroundNormal=10,11,12\nForegroundNormal=13,14,15\n"
        "[Colors:Selection]\nBackgroundNormal=16,17,18\nForegroundNormal=19,20,21\n"
        "[Colors:Tooltip]\nBackgroundNormal=22,23,24\nForegroundNormal=25,26,27\n"
        "[KDE]\nAnimationDurationFactor=0\n";
    const Look look = lookOfKdeGlobals({upper, lower});
    ASSERT_TRUE(look.palette);
    const std::pair<QPalette::ColorRole, QColor> expected[] = {
        {QPalette::Window, {1, 2, 3}},         {QPalette::WindowText, {250, 251, 252}},
        {QPalette::Base, {4, 5, 6}},           {QPalette::Text, {7, 8, 9}},
        {QPalette::Button, {10, 11, 12}},      {QPalette::ButtonText, {13, 14, 15}},
        {QPalette::Highlight, {16, 17, 18}},   {QPalette::HighlightedText, {19, 20, 21}},
        {QPalette::ToolTipBase, {22, 23, 24}}, {QPalette::ToolTipText, {25, 26, 27}},
    };
    for (const auto& [role, color] : expected)
        EXPECT_EQ(look.palette->color(role), color) << role;
    EXPECT_FALSE(look.paletteStandsIn);
    EXPECT_EQ(look.font->family(), u"Serif"_s);
    EXPECT_EQ(look.font->pointSize(), 13);
    EXPECT_EQ(look.menuFont->pointSize(), 8);
    EXPECT_TRUE(look.reducesMotion);
}

TEST(LookOfKdeGlobals, colourIsThreeNumbersOrFour)
{
    for (const auto* value : {"red", "1,2", "1,2,3,4,5", "a,b,c", "1,,3", "1,2,300", "1,2,-3"})
        EXPECT_FALSE(lookOfKdeGlobals({QByteArray("[Colors:Window]\nBackgroundNormal=") + value}).palette)
            << value;
    for (const auto* value : {"1,2,3", " 1 , 2 , 3 ", "1,2,3,255"})
        EXPECT_TRUE(lookOfKdeGlobals({QByteArray("[Colors:Window]\nBackgroundNormal=") + value}).palette)
            << value;
}

TEST(LookOfKdeGlobals, fontHasAFamily_andASizeThatATextCanBeReadIn)
{
    for (const auto* value :
         {"Sans,1e300", "Sans,201", "Sans,inf", "Sans,-1,2147483647,5,50,0,0,0,0,0", ",10"})
        EXPECT_FALSE(lookOfKdeGlobals({QByteArray("[General]\nfont=") + value}).font) << value;
    for (const auto* value : {"Sans,200", "Sans,7.5", "Sans,-1,20,5,50,0,0,0,0,0"})
        EXPECT_TRUE(lookOfKdeGlobals({QByteArray("[General]\nfont=") + value}).font) << value;
}

TEST(LookOfKdeGlobals, isNothing_whereNothingIsTold)
{
    const Look look =
        lookOfKdeGlobals({"[KDE]\nwidgetStyle=Breeze\n", "[Colors:Window]\nBackgroundNormal=red\n"});
    EXPECT_FALSE(look.palette || look.font || look.menuFont || look.reducesMotion);
    EXPECT_FALSE(lookOfKdeGlobals({"[KDE]\nAnimationDurationFactor=0.5\n"}).reducesMotion);
}

} // namespace
