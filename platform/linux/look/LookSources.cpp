// SPDX-License-Identifier: MIT
#include "platform/linux/look/LookSources.h"

#include "platform/qt/settings/KeyFile.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

// Of desktops that name a theme only

struct Colors
{
    QRgb window, text, base, highlight, highlightedText, link;
};

constexpr Colors Light{0xFFF0F0F0, 0xFF202020, 0xFFFFFFFF, 0xFF2A78C8, 0xFFFFFFFF, 0xFF1A5FB4};
constexpr Colors Dark{0xFF323232, 0xFFF0F0F0, 0xFF242424, 0xFF2F7FD0, 0xFFFFFFFF, 0xFF78AEED};
constexpr Colors Contrast{0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF, 0xFF0000C0};
// Fields and boxes have no outline that shows on black.
constexpr Colors DarkContrast{0xFF000000, 0xFFFFFFFF, 0xFF404040, 0xFFFFFF00, 0xFF000000, 0xFF80C0FF};

QColor between(const QColor& one, const QColor& other)
{
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
            (one.blue() + other.blue()) / 2};
}

void greyDisabledText(QPalette& palette)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
    };
    for (const auto& [text, ground] : pairs)
        palette.setColor(
            QPalette::Disabled, text,
            between(palette.color(QPalette::Active, text), palette.color(QPalette::Active, ground)));
}

QPalette paletteOf(const Colors& colors)
{
    const QColor window = QColor::fromRgb(colors.window);
    QPalette palette(window, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor::fromRgb(colors.text));
    palette.setColor(QPalette::Base, QColor::fromRgb(colors.base));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::Highlight, QColor::fromRgb(colors.highlight));
    palette.setColor(QPalette::HighlightedText, QColor::fromRgb(colors.highlightedText));
    palette.setColor(QPalette::Link, QColor::fromRgb(colors.link));
    greyDisabledText(palette);
    return palette;
}

bool isForContrast(const QString& theme)
{
    return theme.contains(u"contrast"_s, Qt::CaseInsensitive);
}

bool isDark(const QString& theme)
{
    return theme.contains(u"dark"_s, Qt::CaseInsensitive) ||
           theme.contains(u"inverse"_s, Qt::CaseInsensitive);
}

// Of KDE

using Group = QHash<QString, QString>;

QHash<QString, Group> groupsOf(const QList<QByteArray>& layers)
{
    QHash<QString, Group> groups;
    for (const QByteArray& layer : layers) {
        for (const auto& [group, key, value] : key_file::entriesOf(layer)) {
            Group& entries = groups[key_file::textOf(group.value_or(QByteArray()))];
            const QString name = key_file::textOf(key);
            if (!entries.contains(name))
                entries.insert(name, key_file::textOf(value));
        }
    }
    return groups;
}

/// Nothing unless it is three numbers, or four.
std::optional<QColor> colorOf(const QString& value)
{
    QList<int> parts;
    for (const QString& part : value.split(u',')) {
        bool isNumber = false;
        parts.append(part.trimmed().toInt(&isNumber));
        if (!isNumber)
            return std::nullopt;
    }
    if (parts.size() != 3 && parts.size() != 4)
        return std::nullopt;
    const QColor color(parts.at(0), parts.at(1), parts.at(2));
    return color.isValid() ? std::optional(color) : std::nullopt;
}

struct NamedColor
{
    QPalette::ColorRole role;
    QLatin1StringView group;
    QLatin1StringView key;
};

constexpr NamedColor KdeColors[] = {
    {QPalette::WindowText, "Colors:Window"_L1, "ForegroundNormal"_L1},
    {QPalette::Base, "Colors:View"_L1, "BackgroundNormal"_L1},
    {QPalette::AlternateBase, "Colors:View"_L1, "BackgroundAlternate"_L1},
    {QPalette::Text, "Colors:View"_L1, "ForegroundNormal"_L1},
    {QPalette::Link, "Colors:View"_L1, "ForegroundLink"_L1},
    {QPalette::LinkVisited, "Colors:View"_L1, "ForegroundVisited"_L1},
    {QPalette::ButtonText, "Colors:Button"_L1, "ForegroundNormal"_L1},
    {QPalette::Highlight, "Colors:Selection"_L1, "BackgroundNormal"_L1},
    {QPalette::HighlightedText, "Colors:Selection"_L1, "ForegroundNormal"_L1},
    {QPalette::ToolTipBase, "Colors:Tooltip"_L1, "BackgroundNormal"_L1},
    {QPalette::ToolTipText, "Colors:Tooltip"_L1, "ForegroundNormal"_L1},
};

std::optional<QPalette> paletteOfKde(const QHash<QString, Group>& groups)
{
    const auto window = colorOf(groups.value(u"Colors:Window"_s).value(u"BackgroundNormal"_s));
    if (!window)
        return std::nullopt;
    const auto button = colorOf(groups.value(u"Colors:Button"_s).value(u"BackgroundNormal"_s));
    QPalette palette(button.value_or(*window), *window);
    for (const auto& [role, group, key] : KdeColors)
        if (const auto color = colorOf(groups.value(group).value(key)))
            palette.setColor(role, *color);
    greyDisabledText(palette);
    return palette;
}

