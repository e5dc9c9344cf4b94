// SPDX-License-Identifier: MIT
#include "prefs/PreferencesWindowController.h"

#include "app/AppDelegate.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "foundation/WebPages.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "mouse/TWMouseButtonIdentifierTap.h"
#include "prefs/AboutPane.h"
#include "prefs/GeneralOptionsPane.h"
#include "prefs/HotKeyPane.h"
#include "prefs/PaneIcon.h"
#include "prefs/PreferencesToolbar.h"
#include "prefs/PreferencesWindow.h"
#include "prefs/TriggerHintView.h"
#include "shortcut/SRRecorderControl.h"
#include "shortcut/SRSharedImageProvider.h"
#include "tests/fakes/FakeKeyNames.h"
#include "tests/fakes/FakeTriggerAdvice.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QUrl Ours = QUrl::fromLocalFile(u"/opt/Tarnwick"_s);

/// The delegate that opens the maker's page.
class Delegate final : public ApplicationDelegate
{
public:
    QStringList performed;
    [[nodiscard]] bool respondsTo(const QString& action) const override
    {
        return action == u"openQuorlaneWebpage:";
    }
    void perform(const QString& action, ActionSender* /*sender*/) override { performed.append(action); }
};

class PreferencesWindowControllerTest : public ShortcutFixture
{
protected:
    PreferencesWindowControllerTest()
    {
        application.setDelegate(&delegate);
        AppDelegate::setupPreferenceDefaults();
        mouse_button_identifier::eventTap = 0;
        mouse_button_identifier::mouseCode = 0;
    }
    PreferencesWindowController& made()
    {
        if (!controller)
            controller = std::make_unique<PreferencesWindowController>();
        return *controller;
    }
    PreferencesWindowController& shown()
    {
        made().displayWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&made().window()));
        return made();
    }
    const ToolbarItem& item(const QString& identifier)
    {
        for (const auto& each : made().window().toolbar().items()) {
            if (each->identifier == identifier)
                return *each;
        }
        ADD_FAILURE() << identifier.toStdString();
        return *made().window().toolbar().items().front();
    }
    QWidget* shownPane()
    {
        const auto panes =
            made().window().contentView().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_EQ(panes.size(), 1);
        return panes.value(0);
    }
    QCheckBox& checkBox(const QString& key)
    {
        auto* box = made().window().findChild<QCheckBox*>(key);
        EXPECT_NE(box, nullptr) << key.toStdString();
        return *box;
    }
    static void switchByScreenReader(QCheckBox& box)
    {
        QAccessible::queryAccessibleInterface(&box)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    QList<QUrl> urls()
    {
        QList<QUrl> found;
        const auto list = LoginItems::shared().createSessionLoginItems();
        if (!list)
            return found;
        const auto items = list->copySnapshot();
        for (const auto& each : items)
            found.append(list->resolve(*each, 3).value_or(QUrl()));
        return found;
    }
    static QVariant setting(const QString& key)
    {
        return UserDefaults::standardUserDefaults().objectForKey(key);
    }
    /// How far from the side where its window begins the text of a label does, in pixels.
    static int leadingSpace(QLabel& label)
    {
        const QImage drawn = label.grab().toImage();
        const QRgb ground = drawn.pixel(0, 0);
        const auto isEmpty = [&](int x) {
            for (int y = 0; y < drawn.height(); ++y) {
                if (drawn.pixel(x, y) != ground)
                    return false;
            }
            return true;
        };
        int space = 0;
        while (space < drawn.width() && isEmpty(label.isRightToLeft() ? drawn.width() - 1 - space : space))
            ++space;
        return space;
    }
    void record(quint16 code, quint64 flags, const QString& character)
    {
        Event space;
        space.type = Event::Type::KeyDown;
        space.keyCode = 49;
        space.characters = u" "_s;
        made().shortcutRecorder().keyDown(space);
        clock.advance(1);
        Event key = space;
        key.keyCode = code;
        key.modifierFlags = flags;
        key.characters = character;
        key.charactersIgnoringModifiers = character;
        made().shortcutRecorder().keyDown(key);
        clock.advance(1);
    }

    Delegate delegate;
    std::unique_ptr<PreferencesWindowController> controller;
};

} // namespace

// The window

TEST_F(PreferencesWindowControllerTest, newController_hasAHiddenWindow_onEveryWorkspace)
{
    EXPECT_FALSE(made().window().isVisible());
    EXPECT_EQ(workspace.collectionBehaviors, (QList<std::pair<QWidget*, quint32>>{{&made().window(), 1}}));
    EXPECT_TRUE(taps.taps.isEmpty());
    EXPECT_TRUE(store.written.isEmpty());
    EXPECT_EQ(made().window().windowTitle(), u"Hot Key"_s);
}

TEST_F(PreferencesWindowControllerTest, displayingIt_showsTheHotKeyPane_withTheSettings)
{
    store.values = {{TWMouseButtonKey, 31}, {TWTriggerCharacterKey, 7}, {TWTriggerModifiersKey, 0x140000}};
    made().displayWindow();
    EXPECT_TRUE(made().window().isVisible());
    EXPECT_EQ(shownPane(), &made().window().hotKeyView());
    EXPECT_EQ(made().window().toolbar().selectedItemIdentifier(), u"hotKey"_s);
    EXPECT_EQ(made().mouseButtonIdentifier().buttonNumber(), 31U);
    EXPECT_EQ(taps.taps.size(), 1);
    EXPECT_EQ(made().shortcutRecorder().keyCombo(), (KeyCombo{0x140000, 7}));
    EXPECT_EQ(application.activations, QList<bool>{true});
}

TEST_F(PreferencesWindowControllerTest, displayingItAgain_comesBackToTheHotKeyPane_andLeavesTheTitle)
{
    shown().selectPreferencesForItemAnimate(item(u"general"_s), false);
    made().window().toolbar().setSelectedItemIdentifier(u"general"_s);
    EXPECT_EQ(made().window().windowTitle(), u"General"_s);
    made().displayWindow();
    EXPECT_EQ(shownPane(), &made().window().hotKeyView());
    EXPECT_EQ(made().window().toolbar().selectedItemIdentifier(), u"hotKey"_s);
    EXPECT_EQ(made().window().windowTitle(), u"General"_s);
    EXPECT_EQ(taps.taps.size(), 2) << "each showing makes a tap";
}

