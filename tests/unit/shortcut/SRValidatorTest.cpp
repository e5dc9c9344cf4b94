// SPDX-License-Identifier: MIT
#include "shortcut/SRValidator.h"

#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "shortcut/SRAdditions.h"
#include "tests/fakes/FakeKeyNames.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 F1 = 122;
constexpr qint64 Q = 12;
constexpr quint64 Command = 0x100;
constexpr quint64 Shift = 0x200;
constexpr quint64 Option = 0x800;
constexpr quint64 Control = 0x1000;
constexpr quint64 FunctionBit = 0x800000;
constexpr quint64 CapsLock = 0x400;

const QString SystemText =
    u"can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to "
    "use this key combination, most shortcuts can be changed in the Keyboard & Mouse panel in System "
    "Preferences.)"_s;

class Reserver final : public SRValidatorDelegate
{
public:
    bool takes = false;
    std::optional<QString> reasonToGive;
    struct Question
    {
        const SRValidator* validator;
        qint64 keyCode;
        quint64 cocoaFlags;
        bool hadReason;
    };
    QList<Question> asked;

    bool shortcutValidatorIsKeyCodeAndFlagsTakenReason(SRValidator& validator, qint64 keyCode,
                                                       quint64 cocoaFlags,
                                                       std::optional<QString>& reason) override
    {
        asked.append({&validator, keyCode, cocoaFlags, reason.has_value()});
        reason = reasonToGive;
        return takes;
    }
};

class Indifferent final : public SRValidatorDelegate
{
};

std::shared_ptr<MenuItem> item(const QString& title, const QString& keyEquivalent, quint64 cocoaMask)
{
    auto made = MenuItem::create(title, {}, keyEquivalent);
    made->setKeyEquivalentModifierMask(cocoaMask);
    return made;
}

class SRValidatorTest : public ShortcutFixture
{
protected:
    void useMenu(const QList<std::shared_ptr<MenuItem>>& items)
    {
        application.menuBar = Menu::create({});
        for (const auto& each : items)
            application.menuBar->addItem(each);
    }
    bool taken(qint64 code, quint64 carbonFlags)
    {
        error.reset();
        return validator.isKeyCodeAndFlagsTakenError(code, carbonFlags, &error);
    }
    QString title() const
    {
        return error ? error->userInfo[NSLocalizedDescriptionKey].toString() : QString();
    }
    QString explanation() const
    {
        return error ? error->userInfo[NSLocalizedRecoverySuggestionErrorKey].toString() : QString();
    }

    Reserver delegate;
    SRValidator validator{&delegate};
    std::optional<SRError> error;
};

} // namespace

TEST_F(SRValidatorTest, freeCombination_isFree_andLeavesTheErrorAlone)
{
    error = SRError{u"mine"_s, 7, {}};
    EXPECT_FALSE(validator.isKeyCodeAndFlagsTakenError(F1, Command, &error));
    EXPECT_EQ(error->domain, u"mine"_s);
    EXPECT_FALSE(validator.isKeyCodeAndFlagsTakenError(F1, Command, nullptr));
}

TEST_F(SRValidatorTest, delegate_isAskedFirst_inCocoaFlags_withoutAReason)
{
    taken(F1, Command | Shift | Option | Control | FunctionBit | CapsLock);
    ASSERT_EQ(delegate.asked.size(), 1);
    EXPECT_EQ(delegate.asked[0].validator, &validator);
    EXPECT_EQ(delegate.asked[0].keyCode, F1);
    EXPECT_EQ(delegate.asked[0].cocoaFlags, 0x9E0000U);
    EXPECT_FALSE(delegate.asked[0].hadReason);
}

TEST_F(SRValidatorTest, takenByTheDelegate_tellsItsReason)
{
    delegate.takes = true;
    struct Row
    {
        const char* name;
        std::optional<QString> reason;
        QString text;
    };
    const QList<Row> rows{
        {"a reason", u"it closes the window"_s, u"it closes the window"_s},
        {"none", std::nullopt, u"it's already used"_s},
        {"an empty one", u""_s, u"it's already used"_s},
        {"one with percent signs", u"50%% and %@ are %d"_s, u"50%% and %@ are %d"_s},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        delegate.reasonToGive = row.reason;
        EXPECT_TRUE(taken(F1, Command | Shift));
        EXPECT_EQ(title(), u"The key combination \u21E7\u2318F1 can't be used!"_s);
        EXPECT_EQ(explanation(), u"The key combination \"Command + Shift + F1\" can't be used because "_s +
                                     row.text + u"."_s);
    }
    EXPECT_TRUE(symbolicHotKeys.candidates.isEmpty()) << "nobody else is asked";
}