// Fonts

/// What a text can be read in; whoever writes another size, or no number, means none.
bool isSize(double points)
{
    constexpr double Largest = 200;
    return points > 0 && points <= Largest;
}

std::optional<QFont> fontOfKde(const QString& description)
{
    QFont font;
    if (description.isEmpty() || !font.fromString(description) || font.family().isEmpty())
        return std::nullopt;
    const bool inPoints = font.pointSizeF() > 0;
    return isSize(inPoints ? font.pointSizeF() : font.pixelSize()) ? std::optional(font) : std::nullopt;
}

// Fonts of GTK

struct StyleWord
{
    QLatin1StringView word;
    QFont::Weight weight;
    QFont::Style style;
};

// A word says the weight or the style; of the other one it says the usual.
constexpr StyleWord StyleWords[] = {
    {"Thin"_L1, QFont::Thin, QFont::StyleNormal},
    {"Ultra-Light"_L1, QFont::ExtraLight, QFont::StyleNormal},
    {"Extra-Light"_L1, QFont::ExtraLight, QFont::StyleNormal},
    {"Light"_L1, QFont::Light, QFont::StyleNormal},
    {"Book"_L1, QFont::Normal, QFont::StyleNormal},
    {"Regular"_L1, QFont::Normal, QFont::StyleNormal},
    {"Normal"_L1, QFont::Normal, QFont::StyleNormal},
    {"Roman"_L1, QFont::Normal, QFont::StyleNormal},
    {"Medium"_L1, QFont::Medium, QFont::StyleNormal},
    {"Semi-Bold"_L1, QFont::DemiBold, QFont::StyleNormal},
    {"Demi-Bold"_L1, QFont::DemiBold, QFont::StyleNormal},
    {"Bold"_L1, QFont::Bold, QFont::StyleNormal},
    {"Ultra-Bold"_L1, QFont::ExtraBold, QFont::StyleNormal},
    {"Extra-Bold"_L1, QFont::ExtraBold, QFont::StyleNormal},
    {"Heavy"_L1, QFont::Black, QFont::StyleNormal},
    {"Black"_L1, QFont::Black, QFont::StyleNormal},
    {"Italic"_L1, QFont::Normal, QFont::StyleItalic},
    {"Oblique"_L1, QFont::Normal, QFont::StyleOblique},
};

const StyleWord* styleWordOf(const QString& word)
{
    const auto* const found =
        std::find_if(std::begin(StyleWords), std::end(StyleWords), [&](const StyleWord& style) {
            return word.compare(style.word, Qt::CaseInsensitive) == 0;
        });
    return found == std::end(StyleWords) ? nullptr : found;
}

} // namespace

std::optional<QFont> fontOfGtk(const QString& description)
{
    auto words = description.split(u' ', Qt::SkipEmptyParts);
    bool isNumber = false;
    const double size = words.isEmpty() ? 0 : words.constLast().toDouble(&isNumber);
    if (isNumber)
        words.removeLast();
    QFont font;
    // The first word belongs to the family, whatever it says.
    while (words.size() > 1) {
        const StyleWord* style = styleWordOf(words.constLast());
        if (!style)
            break;
        if (style->weight != QFont::Normal)
            font.setWeight(style->weight);
        if (style->style != QFont::StyleNormal)
            font.setStyle(style->style);
        words.removeLast();
    }
    const QString family = words.join(u' ').section(u',', 0, 0).trimmed();
    if (family.isEmpty())
        return std::nullopt;
    font.setFamily(family);
    if (isSize(size))
        font.setPointSizeF(size);
    return font;
}

Look lookOfXSettings(const XSettingValues& values)
{
    Look look;
    if (const QString theme = values.value(u"Net/ThemeName"_s).toString(); !theme.isEmpty()) {
        const bool contrast = isForContrast(theme);
        look.paletteStandsIn = !contrast;
        if (isDark(theme))
            look.palette = paletteOf(contrast ? DarkContrast : Dark);
        else
            look.palette = paletteOf(contrast ? Contrast : Light);
    }
    look.font = fontOfGtk(values.value(u"Gtk/FontName"_s).toString());
    look.reducesMotion = values.value(u"Gtk/EnableAnimations"_s, 1).toInt() == 0;
    return look;
}

Look withColorScheme(Look look, ColorScheme scheme)
{
    const bool forContrast = look.palette && !look.paletteStandsIn;
    if (scheme != ColorScheme::NoPreference && !forContrast) {
        look.palette = paletteOf(scheme == ColorScheme::Dark ? Dark : Light);
        look.paletteStandsIn = true;
    }
    return look;
}

Look lookOfKdeGlobals(const QList<QByteArray>& layers)
{
    const auto groups = groupsOf(layers);
    const Group general = groups.value(u"General"_s);
    Look look;
    look.palette = paletteOfKde(groups);
    look.font = fontOfKde(general.value(u"font"_s));
    look.menuFont = fontOfKde(general.value(u"menuFont"_s));
    bool told = false;
    const double duration = groups.value(u"KDE"_s).value(u"AnimationDurationFactor"_s).toDouble(&told);
    look.reducesMotion = told && duration == 0;
    return look;
}

} // namespace tarnwick