TEST_F(PreferencesWindowControllerTest, closingIt_takesTheLatestTapAway)
{
    shown();
    made().fadeOutWindow(nullptr);
    EXPECT_FALSE(made().window().isVisible());
    EXPECT_TRUE(taps.taps.isEmpty());
    made().displayWindow();
    made().displayWindow();
    made().window().close();
    EXPECT_EQ(taps.taps.size(), 1) << "shown twice, closed once";
}

TEST_F(PreferencesWindowControllerTest, badSettings_areShownWithoutHarm)
{
    constexpr quint64 largest = std::numeric_limits<quint64>::max();
    store.values = {
        {TWMouseButtonKey, largest}, {TWTriggerCharacterKey, largest}, {TWTriggerModifiersKey, largest}};
    shown();
    EXPECT_EQ(made().mouseButtonIdentifier().text(), u"Button Number: -1"_s);
    EXPECT_TRUE(made().shortcutRecorder().cell().isEmpty());
    EXPECT_EQ(setting(TWTriggerCharacterKey).toULongLong(), largest) << "no key is still no key";
    store.values[TWMouseButtonKey] = 0;
    store.values[TWTriggerCharacterKey] = u"garbage"_s;
    store.values[TWTriggerModifiersKey] = QVariantList{1};
    made().displayWindow();
    EXPECT_EQ(made().mouseButtonIdentifier().text(), u"Button Number: 0"_s);
    EXPECT_EQ(made().shortcutRecorder().keyCombo(), (KeyCombo{0x80000, 6})) << "the defaults";
}

// Panes

TEST_F(PreferencesWindowControllerTest, toolbar_hasTheHotKeyFirst_andEveryItemCanBeSelected)
{
    QStringList labels;
    QList<int> tags;
    for (const auto& each : made().window().toolbar().items()) {
        labels.append(each->plainLabel());
        tags.append(each->tag);
        EXPECT_FALSE(each->icon.isNull());
    }
    EXPECT_EQ(labels, (QStringList{u"Hot Key"_s, u"General"_s, u"About"_s}));
    EXPECT_EQ(tags, (QList<int>{200, 100, 400}));
    EXPECT_EQ(made().toolbarSelectableItemIdentifiers(made().window().toolbar()),
              (QStringList{u"hotKey"_s, u"general"_s, u"about"_s}));
}

TEST_F(PreferencesWindowControllerTest, items_choosePanesByTheirTags)
{
    const QList<std::pair<int, QWidget*>> rows{{100, &made().window().generalOptionsView()},
                                               {200, &made().window().hotKeyView()},
                                               {400, &made().window().aboutView()},
                                               {300, &made().window().hotKeyView()},
                                               {0, &made().window().hotKeyView()}};
    for (const auto& [tag, pane] : rows) {
        ToolbarItem any(u"any"_s, u"Any &Label"_s, tag, QIcon());
        made().changePreferencePane(&any);
        EXPECT_EQ(shownPane(), pane) << tag;
        EXPECT_EQ(made().window().windowTitle(), u"Any Label"_s);
    }
    made().changePreferencePane(nullptr);
    EXPECT_EQ(shownPane(), &made().window().hotKeyView()) << "nobody chose anything";
}

TEST_F(PreferencesWindowControllerTest, clickOnAnItem_switchesThePane_andSelectsTheItem)
{
    shown();
    QTest::mouseClick(made().window().toolbar().button(u"about"_s), Qt::LeftButton);
    EXPECT_EQ(shownPane(), &made().window().aboutView());
    EXPECT_EQ(made().window().toolbar().selectedItemIdentifier(), u"about"_s);
    EXPECT_EQ(made().window().windowTitle(), u"About"_s);
}

TEST_F(PreferencesWindowControllerTest, hotKeyItem_reloadsTheRecorder_alsoWhenItIsShown)
{
    shown();
    store.values[TWTriggerCharacterKey] = 8;
    made().selectPreferencesForItemAnimate(item(u"about"_s), false);
    EXPECT_EQ(made().shortcutRecorder().keyCombo().code, 6);
    made().selectPreferencesForItemAnimate(item(u"hotKey"_s), false);
    EXPECT_EQ(made().shortcutRecorder().keyCombo().code, 8);
    store.values[TWTriggerCharacterKey] = 9;
    made().selectPreferencesForItemAnimate(item(u"hotKey"_s), false);
    EXPECT_EQ(made().shortcutRecorder().keyCombo().code, 9);
    ToolbarItem other(u"other"_s, u"Other"_s, 7, QIcon());
    store.values[TWTriggerCharacterKey] = 10;
    made().selectPreferencesForItemAnimate(other, false);
    EXPECT_EQ(made().shortcutRecorder().keyCombo().code, 9) << "only the hot-key item does";
}

TEST_F(PreferencesWindowControllerTest, higherPane_growsTheWindowDownward_keepingTopAndWidth)
{
    shown();
    QWidget low;
    QWidget high;
    low.resize(700, 200);
    high.resize(30, 300);
    low.move(3, 4);
    made().selectPreferencesAnimate(low, false);
    const QRect before = made().window().geometry();
    const int width = made().window().contentView().width();
    EXPECT_EQ(made().window().contentView().height(), 200);
    EXPECT_EQ(low.geometry(), QRect(3, 4, width, 200)) << "as wide as the content, where it stood";
    made().selectPreferencesAnimate(high, false);
    const QRect after = made().window().geometry();
    EXPECT_EQ(after.topLeft(), before.topLeft());
    EXPECT_EQ(after.width(), before.width());
    EXPECT_EQ(after.height(), before.height() + 100);
    EXPECT_EQ(high.size(), QSize(width, 300));
    EXPECT_FALSE(low.isVisible());
    made().selectPreferencesAnimate(made().window().hotKeyView(), false);
    low.setParent(nullptr);
    high.setParent(nullptr);
}

