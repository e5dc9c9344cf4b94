// SPDX-License-Identifier: MIT
// Draws the recorder in every state and compares it with the pictures that are kept. With
// TARNWICK_UPDATE_IMAGES set it keeps what it draws instead: scripts/make-recorder-images.
#include "shortcut/ColorMixing.h"
#include "shortcut/RecorderAppearance.h"
#include "tests/unit/shortcut/RecorderScenes.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QDir>
#include <QFontInfo>
#include <QHash>

#include <algorithm>
#include <cstdlib>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

// Fonts and rounding differ a little from machine to machine. A picture is the same when no more than one
// pixel in fifty differs visibly, and all differ by less than two steps of 255 in the mean.
constexpr int VisibleStep = 24;
constexpr double LargestVisibleShare = 0.02;
constexpr double LargestMeanStep = 2.0;

/// The fonts of the pictures: one family that is the same everywhere, in pixels of a 96-dpi screen.
class PictureFonts final : public Fonts
{
public:
    [[nodiscard]] QFont menuBarFontOfSize(double size) const override { return _font(size); }
    [[nodiscard]] QFont menuFontOfSize(double size) const override { return _font(size); }
    [[nodiscard]] QFont systemFontOfSize(double size) const override
    {
        asked.append(size);
        return _font(size);
    }
    [[nodiscard]] double labelFontSize() const override { return 8; }
    [[nodiscard]] double smallSystemFontSize() const override { return 8.5; }
    [[nodiscard]] QFont convertFontToHaveTrait(const QFont& font, Trait /*trait*/) const override
    {
        return font;
    }

    mutable QList<double> asked; ///< look: the sizes of system fonts that were wanted

private:
    static QFont _font(double size)
    {
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(qRound(size * 96 / 72));
        font.setHintingPreference(QFont::PreferNoHinting);
        return font;
    }
};

class RecorderImagesTest : public ShortcutFixture
{
protected:
    static QString path(const QString& name)
    {
        return QDir(QStringLiteral(TARNWICK_TEST_IMAGES)).filePath(name + u".png"_s);
    }

    PictureFonts pictureFonts;
    SharedPorts withPictureFonts{pictureFonts};
};

int step(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

/// Empty when the two look the same.
std::string difference(const QImage& drawn, const QImage& kept)
{
    if (drawn.size() != kept.size())
        return "another size";
    qint64 visible = 0;
    qint64 sum = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const int difference = step(drawn.pixel(x, y), kept.pixel(x, y));
            visible += difference > VisibleStep;
            sum += difference;
        }
    }
    const double pixels = double(drawn.width()) * drawn.height();
    if (double(visible) / pixels <= LargestVisibleShare && double(sum) / pixels <= LargestMeanStep)
        return {};
    return std::to_string(visible) + " pixels differ visibly, the mean step is " +
           std::to_string(double(sum) / pixels);
}

} // namespace