TEST_F(SRValidatorTest, error_isOfTheCocoaDomain_withThreeEntries)
{
    delegate.takes = true;
    ASSERT_TRUE(taken(F1, Command));
    EXPECT_EQ(error->domain, u"NSCocoaErrorDomain"_s);
    EXPECT_EQ(error->code, 0);
    EXPECT_EQ(error->userInfo.size(), 3);
    EXPECT_EQ(error->userInfo[NSLocalizedRecoveryOptionsErrorKey].toStringList(), QStringList{u"OK"_s});
}

TEST_F(SRValidatorTest, withoutAPlaceForTheError_takenIsABareYes)
{
    delegate.takes = true;
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTakenError(F1, Command, nullptr));
    delegate.takes = false;
    symbolicHotKeys.hotKeys = {{true, F1, Command}};
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTakenError(F1, Command, nullptr));
    symbolicHotKeys.hotKeys.clear();
    useMenu({item(u"Quit"_s, u"q"_s, CommandKeyMask)});
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTakenError(Q, Command, nullptr));
}

TEST_F(SRValidatorTest, withoutADelegate_orWithOneThatDoesNotCare_othersDecide)
{
    Indifferent indifferent;
    for (SRValidatorDelegate* each :
         {static_cast<SRValidatorDelegate*>(nullptr), static_cast<SRValidatorDelegate*>(&indifferent)}) {
        validator.setDelegate(each);
        EXPECT_EQ(validator.delegate(), each);
        symbolicHotKeys.hotKeys.clear();
        EXPECT_FALSE(taken(F1, Command));
        symbolicHotKeys.hotKeys = {{true, F1, Command}};
        EXPECT_TRUE(taken(F1, Command));
    }
}

TEST_F(SRValidatorTest, listOfTheSystem_thatCannotBeRead_takesEverything_silently)
{
    symbolicHotKeys.unreadable = true;
    EXPECT_TRUE(taken(F1, Command));
    EXPECT_FALSE(error);
}

TEST_F(SRValidatorTest, listOfTheSystem_thatIsEmpty_takesNothing)
{
    EXPECT_FALSE(taken(F1, Command));
    EXPECT_EQ(symbolicHotKeys.candidates, (QList<std::pair<qint64, quint32>>{{F1, quint32(Command)}}));
}

TEST_F(SRValidatorTest, takenByTheSystem_saysSo)
{
    symbolicHotKeys.hotKeys = {{true, F1, Shift}, {true, F1, Command}};
    EXPECT_TRUE(taken(F1, Command));
    EXPECT_EQ(title(), u"The key combination \u2318F1 can't be used!"_s);
    EXPECT_EQ(explanation(), u"The key combination \"Command + F1\" "_s + SystemText);
}

TEST_F(SRValidatorTest, takenTexts_nameTheKeysAsTheDesktopDoes)
{
    FakeKeyNames names;
    const SharedPorts shared(names);
    delegate.takes = true;
    EXPECT_TRUE(taken(F1, Command | Shift));
    EXPECT_EQ(title(), u"The key combination Umschalt+Super+F1 can't be used!"_s);
    EXPECT_EQ(explanation(),
              u"The key combination \"Umschalt+Super+F1\" can't be used because it's already used."_s);
    delegate.takes = false;
    symbolicHotKeys.hotKeys = {{true, F1, Command}};
    EXPECT_TRUE(taken(F1, Command));
    EXPECT_EQ(explanation(), u"The key combination \"Super+F1\" "_s + SystemText);
    useMenu({item(u"Quit"_s, u"q"_s, CommandKeyMask)});
    EXPECT_TRUE(taken(Q, Command));
    EXPECT_EQ(explanation(),
              u"The key combination \"Super+Q\" can't be used because it's already used by the menu item "
              "\"Quit\"."_s);
}