TEST_F(PreferencesWindowControllerTest, nothingMovesForThoseWhoDoNotWantIt)
{
    shown();
    const SRRecorderControl& recorder = *made().window().hotKeyView().shortcutRecorder();
    QWidget high;
    high.resize(30, made().window().contentView().height() + 120);
    const int before = made().window().height();
    EXPECT_TRUE(recorder.animates());
    workspace.reduceMotion = true;
    made().selectPreferencesAnimate(high, true);
    EXPECT_EQ(made().window().height(), before + 120);
    EXPECT_FALSE(recorder.animates());
    workspace.reduceMotion = false;
    made().selectPreferencesAnimate(made().window().hotKeyView(), true);
    EXPECT_EQ(made().window().height(), before + 120) << "it moves again";
    EXPECT_TRUE(recorder.animates());
    high.setParent(nullptr);
}

TEST_F(PreferencesWindowControllerTest, everythingGrowsWithTheFontOfTheDesktop)
{
    shown();
    const PreferencesWindow& window = made().window();
    const QFont usual = QApplication::font();
    const auto sizesOfTexts = [&window] {
        QList<double> sizes;
        for (const QLabel* label : window.findChildren<QLabel*>())
            sizes.append(QFontInfo(label->font()).pointSizeF());
        return sizes;
    };
    const QSize before = window.size();
    const QList<double> small = sizesOfTexts();
    ASSERT_FALSE(small.isEmpty());
    QFont large = usual;
    large.setPointSizeF(QFontInfo(usual).pointSizeF() * 2);
    QApplication::setFont(large);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.height() > before.height(); }));
    const QList<double> grown = sizesOfTexts();
    for (qsizetype i = 0; i < small.size(); ++i)
        EXPECT_NEAR(grown.at(i), 2 * small.at(i), 1.0) << i;
    EXPECT_EQ(window.height(), window.toolbar().sizeHint().height() + window.hotKeyView().height());
    EXPECT_EQ(window.hotKeyView().width(), window.width());
    QApplication::setFont(usual);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == before; }));
}

TEST_F(PreferencesWindowControllerTest, rightToLeft_everyTextBeginsAtTheRight)
{
    shown();
    PreferencesWindow& window = made().window();
    window.setFixedWidth(2 * window.width()); // no text fills its line
    const auto spaces = [&] {
        QList<int> found;
        for (QWidget* pane : std::initializer_list<QWidget*>{
                 &window.hotKeyView(), &window.generalOptionsView(), &window.aboutView()}) {
            made().selectPreferencesAnimate(*pane, false);
            for (QLabel* label : pane->findChildren<QLabel*>())
                found.append(leadingSpace(*label));
        }
        return found;
    };
    const QList<int> usual = spaces();
    ASSERT_GE(usual.size(), 9);
    constexpr int differenceOfGlyphs = 4;
    for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        window.setLayoutDirection(direction);
        const QList<int> turned = spaces();
        ASSERT_EQ(turned.size(), usual.size());
        for (qsizetype i = 0; i < usual.size(); ++i)
            EXPECT_NEAR(turned.at(i), usual.at(i), differenceOfGlyphs) << direction << ", text " << i;
    }
}

TEST_F(PreferencesWindowControllerTest, rightToLeft_titlesStandAsFarFromTheirFields)
{
    shown();
    const HotKeyPane& pane = made().window().hotKeyView();
    const auto gapsAndTitles = [&pane] {
        QList<std::pair<int, bool>> found;
        for (const QLabel* title : pane.findChildren<QLabel*>()) {
            if (const QWidget* field = title->buddy()) {
                const QRect text = title->contentsRect().translated(title->pos());
                const bool titleIsLeft = text.right() < field->x();
                found.append({titleIsLeft ? field->x() - text.right() - 1
                                          : text.left() - field->geometry().right() - 1,
                              titleIsLeft});
            }
        }
        return found;
    };
    EXPECT_EQ(gapsAndTitles(), (QList<std::pair<int, bool>>{{6, true}, {6, true}}));
    made().window().setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(gapsAndTitles(), (QList<std::pair<int, bool>>{{6, false}, {6, false}}));
}

TEST_F(PreferencesWindowControllerTest, animatedSwitch_movesTheBottomEdgeStepByStep)
{
    shown();
    QWidget high;
    high.resize(30, made().window().contentView().height() + 120);
    const QRect before = made().window().geometry();
    made().selectPreferencesAnimate(high, true);
    EXPECT_EQ(made().window().geometry(), before);
    int last = before.height();
    int steps = 0;
    while (clock.pending() > 0 && steps < 100) {
        clock.advance(1.0 / 60 + 0.0001);
        ++steps;
        EXPECT_EQ(made().window().geometry().topLeft(), before.topLeft());
        EXPECT_GE(made().window().height(), last);
        last = made().window().height();
    }
    EXPECT_GT(steps, 5);
    EXPECT_EQ(made().window().height(), before.height() + 120);

    // Another switch on the way goes on from where the window is.
    made().selectPreferencesAnimate(made().window().aboutView(), true);
    clock.advance(0.1);
    made().selectPreferencesAnimate(made().window().hotKeyView(), true);
    clock.advance(2);
    EXPECT_EQ(made().window().geometry(), before);
    high.setParent(nullptr);
}

// The hot key

TEST_F(PreferencesWindowControllerTest, recordedHotKey_isStored_theTextLast)
{
    shown();
    store.written.clear();
    record(7, ControlKeyMask | CommandKeyMask, u"x"_s);
    EXPECT_EQ(store.written, (QStringList{TWTriggerModifiersKey, TWTriggerCharacterKey, TWTriggerKey}));
    EXPECT_EQ(setting(TWTriggerModifiersKey), QVariant(quint64(0x140000)));
    EXPECT_EQ(setting(TWTriggerCharacterKey), QVariant(quint64(7)));
    EXPECT_EQ(setting(TWTriggerKey), u"\u2303\u2318X"_s);
    EXPECT_EQ(made().shortcutRecorderValue(),
              (QVariantMap{{u"keyCode"_s, quint64(7)}, {u"modifierFlags"_s, quint64(0x140000)}}));
}