TEST_F(RecorderImagesTest, everyState_looksAsItDid)
{
    const bool update = qEnvironmentVariableIsSet("TARNWICK_UPDATE_IMAGES");
    if (QFontInfo(pictureFonts.systemFontOfSize(8)).family() != u"DejaVu Sans") {
        constexpr const char* Missing = "the font of the pictures, DejaVu Sans, is missing";
        ASSERT_FALSE(qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS")) << Missing;
        GTEST_SKIP() << Missing;
    }
    const auto scenes = recorderScenes();
    for (const RecorderScene& scene : scenes) {
        SCOPED_TRACE(scene.name.toStdString());
        const QImage drawn = scene.draw();
        if (update) {
            EXPECT_TRUE(drawn.save(path(scene.name)));
            continue;
        }
        const QImage kept(path(scene.name));
        ASSERT_FALSE(kept.isNull()) << "run scripts/make-recorder-images and look at the picture";
        EXPECT_EQ(difference(drawn, kept), "");
    }
}

TEST_F(RecorderImagesTest, everyKeptPicture_isOfAState)
{
    QStringList known;
    const auto scenes = recorderScenes();
    for (const RecorderScene& scene : scenes)
        known.append(scene.name + u".png"_s);
    const auto files = QDir(QStringLiteral(TARNWICK_TEST_IMAGES)).entryList({u"*.png"_s}, QDir::Files);
    for (const QString& file : files)
        EXPECT_TRUE(known.contains(file)) << file.toStdString();
}

TEST_F(RecorderImagesTest, statesDoNotLookAlike)
{
    const auto scenes = recorderScenes();
    const auto drawnAs = [&scenes](const QString& name) {
        for (const RecorderScene& scene : scenes) {
            if (scene.name == name)
                return scene.draw();
        }
        ADD_FAILURE() << "no scene " << name.toStdString();
        return QImage();
    };
    for (const auto& style : {u"style0"_s, u"style1"_s}) {
        const QString prefix = u"recorder-%1-light-"_s.arg(style);
        const auto differ = [&](const QString& one, const QString& other) {
            EXPECT_NE(drawnAs(prefix + one + u"@2x"_s), drawnAs(prefix + other + u"@2x"_s))
                << (one + u" and "_s + other).toStdString();
        };
        differ(u"idle"_s, u"focused"_s);
        differ(u"idle"_s, u"disabled"_s);
        differ(u"idle"_s, u"over-remove"_s);
        differ(u"over-remove"_s, u"pressed-remove"_s);
        differ(u"recording"_s, u"recording-modifiers"_s);
        differ(u"recording"_s, u"over-snapback"_s);
        differ(u"over-snapback"_s, u"pressed-snapback"_s);
    }
    EXPECT_NE(drawnAs(u"SRRemoveShortcut"_s), drawnAs(u"SRRemoveShortcutRollover"_s));
    EXPECT_NE(drawnAs(u"SRRemoveShortcutRollover"_s), drawnAs(u"SRRemoveShortcutPressed"_s));
}

TEST_F(RecorderImagesTest, removeBox_isBlackOfTheGivenStrength_underAWhiteCross)
{
    const QList<std::pair<QString, double>> strengths{{u"SRRemoveShortcut"_s, 0.25},
                                                      {u"SRRemoveShortcutRollover"_s, 0.35},
                                                      {u"SRRemoveShortcutPressed"_s, 0.45}};
    const auto scenes = recorderScenes();
    for (const auto& [name, alpha] : strengths) {
        for (const RecorderScene& scene : scenes) {
            if (scene.name != name + u"@3x"_s)
                continue;
            const QImage image = scene.draw();
            const auto at = [&image](double x, double y) { return image.pixelColor(int(x * 3), int(y * 3)); };
            EXPECT_EQ(at(10, 10), QColor(Qt::white)) << "where the strokes cross";
            EXPECT_NEAR(at(10, 5).green(), 0x78 * (1 - alpha), 1.5) << "above the cross";
            EXPECT_EQ(at(3.3, 3.3).green(), 0x78) << "outside the oval";
        }
    }
}

TEST_F(RecorderImagesTest, removeButton_isAsStrongAsTheMouseMakesIt)
{
    const QList<std::pair<QString, double>> strengths{{u"idle"_s, 0.25},
                                                      {u"over-remove"_s, 0.35},
                                                      {u"pressed-remove"_s, 0.45},
                                                      {u"dragged-off-remove"_s, 0.35}};
    const auto scenes = recorderScenes();
    for (const auto& [state, alpha] : strengths) {
        const QString name = u"recorder-style0-light-%1@2x"_s.arg(state);
        const auto scene = std::find_if(scenes.cbegin(), scenes.cend(),
                                        [&name](const RecorderScene& each) { return each.name == name; });
        ASSERT_NE(scene, scenes.cend()) << name.toStdString();
        const QImage image = scene->draw();
        const auto at = [&image](double x, double y) {
            return image.pixelColor(int(x * 2), int(y * 2)).green();
        };
        // The field ends 3 points before the picture does, the button 4 points before the field.
        const double middle = image.width() / 2.0 - 3 - 4 - 7;
        EXPECT_NEAR(at(middle, 10), at(middle - 10, 10) * (1 - alpha), 2) << state.toStdString();
    }
}

TEST_F(RecorderImagesTest, prompts_areInTheSizeOfLabels_combinationsInTheSmallSize)
{
    const QHash<QString, double> sizes{{u"empty"_s, pictureFonts.labelFontSize()},
                                       {u"idle"_s, pictureFonts.smallSystemFontSize()},
                                       {u"recording"_s, pictureFonts.labelFontSize()},
                                       {u"recording-modifiers"_s, pictureFonts.labelFontSize()}};
    const auto scenes = recorderScenes();
    for (const RecorderScene& scene : scenes) {
        const QString state = scene.name.section(u"-light-"_s, 1).section(u'@', 0, 0);
        if (!sizes.contains(state))
            continue;
        pictureFonts.asked.clear();
        (void)scene.draw();
        EXPECT_EQ(pictureFonts.asked, QList<double>{sizes[state]}) << scene.name.toStdString();
    }
}

TEST_F(RecorderImagesTest, recordingLook_runsFromTheShadowedToTheHighlightedColour_bothAtNineTenths)
{
    const QString name = u"recorder-style0-light-recording@2x"_s;
    const auto scenes = recorderScenes();
    const auto scene = std::find_if(scenes.cbegin(), scenes.cend(),
                                    [&name](const RecorderScene& each) { return each.name == name; });
    ASSERT_NE(scene, scenes.cend());
    const QImage image = scene->draw();
    const auto at = [&image](double x, double y) { return image.pixelColor(int(x * 2), int(y * 2)); };
    const double right = image.width() / 2.0 - 3 - RecorderAppearance::FieldInset;
    const double top = 3 + RecorderAppearance::FieldInset;
    const double height = image.height() / 2.0 - 2 * top;

    const QColor ground = at(20, 14);
    const QColor highlight = lightPalette().color(QPalette::Highlight);
    for (const double up : {0.25, 0.5, 0.75}) {
        const QColor drawn = at(right - RecorderAppearance::CapWidth + 2, top + height * (1 - up));
        const QColor over = blended(shadowed(highlight, 0.2), up, highlighted(highlight, 0.2));
        const QColor expected = blended(ground, 0.9, over);
        EXPECT_NEAR(drawn.red(), expected.red(), 4) << up;
        EXPECT_NEAR(drawn.green(), expected.green(), 4) << up;
        EXPECT_NEAR(drawn.blue(), expected.blue(), 4) << up;
    }
}