TEST_F(SRValidatorTest, systemHotKeys_matchByCodeAndFourModifiers)
{
    struct Row
    {
        const char* name;
        SymbolicHotKey hotKey;
        quint64 flags;
        bool taken;
    };
    const QList<Row> rows{
        {"the same", {true, F1, Command}, Command, true},
        {"disabled", {false, F1, Command}, Command, false},
        {"another key", {true, F1 - 2, Command}, Command, false},
        {"one modifier more there", {true, F1, qint32(Command | Shift)}, Command, false},
        {"one modifier more here", {true, F1, Command}, Command | Option, false},
        {"Option", {true, F1, Option}, Option, true},
        {"Shift", {true, F1, Shift}, Shift, true},
        {"Control", {true, F1, Control}, Control, true},
        {"Option against Control", {true, F1, Option}, Control, false},
        {"Caps Lock there", {true, F1, qint32(Command | CapsLock)}, Command, true},
        {"Caps Lock here", {true, F1, Command}, Command | CapsLock, true},
        {"the function-key bit here", {true, F1, Command}, Command | FunctionBit, true},
        {"the function-key bit there", {true, F1, qint32(Command | FunctionBit)}, Command, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        symbolicHotKeys.hotKeys = {row.hotKey};
        EXPECT_EQ(taken(F1, row.flags), row.taken);
        EXPECT_EQ(error.has_value(), row.taken);
    }
}

TEST_F(SRValidatorTest, keyWithoutAName_isRefusedSilently_onceAHotKeyIsEnabled)
{
    constexpr qint64 rightShift = 60;
    EXPECT_FALSE(taken(rightShift, Command));
    symbolicHotKeys.hotKeys = {{false, F1, Command}};
    EXPECT_FALSE(taken(rightShift, Command)) << "a disabled one does not count";
    symbolicHotKeys.hotKeys = {{false, F1, Command}, {true, F1, Command}};
    EXPECT_TRUE(taken(rightShift, Command));
    EXPECT_FALSE(error);
    EXPECT_TRUE(taken(-1, Command));
}

TEST_F(SRValidatorTest, mainMenu_isSearchedLast)
{
    useMenu({item(u"Quit"_s, u"q"_s, CommandKeyMask)});
    EXPECT_TRUE(taken(Q, Command));
    EXPECT_EQ(title(), u"The key combination \u2318Q can't be used!"_s);
    EXPECT_EQ(explanation(),
              u"The key combination \"Command + Q\" can't be used because it's already used by the menu item "
              "\"Quit\"."_s);
    EXPECT_EQ(symbolicHotKeys.candidates.size(), 1) << "after the system";
}

TEST_F(SRValidatorTest, withoutAMainMenu_nothingIsTaken)
{
    application.menuBar = nullptr;
    EXPECT_FALSE(taken(Q, Command));
}

TEST_F(SRValidatorTest, menuItems_matchByUpperCaseEquivalentAndFourModifiers)
{
    struct Row
    {
        const char* name;
        QString equivalent;
        quint64 mask;
        quint64 flags;
        bool taken;
    };
    const QList<Row> rows{
        {"lower case", u"q"_s, 0x100000, Command, true},
        {"upper case", u"Q"_s, 0x100000, Command, true},
        {"another letter", u"w"_s, 0x100000, Command, false},
        {"none", u""_s, 0x100000, Command, false},
        {"other modifiers", u"q"_s, 0x120000, Command, false},
        {"no modifier there", u"q"_s, 0, Command, false},
        {"none at all", u"q"_s, 0, 0, true},
        {"Option", u"q"_s, 0x80000, Option, true},
        {"Shift", u"q"_s, 0x20000, Shift, true},
        {"Control", u"q"_s, 0x40000, Control, true},
        {"Caps Lock and function bit do not count", u"q"_s, 0x910000, Command | FunctionBit, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        useMenu({item(u"An item"_s, row.equivalent, row.mask)});
        EXPECT_EQ(taken(Q, row.flags), row.taken);
        EXPECT_EQ(error.has_value(), row.taken);
    }
}

TEST_F(SRValidatorTest, functionKeyCharacters_areNotDetected)
{
    useMenu({item(u"Help"_s, QString(QChar(0xF704)), CommandKeyMask)});
    EXPECT_FALSE(taken(F1, Command)) << "the character is not the name \"F1\"";
    useMenu({item(u"Help"_s, u"f1"_s, CommandKeyMask)});
    EXPECT_TRUE(taken(F1, Command));
}

TEST_F(SRValidatorTest, submenu_isSearchedBeforeTheItemThatHasIt_andBeforeWhatFollows)
{
    auto deep = MenuItem::create(u"Window"_s);
    deep->setSubmenu(Menu::create({}));
    auto deeper = item(u"Arrange"_s, u"q"_s, CommandKeyMask);
    deeper->setSubmenu(Menu::create({}));
    deeper->submenu()->addItem(item(u"Innermost"_s, u"q"_s, CommandKeyMask));
    deep->submenu()->addItem(deeper);
    useMenu({deep, item(u"Quit"_s, u"q"_s, CommandKeyMask)});
    EXPECT_TRUE(taken(Q, Command));
    EXPECT_TRUE(explanation().endsWith(u"\"Innermost\"."_s)) << explanation().toStdString();

    useMenu({MenuItem::separatorItem(), item(u"First"_s, u"q"_s, CommandKeyMask),
             item(u"Second"_s, u"q"_s, CommandKeyMask)});
    EXPECT_TRUE(taken(Q, Command));
    EXPECT_TRUE(explanation().endsWith(u"\"First\"."_s)) << "in the order of the items";
}

TEST_F(SRValidatorTest, menuText_namesTheItemsOwnModifiers)
{
    useMenu({item(u"Quit"_s, u"q"_s, CommandKeyMask | FunctionKeyMask)});
    ASSERT_TRUE(taken(Q, Command | FunctionBit));
    EXPECT_EQ(title(), u"The key combination \u2318Q can't be used!"_s);
    EXPECT_TRUE(explanation().startsWith(u"The key combination \"Command + Q\""_s));
}

TEST_F(SRValidatorTest, menuTitle_withPercentSigns_isShownAsTheAlertExpandsIt)
{
    useMenu({item(u"100%% of %@ or %d%"_s, u"q"_s, CommandKeyMask)});
    ASSERT_TRUE(taken(Q, Command));
    EXPECT_TRUE(explanation().endsWith(u"\"100%% of %@ or %d%\"."_s)) << "the error holds the text itself";
    EXPECT_TRUE(alertWithNonRecoverableError(error).informativeText.endsWith(u"\"100% of %@ or %d%\"."_s))
        << "the alert takes it as a format";
}

// Alerts for errors

TEST_F(SRValidatorTest, alert_hasTheTextsOfTheError_andOneButton)
{
    SRError made;
    made.userInfo = {{NSLocalizedDescriptionKey, u"Title %% %@"_s},
                     {NSLocalizedRecoverySuggestionErrorKey, u"Do %% this"_s},
                     {NSLocalizedRecoveryOptionsErrorKey, QStringList{u"Fine"_s, u"Never"_s}}};
    const Alert alert = alertWithNonRecoverableError(made);
    EXPECT_EQ(alert.messageText, u"Title %% %@"_s) << "the message is no format";
    EXPECT_EQ(alert.informativeText, u"Do % this"_s);
    EXPECT_EQ(alert.buttonTitles, QStringList{u"Fine"_s});
    EXPECT_EQ(alert.style, Alert::Style::Warning);
}

TEST_F(SRValidatorTest, alert_withoutASuggestion_hasAnEmptyText)
{
    SRError made;
    made.userInfo = {{NSLocalizedDescriptionKey, u"Title"_s}};
    const Alert alert = alertWithNonRecoverableError(made);
    EXPECT_EQ(alert.messageText, u"Title"_s);
    EXPECT_EQ(alert.informativeText, u""_s);
    EXPECT_EQ(alert.buttonTitles, QStringList{u"OK"_s});
}

TEST_F(SRValidatorTest, alert_withoutAnError_canStillBeDismissed)
{
    const Alert alert = alertWithNonRecoverableError(std::nullopt);
    EXPECT_EQ(alert.messageText, u"Alert"_s);
    EXPECT_EQ(alert.informativeText, u""_s);
    EXPECT_EQ(alert.buttonTitles, QStringList{u"OK"_s});
}