TEST_F(PreferencesWindowControllerTest, recordedHotKey_isStoredAsGlyphs_whateverTheDesktopSays)
{
    FakeKeyNames names;
    const SharedPorts shared(names);
    shown();
    record(7, ControlKeyMask | CommandKeyMask, u"x"_s);
    EXPECT_EQ(setting(TWTriggerKey), u"\u2303\u2318X"_s);
}

TEST_F(PreferencesWindowControllerTest, longestHotKey_fitsTheField)
{
    FakeKeyNames names;
    names.keys[121] = u"one page further down the document"_s;
    const SharedPorts shared(names);
    shown();
    const SRRecorderControl& recorder = *made().window().hotKeyView().shortcutRecorder();
    const QString text = u"Strg+Alt+Umschalt+Super+"_s + names.keys[121];
    const double remove =
        recorder.width() -
        SRSharedImageProvider::supportingImageWithName(u"SRRemoveShortcut"_s)->size().width() - 4;
    const QFontMetricsF metrics(fonts.systemFontOfSize(fonts.smallSystemFontSize()));
    EXPECT_LT(metrics.horizontalAdvance(text), remove - 2 * 6);
    EXPECT_EQ(made().window().hotKeyView().mouseButtonIdentifier()->width(), recorder.width());
    EXPECT_GE(made().window().contentView().width(), recorder.geometry().right());
}

TEST_F(PreferencesWindowControllerTest, storedTexts_areSeenByObservers_afterTheNumbers)
{
    shown();
    quint64 codeAtText = 0;
    const auto observer = UserDefaultsController::sharedUserDefaultsController().addObserverForKeyPath(
        u"values.NewTrigger"_s,
        [&codeAtText](const QString&) { codeAtText = setting(TWTriggerCharacterKey).toULongLong(); });
    record(7, CommandKeyMask, u"x"_s);
    EXPECT_EQ(codeAtText, 7U);
}

TEST_F(PreferencesWindowControllerTest, clearedHotKey_isStoredAsNoKey_withoutAText)
{
    shown();
    made().shortcutRecorder().setKeyCombo({0, -1});
    EXPECT_EQ(setting(TWTriggerCharacterKey).toULongLong(), std::numeric_limits<quint64>::max());
    EXPECT_EQ(setting(TWTriggerModifiersKey).toULongLong(), 0U);
    EXPECT_FALSE(store.values.contains(TWTriggerKey)) << "writing nothing removes the key";
    made().displayWindow();
    EXPECT_TRUE(made().shortcutRecorder().cell().isEmpty()) << "after a restart as well";
}

TEST_F(PreferencesWindowControllerTest, windowThatIsMinimised_comesBackWhenItIsAskedFor)
{
    shown();
    made().window().showMinimized();
    made().displayWindow();
    EXPECT_TRUE(made().window().isVisible());
    EXPECT_FALSE(made().window().isMinimized());
}

TEST_F(PreferencesWindowControllerTest, noCombinationIsReserved)
{
    std::optional<QString> reason;
    EXPECT_FALSE(
        made().shortcutRecorderIsKeyCodeAndFlagsTakenReason(made().shortcutRecorder(), 6, 0x80000, reason));
    EXPECT_FALSE(reason);
}

TEST_F(PreferencesWindowControllerTest, whileRecording_theDesktopsShortcutsAreOff_andClosingEndsThat)
{
    shown();
    Event space;
    space.type = Event::Type::KeyDown;
    space.characters = u" "_s;
    made().shortcutRecorder().setFocus();
    made().shortcutRecorder().keyDown(space);
    clock.advance(1);
    EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
    made().window().close();
    clock.advance(1);
    EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());

    made().displayWindow();
    made().shortcutRecorder().setFocus();
    made().shortcutRecorder().keyDown(space);
    clock.advance(1);
    EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
    made().selectPreferencesForItemAnimate(item(u"general"_s), false);
    clock.advance(1);
    EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty()) << "another pane";
}

// The mouse button

