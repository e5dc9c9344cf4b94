// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include "app/AppDelegate.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "prefs/AboutPane.h"
#include "prefs/GeneralOptionsPane.h"
#include "prefs/HotKeyPane.h"
#include "prefs/PreferencesToolbar.h"
#include "prefs/PreferencesWindow.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"
#include "shortcut/RecorderAppearance.h"
#include "shortcut/SRRecorderControl.h"
#include "tests/fakes/FakeTriggerAdvice.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFile>
#include <QFontMetricsF>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QXmlStreamReader>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QStringList Languages{u"de"_s, u"es"_s, u"fr"_s, u"ja"_s, u"zh_CN"_s};

struct Message
{
    QString context;
    QString source;
    QString translation;
};

QList<Message> messagesOf(const QString& language)
{
    QFile file(QStringLiteral(TARNWICK_TRANSLATIONS) + u"/tarnwick_%1.ts"_s.arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << language.toStdString();
    QList<Message> messages;
    QXmlStreamReader reader(&file);
    QString context;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == u"name")
            context = reader.readElementText();
        else if (reader.name() == u"source")
            messages.append({context, reader.readElementText(), {}});
        else if (reader.name() == u"translation")
            messages.last().translation = reader.readElementText();
    }
    return messages;
}

int count(const QString& text, const QString& part)
{
    return int(text.count(part));
}

class Nobody final : public ActionTarget, public ActionSender
{
public:
    [[nodiscard]] bool respondsTo(const QString& /*action*/) const override { return false; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
};

class TranslationsTest : public ShortcutFixture
{
protected:
    TranslationsTest() { workspace.systemMenu = true; }
};

} // namespace

TEST_F(TranslationsTest, everyMessageOfACatalogue_isFoundInTheProgram)
{
    for (const QString& language : Languages) {
        const Translations translations{QLocale(language)};
        const auto messages = messagesOf(language);
        EXPECT_GT(messages.size(), 60);
        for (const Message& message : messages) {
            EXPECT_FALSE(message.translation.isEmpty()) << message.source.toStdString();
            EXPECT_EQ(QCoreApplication::translate(message.context.toUtf8(), message.source.toUtf8()),
                      message.translation)
                << language.toStdString();
        }
    }
}

TEST_F(TranslationsTest, directivesAndBlanksAtTheEnd_areKept)
{
    for (const QString& language : Languages) {
        const auto messages = messagesOf(language);
        for (const Message& message : messages) {
            SCOPED_TRACE((language + u": "_s + message.source).toStdString());
            for (const QString& directive : {u"%@"_s, u"%1"_s, u"%i"_s})
                EXPECT_EQ(count(message.translation, directive), count(message.source, directive));
            EXPECT_EQ(message.translation.endsWith(u' '), message.source.endsWith(u' '));
            EXPECT_EQ(message.translation.startsWith(u' '), message.source.startsWith(u' '));
            if (message.context != u"ShortcutRecorder") {
                EXPECT_EQ(count(message.translation, u"&"_s), count(message.source, u"&"_s)) << "a mnemonic";
            }
        }
    }
}

TEST_F(TranslationsTest, combination_readsInTheUsersLanguage)
{
    {
        const Translations german{QLocale(u"de_AT"_s)};
        EXPECT_EQ(SRReadableStringForCocoaModifierFlagsAndKeyCode(0x1A0000, 6),
                  u"Befehl + Option + Umschalt + Z"_s);
        EXPECT_EQ(localized("Type shortcut"), u"Tastenk\u00FCrzel dr\u00FCcken"_s);
    }
    EXPECT_EQ(localized("Type shortcut"), u"Type shortcut"_s) << "and in English again";
}

TEST_F(TranslationsTest, englishAndUnknownLanguages_stayEnglish)
{
    for (const QString& name : {u"en_GB"_s, u"C"_s, u"sw_KE"_s, u"zh_TW"_s}) {
        const Translations translations{QLocale(name)};
        EXPECT_EQ(localized("Type shortcut"), u"Type shortcut"_s) << name.toStdString();
    }
}

TEST_F(TranslationsTest, inEveryLanguage_theFieldsHaveRoomForTheirTexts)
{
    AppDelegate::setupPreferenceDefaults();
    constexpr double Cap = RecorderAppearance::CapWidth + 2.0 + RecorderAppearance::TextGapToButton;
    for (const QString& language : Languages) {
        const Translations translations{QLocale(language)};
        Nobody nobody;
        PreferencesWindow window(nobody, nobody, [] {});
        HotKeyPane& pane = window.hotKeyView();
        pane.layout()->activate();
        const double field = pane.shortcutRecorder()->width() - RecorderAppearance::TextPadding - Cap;
        const QFontMetricsF prompt(fonts.systemFontOfSize(fonts.labelFontSize()));
        for (const auto* text : {"Click to record shortcut", "Type shortcut", "Use old shortcut"}) {
            EXPECT_LE(prompt.horizontalAdvance(localized(text)), field)
                << language.toStdString() << ": " << localized(text).toStdString();
        }
        EXPECT_LE(pane.mouseButtonIdentifier()->sizeHint().width(), pane.mouseButtonIdentifier()->width())
            << language.toStdString();
    }
}