TEST_F(PreferencesWindowControllerTest, learnedMouseButton_isStored)
{
    store.values[TWMouseButtonKey] = 3;
    shown();
    taps.send(25);
    QTest::mouseClick(&made().mouseButtonIdentifier(), Qt::MiddleButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(setting(TWMouseButtonKey), QVariant(quint64(25)));
    EXPECT_EQ(made().mouseButtonIdentifier().text(), u"Button Number: 25"_s);
    made().writeNewMouseButton(0);
    EXPECT_EQ(setting(TWMouseButtonKey), QVariant(quint64(0)));
    EXPECT_EQ(made().mouseButtonIdentifier().buttonNumber(), 0U) << "the control follows its setting";
    made().mouseButtonChanged(nullptr);
    EXPECT_EQ(setting(TWMouseButtonKey), QVariant(quint64(0)));
}

// Start at login

TEST_F(PreferencesWindowControllerTest, startAtLogin_followsTheCheckBox)
{
    shown().selectPreferencesForItemAnimate(item(u"general"_s), false);
    QCheckBox& box = made().launchCheckBox();
    EXPECT_FALSE(box.isChecked());
    box.click();
    EXPECT_TRUE(setting(TWLaunchOnLoginKey).toBool());
    EXPECT_EQ(urls(), QList<QUrl>{Ours});
    box.click();
    EXPECT_FALSE(setting(TWLaunchOnLoginKey).toBool());
    EXPECT_TRUE(urls().isEmpty());
}

TEST_F(PreferencesWindowControllerTest, startAtLogin_withoutALoginItemsList_isStillStored)
{
    loginItems.available = false;
    made().launchCheckBox().setChecked(true);
    made().startAtLogin(nullptr);
    EXPECT_TRUE(setting(TWLaunchOnLoginKey).toBool());
}

TEST_F(PreferencesWindowControllerTest, appURL_isTheFileUrlOfTheBundle)
{
    EXPECT_EQ(PreferencesWindowController::appURL(), Ours);
}

// Bound controls

TEST_F(PreferencesWindowControllerTest, checkBoxes_showAndStoreTheirSettings)
{
    workspace.systemMenu = true;
    const QStringList keys{TWEnableHotKeyKey,       TWEnableMouseButtonKey, TWLaunchOnLoginKey,
                           TWShowStatusBarIconKey,  TWShowAppleMenuKey,     TWShowApplicationMenuKey,
                           TWShowKeyEquivalentsKey, TWFoldAlternateKey};
    for (const QString& key : keys) {
        SCOPED_TRACE(key.toStdString());
        QCheckBox& box = checkBox(key);
        const bool initially = setting(key).toBool();
        EXPECT_EQ(box.isChecked(), initially);
        box.click();
        EXPECT_EQ(setting(key), QVariant(!initially));
        UserDefaults::standardUserDefaults().setBoolForKey(initially, key);
        EXPECT_EQ(box.isChecked(), initially) << "a change from elsewhere";
    }
}

TEST_F(PreferencesWindowControllerTest, checkBoxes_storeWhatAScreenReaderSwitches)
{
    switchByScreenReader(checkBox(TWShowStatusBarIconKey));
    EXPECT_FALSE(setting(TWShowStatusBarIconKey).toBool());
    switchByScreenReader(made().launchCheckBox());
    EXPECT_TRUE(setting(TWLaunchOnLoginKey).toBool());
    EXPECT_EQ(urls(), QList<QUrl>{Ours});
}

TEST_F(PreferencesWindowControllerTest, controlsThatNeedASystemMenu_areThereOnlyWhereThereIsSuchAMenu)
{
    for (const QString& key : {TWShowAppleMenuKey, TWShowApplicationMenuKey, TWFoldAlternateKey}) {
        EXPECT_EQ(made().window().findChild<QCheckBox*>(key), nullptr) << key.toStdString();
        EXPECT_TRUE(setting(key).toBool()) << "the setting stays";
    }
}

TEST_F(PreferencesWindowControllerTest, fontSize_isANumber_thatStaysWhenItIsOutOfRange)
{
    auto* size = made().window().findChild<QSpinBox*>();
    ASSERT_NE(size, nullptr);
    EXPECT_EQ(size->value(), 11);
    size->setValue(14);
    EXPECT_EQ(setting(TWFontSizeSmallKey), QVariant(14));
    UserDefaults::standardUserDefaults().setObjectForKey(-3, TWFontSizeSmallKey);
    EXPECT_EQ(size->value(), 0);
    EXPECT_EQ(setting(TWFontSizeSmallKey), QVariant(-3));
}

TEST_F(PreferencesWindowControllerTest, controlsOfAClosedController_followNothing)
{
    made();
    controller.reset();
    UserDefaults::standardUserDefaults().setBoolForKey(false, TWEnableHotKeyKey);
    EXPECT_FALSE(setting(TWEnableHotKeyKey).toBool());
}

// Reset

TEST_F(PreferencesWindowControllerTest, reset_givesExactlyTheDefaults)
{
    shown();
    record(7, ControlKeyMask | CommandKeyMask, u"x"_s);
    made().launchCheckBox().click();
    const DefaultsTable table = UserDefaultsController::sharedUserDefaultsController().initialValues();
    for (const auto& [key, value] : table) {
        if (value.typeId() == QMetaType::Bool)
            UserDefaults::standardUserDefaults().setBoolForKey(!value.toBool(), key);
    }
    made().writeNewMouseButton(77);
    store.values[u"FirstRun"_s] = true;
    EXPECT_EQ(urls(), QList<QUrl>{Ours});

    made().resetButton(nullptr);
    for (const auto& [key, value] : table)
        EXPECT_EQ(setting(key), value) << key.toStdString();
    EXPECT_EQ(setting(TWTriggerKey), u"\u02C4Z"_s) << "not the recorder's own text";
    EXPECT_EQ(made().shortcutRecorder().keyCombo(), (KeyCombo{0x80000, 6}));
    EXPECT_EQ(made().mouseButtonIdentifier().buttonNumber(), 25U);
    EXPECT_FALSE(made().launchCheckBox().isChecked());
    EXPECT_TRUE(urls().isEmpty());
    EXPECT_TRUE(setting(u"FirstRun"_s).toBool()) << "no setting of the table";
}

TEST_F(PreferencesWindowControllerTest, reset_tellsOfTheHotKey_afterEveryRowIsStored)
{
    shown();
    record(7, ControlKeyMask, u"x"_s);
    QList<quint64> codes;
    const auto observer = UserDefaultsController::sharedUserDefaultsController().addObserverForKeyPath(
        u"values.NewTrigger"_s,
        [&codes](const QString&) { codes.append(setting(TWTriggerCharacterKey).toULongLong()); });
    made().resetButton(nullptr);
    EXPECT_EQ(codes, QList<quint64>{6});
    record(8, ControlKeyMask, u"c"_s);
    EXPECT_EQ(setting(TWTriggerCharacterKey).toULongLong(), 8U) << "what is recorded later is stored again";
}

TEST_F(PreferencesWindowControllerTest, reset_removesALoginItem_whateverTheSettingWas)
{
    PreferencesWindowController::setStartAtLoginEnabled(Ours, true);
    made().resetButton(nullptr);
    EXPECT_TRUE(urls().isEmpty());
}

// The accessibility alert

TEST_F(PreferencesWindowControllerTest, missingAccess_showsASheet_atEachShowing)
{
    accessibility.enabled = false;
    accessibility.trusted = false;
    made().displayWindow();
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.sheetWindow(), &made().window());
    EXPECT_EQ(alerts.shown[0].style, Alert::Style::Warning);
    EXPECT_EQ(alerts.shown[0].messageText, u"Tarnwick requires that the Accessibility API be enabled."_s);
    EXPECT_EQ(alerts.shown[0].informativeText,
              u"Would you like to launch System Preferences so that you can turn on \"Enable access for "
              "assistive devices\"?"_s);
    EXPECT_EQ(alerts.shown[0].buttonTitles,
              (QStringList{u"Open System Preferences"_s, u"Continue Anyway"_s, u"Quit Tarnwick"_s}));
    EXPECT_EQ(application.activations.size(), 1) << "nothing waits for the answer";
    made().displayWindow();
    EXPECT_EQ(alerts.shown.size(), 2);
}

TEST_F(PreferencesWindowControllerTest, access_inEitherWay_isEnough)
{
    accessibility.enabled = true;
    accessibility.trusted = false;
    made().displayWindow();
    accessibility.enabled = false;
    accessibility.trusted = true;
    made().displayWindow();
    EXPECT_TRUE(alerts.shown.isEmpty());
}

TEST_F(PreferencesWindowControllerTest, answerToTheSheet)
{
    struct Row
    {
        const char* name;
        int code;
        QStringList folders;
        QList<QUrl> opened;
        int terminations;
    };
    const QString panes = u"/System/Panes"_s;
    const QUrl pane = QUrl::fromLocalFile(u"/System/Panes/UniversalAccessPref.prefPane"_s);
    const QList<Row> rows{
        {"open the settings", 1000, {panes}, {pane}, 0},
        {"open them, without a folder", 1000, {}, {}, 0},
        {"open them, with two folders", 1000, {panes, panes}, {}, 0},
        {"continue", 1001, {panes}, {}, 0},
        {"quit", 1002, {panes}, {}, 1},
    };
    accessibility.enabled = false;
    accessibility.trusted = false;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        workspace.preferencePanes = row.folders;
        workspace.opened.clear();
        application.terminateSenders.clear();
        made().displayWindow();
        EXPECT_TRUE(alerts.endSheet(row.code));
        EXPECT_EQ(workspace.opened, row.opened);
        EXPECT_EQ(application.terminateSenders.size(), row.terminations);
    }
}

TEST_F(PreferencesWindowControllerTest, whatASessionHides_isToldInASheet_once)
{
    made().displayWindow();
    EXPECT_TRUE(alerts.shown.isEmpty()) << "nothing is hidden";
    workspace.popUpCommand = u"open the menu"_s;
    accessibility.enabled = false;
    accessibility.trusted = false;
    made().displayWindow();
    ASSERT_EQ(alerts.shown.size(), 1) << "one sheet at a time";
    accessibility.enabled = true;
    made().displayWindow();
    ASSERT_EQ(alerts.shown.size(), 2);
    EXPECT_EQ(alerts.sheetWindow(), &made().window());
    EXPECT_EQ(alerts.shown[1].style, Alert::Style::Informational);
    EXPECT_TRUE(alerts.shown[1].informativeText.contains(u"\nopen the menu\n"_s));
    EXPECT_EQ(alerts.shown[1].buttonTitles.size(), 1);
    made().displayWindow();
    EXPECT_EQ(alerts.shown.size(), 2);
    made().resetButton(nullptr);
    made().displayWindow();
    EXPECT_EQ(alerts.shown.size(), 2) << "a reset does not ask for it";
}

TEST_F(PreferencesWindowControllerTest, theSheetAboutWhatIsMissing_saysWhetherAnotherBuildHasIt)
{
    for (const bool anotherHas : {true, false}) {
        UserDefaults::standardUserDefaults().setBoolForKey(false, TWToldWhatIsMissingKey);
        workspace.popUpCommand = u"open the menu"_s;
        workspace.otherBuildSeesMore = anotherHas;
        alerts.shown.clear();
        made().displayWindow();
        ASSERT_EQ(alerts.shown.size(), 1);
        const QString text = alerts.shown[0].informativeText;
        EXPECT_EQ(text.contains(u"built without LayerShellQt"_s), anotherHas);
        EXPECT_EQ(text.contains(u"this compositor lets no program"_s), !anotherHas);
    }
}

// Commands

TEST_F(PreferencesWindowControllerTest, quit_terminatesOnItsOwnBehalf)
{
    made().window().findChild<QPushButton*>(u"quitFennrick:"_s)->click();
    EXPECT_EQ(application.terminateSenders, (QList<ActionSender*>{&made()}));
}

TEST_F(PreferencesWindowControllerTest, links_openTheirPages)
{
    made().openOstravaneWebpage(nullptr);
    EXPECT_EQ(workspace.opened, QList<QUrl>{ostravaneWebpage()});
    const auto buttons = made().window().aboutView().findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    buttons[0]->click();
    EXPECT_EQ(delegate.performed, QStringList{u"openQuorlaneWebpage:"_s});
    buttons[1]->click();
    EXPECT_EQ(workspace.opened, (QList<QUrl>{ostravaneWebpage(), ostravaneWebpage()}));
}

TEST_F(PreferencesWindowControllerTest, actions_areThoseOfTheInterface)
{
    for (const QString& action :
         {u"changePreferencePane:"_s, u"mouseButtonChanged:"_s, u"startAtLogin:"_s, u"resetButton:"_s,
          u"fadeOutWindow:"_s, u"quitFennrick:"_s, u"openOstravaneWebpage:"_s})
        EXPECT_TRUE(made().respondsTo(action)) << action.toStdString();
    EXPECT_FALSE(made().respondsTo(u"displayWindow"_s));
    made().perform(u"nothing:"_s, nullptr);
    shown();
    made().perform(u"fadeOutWindow:"_s, nullptr);
    EXPECT_FALSE(made().window().isVisible());
}

// The keyboard and assistive programs