/// What the longest line of a configuration asks for, and the longest text that is said instead.
const TriggerHint LongestHints[] = {
    {TriggerHint::Kind::None},
    {TriggerHint::Kind::Line,
     u"<context name=\"All\"><mousebind button=\"Middle\" action=\"Press\"><action name=\"Execute\" "
     "command=\"gapplication action example.quorlane.Tarnwick pop-up\"/></mousebind></context>"_s,
     u"~/.config/labwc/rc.xml, <keyboard>"_s},
    {TriggerHint::Kind::Refused},
};

QList<std::pair<QString, TriggerHint>> everyHintInEveryLanguage()
{
    QList<std::pair<QString, TriggerHint>> all;
    for (const QString& language : Languages) {
        for (const TriggerHint& hint : LongestHints)
            all.append({language, hint});
    }
    return all;
}

TEST_F(TranslationsTest, inEveryLanguage_eachTextOfThePreferencesHasRoom)
{
    AppDelegate::setupPreferenceDefaults();
    UserDefaults::standardUserDefaults().setBoolForKey(true, TWEnableMouseButtonKey);
    for (const auto& [language, hint] : everyHintInEveryLanguage()) {
        const Translations translations{QLocale(language)};
        FakeTriggerAdvice advice;
        const SharedPorts sharedAdvice{advice};
        advice.hotKey = advice.mouseButton = hint;
        Nobody nobody;
        PreferencesWindow window(nobody, nobody, [] {});
        window.show();
        const QList<QWidget*> panes{&window.hotKeyView(), &window.generalOptionsView(), &window.aboutView()};
        for (QWidget* pane : panes) {
            window.removePanes();
            pane->resize(window.width(), pane->height());
            window.addPane(*pane);
            pane->layout()->activate();
            const auto texts = pane->findChildren<QLabel*>();
            for (const QLabel* text : texts) {
                if (!text->isVisible())
                    continue;
                SCOPED_TRACE((language + u": "_s + text->text()).toStdString());
                EXPECT_GE(text->height(), text->heightForWidth(text->width()));
                if (!text->wordWrap()) {
                    EXPECT_GE(text->width(), text->sizeHint().width());
                }
            }
            const auto buttons = pane->findChildren<QAbstractButton*>();
            for (const QAbstractButton* button : buttons) {
                SCOPED_TRACE((language + u": "_s + button->text()).toStdString());
                EXPECT_GE(button->width(), button->sizeHint().width());
                if (button->isVisible()) {
                    const QPoint corner = button->mapTo(pane, QPoint());
                    EXPECT_TRUE(pane->rect().contains(QRect(corner, button->size())));
                }
            }
        }
    }
}

TEST_F(TranslationsTest, inEveryLanguage_eachMnemonicIsGivenOnce)
{
    AppDelegate::setupPreferenceDefaults();
    for (const QString& language : Languages) {
        const Translations translations{QLocale(language)};
        Nobody nobody;
        PreferencesWindow window(nobody, nobody, [] {});
        const auto mnemonicsIn = [](const QWidget& part) {
            QStringList found;
            const auto labels = part.findChildren<QLabel*>();
            for (const QLabel* label : labels) {
                if (label->buddy())
                    found.append(QKeySequence::mnemonic(label->text()).toString());
            }
            const auto buttons = part.findChildren<QAbstractButton*>();
            for (const QAbstractButton* button : buttons) {
                if (!button->text().isEmpty())
                    found.append(QKeySequence::mnemonic(button->text()).toString());
            }
            return found;
        };
        for (QWidget* pane : std::initializer_list<QWidget*>{
                 window.findChild<QWidget*>(u"EnableHotkey"_s)->parentWidget(),
                 window.findChild<QWidget*>(u"LaunchOnLogin"_s)->parentWidget()}) {
            QStringList letters = mnemonicsIn(window.toolbar()) + mnemonicsIn(*pane);
            const auto all = letters.size();
            EXPECT_FALSE(letters.contains(QString())) << language.toStdString();
            letters.sort();
            const QString shown = letters.join(u' ');
            letters.removeDuplicates();
            EXPECT_EQ(letters.size(), all) << language.toStdString() << ": " << shown.toStdString();
            EXPECT_LE(pane->width(), 700) << "no text is so long that the window grows out of proportion";
        }
        for (const auto& item : window.toolbar().items()) {
            EXPECT_FALSE(item->plainLabel().contains(u'&'));
            EXPECT_FALSE(item->plainLabel().contains(u'('));
        }
    }
}