namespace {

QList<QWidget*> tabChain(const QWidget& window)
{
    QList<QWidget*> chain;
    for (QWidget* each = window.nextInFocusChain(); each != &window; each = each->nextInFocusChain()) {
        const bool partOfASpinBox = qobject_cast<QSpinBox*>(each->parentWidget()) != nullptr;
        if ((each->focusPolicy() & Qt::TabFocus) && each->isVisible() && each->isEnabled() && !partOfASpinBox)
            chain.append(each);
    }
    return chain;
}

QString accessibleName(QWidget* widget)
{
    auto* accessible = QAccessible::queryAccessibleInterface(widget);
    return accessible ? accessible->text(QAccessible::Name) : QString();
}

/// Each letter that Alt and a key reaches.
QStringList mnemonics(const QWidget& window)
{
    QStringList found;
    const auto labels = window.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->isVisible() && label->buddy())
            found.append(QKeySequence::mnemonic(label->text()).toString());
    }
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        if (button->isVisible() && !button->text().isEmpty())
            found.append(QKeySequence::mnemonic(button->text()).toString());
    }
    return found;
}

} // namespace

TEST_F(PreferencesWindowControllerTest, everyControl_isReachedWithTab_hasAName_andAMnemonicOfItsOwn)
{
    workspace.systemMenu = true;
    const QList<std::pair<QString, int>> rows{{u"hotKey"_s, 4}, {u"general"_s, 9}, {u"about"_s, 2}};
    shown();
    for (const auto& [identifier, controls] : rows) {
        SCOPED_TRACE(identifier.toStdString());
        made().window().toolbar().setSelectedItemIdentifier(identifier);
        made().selectPreferencesForItemAnimate(item(identifier), false);
        const QList<QWidget*> chain = tabChain(made().window());
        QList<QWidget*> inPane;
        for (QWidget* each : chain) {
            EXPECT_FALSE(accessibleName(each).isEmpty()) << each->metaObject()->className();
            if (made().window().contentView().isAncestorOf(each) && !each->inherits("QLabel"))
                inPane.append(each);
        }
        EXPECT_EQ(inPane.size(), controls);
        for (qsizetype i = 1; i < inPane.size(); ++i) {
            const auto place = [this](const QWidget* each) {
                const QPoint point = each->mapTo(&made().window(), QPoint(0, 0));
                return std::pair(point.y(), point.x());
            };
            EXPECT_LT(place(inPane[i - 1]), place(inPane[i])) << "from top to bottom";
        }
        QStringList letters = mnemonics(made().window());
        EXPECT_FALSE(letters.contains(QString())) << "a control without a mnemonic";
        const auto all = letters.size();
        letters.removeDuplicates();
        EXPECT_EQ(letters.size(), all) << letters.join(u' ').toStdString();
    }
}

TEST_F(PreferencesWindowControllerTest, screenReader_readsNameRoleAndState)
{
    shown();
    const auto read = [](QWidget* widget) { return QAccessible::queryAccessibleInterface(widget); };
    EXPECT_EQ(accessibleName(&made().shortcutRecorder()), u"Shortcut, Option Z, press Space to record"_s);
    EXPECT_EQ(accessibleName(&made().mouseButtonIdentifier()), u"Mouse button, Button Number: 25"_s);
    auto* box = read(&checkBox(TWEnableHotKeyKey));
    EXPECT_EQ(box->role(), QAccessible::CheckBox);
    EXPECT_EQ(box->text(QAccessible::Name), u"Open the menu with a hot key"_s);
    EXPECT_TRUE(box->state().checked);
    auto* tab = read(made().window().toolbar().button(u"hotKey"_s));
    EXPECT_EQ(tab->text(QAccessible::Name), u"Hot Key"_s);
    EXPECT_TRUE(tab->state().checked);
}

TEST_F(PreferencesWindowControllerTest, escape_closesTheWindow_unlessSomethingIsRecorded)
{
    shown();
    made().shortcutRecorder().setFocus();
    Event space;
    space.type = Event::Type::KeyDown;
    space.characters = u" "_s;
    made().shortcutRecorder().keyDown(space);
    clock.advance(1);
    Event escape;
    escape.type = Event::Type::KeyDown;
    escape.keyCode = 53;
    escape.characters = u"\u001B"_s;
    application.event = escape;
    QTest::keyClick(&made().shortcutRecorder(), Qt::Key_Escape);
    clock.advance(1);
    EXPECT_TRUE(made().window().isVisible());
    EXPECT_FALSE(made().shortcutRecorder().cell().isRecording());
    QTest::keyClick(&made().window(), Qt::Key_Escape);
    EXPECT_FALSE(made().window().isVisible());
}

// What a desktop has to say about the hot key and the mouse button

namespace {

using Kind = TriggerHint::Kind;
const TriggerHint SwayLine{Kind::Line, u"bindsym Mod1+z exec it"_s, u"~/.config/sway/config"_s};

class AdviceTest : public PreferencesWindowControllerTest
{
protected:
    TriggerHintView& hotKeyHint() { return *made().window().hotKeyView().hotKeyHint(); }
    TriggerHintView& buttonHint() { return *made().window().hotKeyView().mouseButtonHint(); }

    FakeTriggerAdvice advice;
    SharedPorts sharedAdvice{advice};
};

} // namespace

TEST_F(PreferencesWindowControllerTest, withoutAdvice_thereIsNothingToSay)
{
    shown();
    EXPECT_FALSE(made().window().hotKeyView().hotKeyHint()->isVisible());
    EXPECT_FALSE(made().window().hotKeyView().mouseButtonHint()->isVisible());
}

TEST_F(AdviceTest, asksAboutWhatIsSet_andSwitchedOn)
{
    store.values = {{TWTriggerCharacterKey, 7}, {TWTriggerModifiersKey, 0x140000}, {TWMouseButtonKey, 4}};
    advice.hotKey = advice.mouseButton = SwayLine;
    shown();
    EXPECT_EQ(advice.asked.last(), (std::pair<quint32, quint32>{7, 0x1100}));
    EXPECT_TRUE(hotKeyHint().isVisible());
    EXPECT_FALSE(buttonHint().isVisible()) << "it is switched off";
    checkBox(TWEnableMouseButtonKey).click();
    EXPECT_EQ(advice.askedButtons.last(), 4U);
    EXPECT_TRUE(buttonHint().isVisible());
    checkBox(TWEnableHotKeyKey).click();
    EXPECT_FALSE(hotKeyHint().isVisible());
}

TEST_F(AdviceTest, newKeys_areAskedAbout)
{
    shown();
    record(7, ControlKeyMask, u"x"_s);
    EXPECT_EQ(advice.asked.last(), (std::pair<quint32, quint32>{7, 0x1000}));
}

TEST_F(AdviceTest, eachKind_hasItsText)
{
    const std::pair<TriggerHint, QString> rows[] = {
        {{Kind::Granted, u"Meta+F5"_s},
         u"Keys given by the desktop: Meta+F5. Others can be chosen in its settings."_s},
        {{Kind::Asked}, u"The desktop is being asked for these keys."_s},
        {{Kind::Refused},
         u"The desktop has not given these keys. Record others, or allow them in its settings."_s},
        {{Kind::Taken, u"KWin: Close"_s}, u"These keys are taken by KWin: Close. Record others."_s},
        {SwayLine, u"The compositor has to be told. Put this into ~/.config/sway/config:"_s},
        {{Kind::Command, u"run it"_s},
         u"This desktop gives no keys to programs. Let one of its own run this command:"_s},
        {{Kind::OfHotKey},
         u"This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings."_s},
        {{Kind::Unavailable}, u"On this desktop no mouse button can open the menu."_s},
    };
    shown();
    for (const auto& [hint, text] : rows) {
        advice.hotKey = hint;
        advice.change();
        EXPECT_EQ(hotKeyHint().explanation()->text(), text);
        EXPECT_TRUE(hotKeyHint().isVisible()) << text.toStdString();
        const bool toBeCopied = hint.kind == Kind::Line || hint.kind == Kind::Command;
        EXPECT_EQ(hotKeyHint().line()->isVisible(), toBeCopied) << text.toStdString();
        EXPECT_EQ(hotKeyHint().copyButton()->isVisible(), toBeCopied) << text.toStdString();
        EXPECT_EQ(hotKeyHint().result()->isVisible(), toBeCopied) << text.toStdString();
    }
    advice.hotKey = {};
    advice.change();
    EXPECT_FALSE(hotKeyHint().isVisible());
}

TEST_F(AdviceTest, line_canBeCopied_selected_andRead)
{
    advice.hotKey = SwayLine;
    shown();
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(hotKeyHint().copyButton(), Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), SwayLine.text);
    QLabel& line = *hotKeyHint().line();
    EXPECT_TRUE(line.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    EXPECT_TRUE(line.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_EQ(line.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    auto* accessible = QAccessible::queryAccessibleInterface(&line);
    EXPECT_EQ(accessible->text(QAccessible::Name), SwayLine.text);
    const TriggerHint xml{Kind::Line, u"<keybind key=\"A-z\"/>"_s, u"rc.xml, <keyboard>"_s};
    advice.hotKey = xml;
    advice.change();
    EXPECT_EQ(line.textFormat(), Qt::PlainText) << "or it would be taken for mark-up";
    EXPECT_EQ(hotKeyHint().explanation()->textFormat(), Qt::PlainText);
}

TEST_F(AdviceTest, lineThatWorks_saysSo)
{
    advice.hotKey = SwayLine;
    shown();
    EXPECT_EQ(hotKeyHint().result()->text(), u"It has not asked for the menu yet."_s);
    advice.hotKey.works = true;
    advice.change();
    EXPECT_EQ(hotKeyHint().result()->text(), u"It works: the menu has been asked for this way."_s);
}

TEST_F(AdviceTest, windowIsAsHighAsWhatItSays)
{
    shown();
    const int before = made().window().height();
    advice.hotKey = SwayLine;
    advice.change();
    EXPECT_TRUE(QTest::qWaitFor([&] { return made().window().height() > before; }));
    const QWidget& pane = made().window().hotKeyView();
    EXPECT_EQ(made().window().contentView().height(), pane.height());
    EXPECT_GE(pane.height(), pane.layout()->totalHeightForWidth(pane.width()));
    advice.hotKey = {};
    advice.change();
    EXPECT_TRUE(QTest::qWaitFor([&] { return made().window().height() == before; }));
}

TEST_F(AdviceTest, keysOfAnother_areReservedByHim)
{
    std::optional<QString> reason;
    EXPECT_FALSE(
        made().shortcutRecorderIsKeyCodeAndFlagsTakenReason(made().shortcutRecorder(), 6, 0x80000, reason));
    EXPECT_EQ(reason, std::nullopt);
    EXPECT_EQ(advice.askedOwner, (QList<std::pair<quint32, quint32>>{{6, 0x800}}));
    advice.owner = u"KWin: Close"_s;
    EXPECT_TRUE(
        made().shortcutRecorderIsKeyCodeAndFlagsTakenReason(made().shortcutRecorder(), 6, 0x80000, reason));
    EXPECT_EQ(reason, u"they are taken by KWin: Close"_s);
    EXPECT_FALSE(
        made().shortcutRecorderIsKeyCodeAndFlagsTakenReason(made().shortcutRecorder(), -1, 0x80000, reason))
        << "no key is nobody's";
}

TEST_F(AdviceTest, advice_mayComeAfterTheWindowHasGone)
{
    shown();
    controller.reset();
    advice.asked.clear();
    advice.change();
    EXPECT_TRUE(advice.asked.isEmpty());
}

// Icons

TEST(PaneIcons, areDrawn_eachItsOwn_inTheColoursOfTheDesktop)
{
    QList<QImage> images;
    for (const PaneIcon pane : {PaneIcon::HotKey, PaneIcon::General, PaneIcon::About}) {
        const QImage image = paneIcon(pane).pixmap(64, 64).toImage();
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                inked += image.pixelColor(x, y).alpha() > 128;
        }
        EXPECT_GT(inked, image.width() * image.height() / 20);
        EXPECT_FALSE(images.contains(image));
        images.append(image);
    }
}
