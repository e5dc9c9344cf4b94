// SPDX-License-Identifier: MIT
// Every function of the system fails in turn: the adapters go on, give what the core takes for nothing, and
// leave no reference behind.
#include "ax/AXValue.h"
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/hotkeys/CarbonHotKeys.h"
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/macos/hotkeys/TISKeyboardLayout.h"
#include "platform/macos/login/AppServiceLoginItems.h"
#include "platform/macos/login/SharedFileListLoginItems.h"
#include "platform/macos/session/ReopenEvent.h"
#include "platform/macos/system/CFDefaultsStore.h"
#include "platform/macos/system/MacBundle.h"
#include "platform/macos/workspace/CGScreens.h"
#include "platform/macos/workspace/CarbonFrontSwitch.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/DeclaredFunctions.h"
#include "tests/macos/MacTest.h"

#include <QDebug>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Us = u"/Applications/Tarnwick.app"_s;
const QString Other = u"/Applications/Other.app"_s;

/// Something that the core asks of an adapter, made for it and gone afterwards, and what came of it.
using Operation = std::function<QVariant()>;

struct Row
{
    const char* function = nullptr; ///< that fails
    Operation operation;
    QVariant good;    ///< what the operation gives when nothing fails
    QVariant neutral; ///< what it gives now
};

template <typename Value>
QVariant variantFrom(const std::optional<Value>& value)
{
    if constexpr (std::is_same_v<Value, QVariant>)
        return value.value_or(QVariant());
    else
        return value ? QVariant::fromValue(*value) : QVariant();
}

std::string shown(const QVariant& value)
{
    QString text;
    QDebug(&text) << value;
    return text.toStdString();
}

QVariant structured(const AXValue& value)
{
    return QVariant::fromValue(value);
}

Operation with(QVariant (*ask)(AXAccessibility& accessibility, const UIElementRef& editor))
{
    return [ask] {
        AXAccessibility accessibility;
        return ask(accessibility, accessibility.createApplication(100));
    };
}

Operation reading(const QString& attribute)
{
    return [attribute] {
        AXAccessibility accessibility;
        const auto value = accessibility.copyAttributeValue(accessibility.createApplication(100), attribute);
        if (value && value->metaType() == QMetaType::fromType<UIElementRef>())
            return variantFrom(accessibility.getPid(value->value<UIElementRef>()));
        return variantFrom(value);
    };
}

Operation writing(const QVariant& value)
{
    return [value]() -> QVariant {
        AXAccessibility accessibility;
        return accessibility.setAttributeValue(accessibility.createApplication(100), u"Text"_s, value);
    };
}

/// Whether there is access, by either question.
QVariant access()
{
    AXAccessibility accessibility;
    return QVariantList{accessibility.apiEnabled(), accessibility.isProcessTrusted()};
}

/// The presses that arrived, and whether the hot key could be given back.
QVariant hotKeyPressed()
{
    CarbonHotKeys hotKeys;
    int presses = 0;
    hotKeys.installEventHandler([&] {
        ++presses;
        return HotKeys::noErr;
    });
    const auto hotKey = hotKeys.registerEventHotKey(6, 0x800, {0x747A7131, 1}, 0);
    SimulatedMac::instance().pressHotKey({6, 0x800});
    const bool unregistered = hotKey && hotKeys.unregisterEventHotKey(*hotKey);
    return QVariantList{presses, unregistered};
}

/// The presses that count of one while a menu is open and one afterwards.
QVariant hotKeyPressedAroundAMenu()
{
    CarbonHotKeys hotKeys;
    int presses = 0;
    hotKeys.installEventHandler([&] {
        ++presses;
        return HotKeys::noErr;
    });
    const auto hotKey = hotKeys.registerEventHotKey(6, 0x800, {0x747A7131, 1}, 0);
    SimulatedMac& mac = SimulatedMac::instance();
    {
        const MenuTracking::Span tracking;
        mac.menuIsOpen = true;
        mac.pressHotKey({6, 0x800});
        mac.menuIsOpen = false;
    }
    mac.deliverEvents();
    mac.pressHotKey({6, 0x800});
    if (hotKey)
        hotKeys.unregisterEventHotKey(*hotKey);
    return presses;
}

QVariant frontSwitched()
{
    CarbonFrontSwitch frontSwitch;
    int switches = 0;
    const bool installed = frontSwitch.install([&] { ++switches; });
    SimulatedMac::instance().activate(100);
    return QVariantList{installed, switches};
}

QVariant reopened()
{
    ReopenEvent event;
    const bool installed = event.install([] { return false; });
    return QVariantList{installed, variantFrom(SimulatedMac::instance().reopen())};
}

/// The system's shortcuts: whether each is enabled, its code, its modifiers.
QVariant systemHotKeys()
{
    const auto hotKeys = CarbonSymbolicHotKeys().copySymbolicHotKeys(0, 0);
    if (!hotKeys)
        return {};
    QVariantList all;
    for (const SymbolicHotKey& each : *hotKeys)
        all.append(QVariant(QVariantList{each.enabled, each.code, each.modifiers}));
    return all;
}

/// The modes pushed while one is wanted, and after it was popped.
QVariant systemHotKeysOff()
{
    CarbonSymbolicHotKeys hotKeys;
    const auto token = hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    const int pushed = SimulatedMac::instance().symbolicModesPushed();
    hotKeys.popSymbolicHotKeyMode(token);
    return QVariantList{pushed, SimulatedMac::instance().symbolicModesPushed()};
}

/// The presses seen by a tap that is on, then off, then released.
QVariant buttonPressed()
{
    QuartzEventTaps taps;
    int seen = 0;
    const EventTapRef tap =
        taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                    EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                        ++seen;
                        return event;
                    });
    taps.addSourceToMainRunLoop(tap);
    QVariantList presses;
    for (const bool on : {true, false}) {
        taps.enable(tap, on);
        SimulatedMac::instance().sendEvent(25);
        presses.append(seen);
    }
    taps.release(tap);
    SimulatedMac::instance().sendEvent(25);
    return presses << seen;
}

QVariant keyNamed()
{
    const TISKeyboardLayout layout;
    const auto table = layout.copyCurrentKeyboardInputSource();
    quint32 deadKeys = 0;
    return table ? variantFrom(table->keyTranslate(6, 3, 0, layout.keyboardType(), 0, deadKeys)) : QVariant();
}

QVariant layoutChanged()
{
    TISKeyboardLayout layout;
    int changes = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++changes; });
    SimulatedMac::instance().changeInputSource(SimulatedMac::InputSource());
    return changes;
}

QVariant screens()
{
    const CGScreens all;
    QVariantList frames;
    for (const QRectF& frame : all.frames())
        frames.append(frame);
    return QVariantList{QVariant(frames), all.mainDisplayBounds(), all.mouseLocation()};
}

/// A setting as it reads once it was written.
QVariant settingStored()
{
    CFDefaultsStore store;
    store.setValue(u"NewTrigger"_s, u"˄Z"_s);
    store.synchronize();
    return variantFrom(store.value(u"NewTrigger"_s));
}

QVariant settingRemoved()
{
    CFDefaultsStore store;
    store.removeValue(u"FirstRun"_s);
    return variantFrom(store.value(u"FirstRun"_s));
}

QVariant bundle()
{
    return QStringList{mainBundlePath(), mainBundleResource(u"Icon"_s, u"png"_s)};
}

/// The URLs of the login items, an empty one for an item that cannot be resolved; nothing without a list.
QStringList urlsNow(LoginItems& items)
{
    const auto list = items.createSessionLoginItems();
    QStringList urls;
    if (!list)
        return urls;
    for (const auto& item : list->copySnapshot())
        urls.append(list->resolve(*item, 3).value_or(QUrl()).toString());
    return urls;
}

/// The login items with ours, and without it.
template <typename Items>
QVariant loginItemAddedAndRemoved()
{
    Items items;
    const auto list = items.createSessionLoginItems();
    if (!list)
        return {};
    QVariantList states;
    list->insertBeforeFirst(QUrl::fromLocalFile(Us));
    states.append(urlsNow(items));
    const auto snapshot = list->copySnapshot();
    if (!snapshot.isEmpty() && list->resolve(*snapshot.first(), 3) == QUrl::fromLocalFile(Us))
        list->remove(*snapshot.first());
    return states << QVariant(urlsNow(items));
}

QVariant states(const QStringList& added, const QStringList& removed)
{
    return QVariantList{added, removed};
}

/// An object whose kind was not recognised: neither text nor number.
QByteArray unknown(const char* kind)
{
    return QByteArray("<") + kind + '>';
}

QList<Row> rowsOfElements()
{
    const QVariant nothing;
    const Operation text = reading(u"Text"_s);
    const Operation names = with([](AXAccessibility& accessibility, const UIElementRef& editor) {
        return variantFrom(accessibility.copyAttributeNames(editor));
    });
    const QStringList allNames{u"Text"_s, u"Flag"_s, u"Five"_s, u"Half"_s, u"List"_s,
                               u"Dict"_s, u"Link"_s, u"Data"_s, u"Spot"_s, u"Peer"_s};
    return {
        {"AXUIElementCreateSystemWide",
         with([](AXAccessibility& accessibility, const UIElementRef&) -> QVariant {
             return bool(accessibility.createSystemWide());
         }),
         true, false},
        {"AXUIElementSetMessagingTimeout", text, u"Editor"_s, u"Editor"_s},
        {"AXUIElementCreateApplication", text, u"Editor"_s, nothing},
        {"AXUIElementGetPid", reading(u"Peer"_s), 200, nothing},
        {"CFEqual", with([](AXAccessibility& accessibility, const UIElementRef& editor) -> QVariant {
             return editor == accessibility.createApplication(100);
         }),
         true, false},
        {"AXUIElementCopyAttributeNames", names, allNames, nothing},
        {"CFArrayGetCount", names, allNames, QStringList()},
        {"CFArrayGetValueAtIndex", names, allNames, QStringList(allNames.size(), QString())},
        {"AXUIElementCopyAttributeValue", text, u"Editor"_s, nothing},
        {"AXUIElementGetAttributeValueCount",
         with([](AXAccessibility& accessibility, const UIElementRef& editor) {
             return variantFrom(accessibility.getAttributeValueCount(editor, u"List"_s));
         }),
         2, nothing},
        {"AXUIElementIsAttributeSettable",
         with([](AXAccessibility& accessibility, const UIElementRef& editor) {
             return variantFrom(accessibility.isAttributeSettable(editor, u"Text"_s));
         }),
         true, nothing},
        {"AXUIElementSetAttributeValue", writing(u"new"_s), true, false},
        {"AXUIElementCopyActionNames", with([](AXAccessibility& accessibility, const UIElementRef& editor) {
             return variantFrom(accessibility.copyActionNames(editor));
         }),
         QStringList{u"AXPress"_s}, nothing},
        {"AXUIElementCopyActionDescription",
         with([](AXAccessibility& accessibility, const UIElementRef& editor) {
             return variantFrom(accessibility.copyActionDescription(editor, u"AXPress"_s));
         }),
         u"press"_s, nothing},
        {"AXUIElementPerformAction",
         with([](AXAccessibility& accessibility, const UIElementRef& editor) -> QVariant {
             return accessibility.performAction(editor, u"AXPress"_s);
         }),
         true, false},
    };
}

/// Where nothing can be looked up, there is the question that every system has.
QList<Row> rowsOfAccess()
{
    const QVariant on = QVariantList{true, true};
    return {
        {"AXAPIEnabled", access, on, QVariantList{false, true}},
        {"AXIsProcessTrusted", access, on, QVariantList{false, true}},
        {"AXIsProcessTrustedWithOptions", access, on, QVariantList{true, false}},
        {"CFDictionaryCreate", access, on, on},
        {"dlsym", access, on, on},
    };
}

QList<Row> rowsOfValuesRead()
{
    const QVariant nothing;
    const Operation text = reading(u"Text"_s);
    const Operation dictionary = reading(u"Dict"_s);
    const QVariant entries = QVariantMap{{u"key"_s, u"a"_s}};
    const Operation point = reading(u"Spot"_s);
    const QVariant spot = structured(AXValue(QPointF(1, 2)));
    const QUrl link(u"https://example.org/"_s);
    return {
        {"CFStringCreateWithCharacters", text, u"Editor"_s, nothing},
        {"CFGetTypeID", text, u"Editor"_s, unknown("QString")},
        {"CFStringGetTypeID", text, u"Editor"_s, unknown("QString")},
        {"CFStringGetLength", text, u"Editor"_s, QString(u""_s)},
        {"CFStringGetCharacters", text, u"Editor"_s, QString(6, QChar())},
        {"CFBooleanGetTypeID", reading(u"Flag"_s), true, unknown("bool")},
        {"CFBooleanGetValue", reading(u"Flag"_s), true, false},
        {"CFNumberGetTypeID", reading(u"Five"_s), 5, unknown("qlonglong")},
        {"CFNumberGetValue", reading(u"Five"_s), 5, 0},
        {"CFNumberIsFloatType", reading(u"Half"_s), 12.5, 12},
        {"CFArrayGetTypeID", reading(u"List"_s), QVariantList({u"a"_s, u"b"_s}), unknown("QVariantList")},
        {"CFDictionaryGetTypeID", dictionary, entries, unknown("QVariantMap")},
        {"CFDictionaryGetCount", dictionary, entries, QVariantMap()},
        {"CFDictionaryGetKeysAndValues", dictionary, entries, QVariantMap()},
        {"CFURLGetTypeID", reading(u"Link"_s), link, unknown("QUrl")},
        {"CFURLGetString", reading(u"Link"_s), link, QUrl()},
        {"CFCopyDescription", reading(u"Data"_s), unknown("QByteArray"), QByteArray()},
        {"AXValueGetTypeID", point, spot, unknown("tarnwick::AXValue")},
        {"AXValueGetType", point, spot, structured(AXValue())},
        {"AXValueGetValue", point, spot, structured(AXValue())},
        {"AXUIElementGetTypeID", reading(u"Peer"_s), 200, unknown("std::shared_ptr<tarnwick::AxNode>")},
    };
}

QList<Row> rowsOfValuesWritten()
{
    const QVariant spot = structured(AXValue(QPointF(1, 2)));
    return {
        {"AXValueCreate", writing(spot), true, false},
        {"CFNumberCreate", writing(12.5f), true, false},
        {"CFArrayCreate", writing(QVariantList{u"a"_s}), true, false},
        {"CFDictionaryCreate", writing(QVariantMap{{u"key"_s, u"a"_s}}), true, false},
        {"CFStringCreateWithCharacters", writing(QVariantMap{{u"key"_s, true}}), true, false},
    };
}

QList<Row> rowsOfKeys()
{
    const QVariant nothing;
    const QVariant pressed = QVariantList{1, true};
    const QVariant shortcuts = QVariantList{QVariant(QVariantList{true, 49, 0x100})};
    return {
        {"GetApplicationEventTarget", hotKeyPressed, pressed, QVariantList{0, false}},
        {"InstallEventHandler", hotKeyPressed, pressed, QVariantList{0, true}},
        {"RegisterEventHotKey", hotKeyPressed, pressed, QVariantList{0, false}},
        {"UnregisterEventHotKey", hotKeyPressed, pressed, QVariantList{1, false}},
        {"GetCurrentEventTime", hotKeyPressedAroundAMenu, 1, 2},
        {"GetEventTime", hotKeyPressedAroundAMenu, 1, 2},
        {"GetApplicationEventTarget", frontSwitched, QVariantList{true, 1}, QVariantList{false, 0}},
        {"InstallEventHandler", frontSwitched, QVariantList{true, 1}, QVariantList{false, 0}},
        {"AEInstallEventHandler", reopened, QVariantList{true, 0}, QVariantList{false, nothing}},
        {"CopySymbolicHotKeys", systemHotKeys, shortcuts, nothing},
        {"CFArrayGetValueAtIndex", systemHotKeys, shortcuts, QVariantList()},
        {"CFDictionaryGetValue", systemHotKeys, shortcuts, QVariantList{QVariant(QVariantList{false, 0, 0})}},
        {"CFNumberGetValue", systemHotKeys, shortcuts, QVariantList{QVariant(QVariantList{true, 0, 0})}},
        {"PushSymbolicHotKeyMode", systemHotKeysOff, QVariantList{1, 0}, QVariantList{0, 0}},
        {"PopSymbolicHotKeyMode", systemHotKeysOff, QVariantList{1, 0}, QVariantList{1, 1}},
    };
}

/// A tap comes enabled: one that cannot be switched off is not listened to.
QList<Row> rowsOfButtons()
{
    const QVariant seen = QVariantList{1, 1, 1};
    const QVariant unseen = QVariantList{0, 0, 0};
    return {
        {"CGEventTapCreate", buttonPressed, seen, unseen},
        {"CGEventTapEnable", buttonPressed, seen, seen},
        {"CFMachPortCreateRunLoopSource", buttonPressed, seen, unseen},
        {"CFRunLoopGetCurrent", buttonPressed, seen, unseen},
        {"CFRunLoopAddSource", buttonPressed, seen, unseen},
    };
}

QList<Row> rowsOfTheLayout()
{
    const QVariant nothing;
    return {
        {"TISCopyCurrentKeyboardInputSource", keyNamed, u"z"_s, nothing},
        {"TISGetInputSourceProperty", keyNamed, u"z"_s, nothing},
        {"CFDataGetBytePtr", keyNamed, u"z"_s, nothing},
        {"UCKeyTranslate", keyNamed, u"z"_s, nothing},
        {"LMGetKbdType", keyNamed, u"z"_s, u"z"_s},
        {"CFNotificationCenterGetDistributedCenter", layoutChanged, 1, 0},
        {"CFNotificationCenterAddObserver", layoutChanged, 1, 0},
    };
}

QList<Row> rowsOfScreens()
{
    const QRectF whole(0, 0, 1440, 900);
    const auto all = [](const QVariantList& frames, const QRectF& main, QPointF pointer) {
        return QVariant(QVariantList{QVariant(frames), main, pointer});
    };
    const QVariant good = all({whole}, whole, {10, 880});
    return {
        {"CGGetActiveDisplayList", screens, good, all({}, whole, {10, 880})},
        {"CGDisplayBounds", screens, good, all({QRectF()}, {}, {10, -20})},
        {"CGMainDisplayID", screens, good, all({QRectF(0, -900, 1440, 900)}, {}, {10, -20})},
        {"CGEventCreate", screens, good, all({whole}, whole, {0, 0})},
        {"CGEventGetLocation", screens, good, all({whole}, whole, {0, 900})},
    };
}

QList<Row> rowsOfSettings()
{
    const QVariant nothing;
    const QVariant both = QStringList{Us, Us + u"/Contents/Resources/Icon.png"_s};
    const QVariant neither = QStringList{QString(), QString()};
    const QVariant noResource = QStringList{Us, QString()};
    const QVariant noBundle = QStringList{QString(), Us + u"/Contents/Resources/Icon.png"_s};
    return {
        {"CFPreferencesCopyAppValue", settingStored, u"˄Z"_s, nothing},
        {"CFPreferencesSetAppValue", settingStored, u"˄Z"_s, nothing},
        {"CFStringCreateWithCharacters", settingStored, u"˄Z"_s, nothing},
        {"CFPreferencesAppSynchronize", settingStored, u"˄Z"_s, u"˄Z"_s},
        {"CFPreferencesSetAppValue", settingRemoved, nothing, true},
        {"CFBundleGetMainBundle", bundle, both, neither},
        {"CFBundleCopyBundleURL", bundle, both, noBundle},
        {"CFBundleCopyResourceURL", bundle, both, noResource},
        {"CFStringCreateWithCharacters", bundle, both, noResource},
        {"CFURLCopyAbsoluteURL", bundle, both, neither},
        {"CFURLCopyFileSystemPath", bundle, both, neither},
    };
}

QList<Row> rowsOfLoginItems()
{
    const QVariant nothing;
    const QString us = QUrl::fromLocalFile(Us).toString();
    const QString other = QUrl::fromLocalFile(Other).toString();
    const QStringList both{us, other};
    const QStringList unresolved{QString(), QString()};
    const Operation fileList = loginItemAddedAndRemoved<SharedFileListLoginItems>;
    const Operation service = loginItemAddedAndRemoved<AppServiceLoginItems>;
    const QVariant good = states(both, {other});
    const QVariant served = states({us}, {});
    return {
        {"dlsym", fileList, good, nothing},
        {"LSSharedFileListCreate", fileList, good, nothing},
        {"LSSharedFileListCopySnapshot", fileList, good, states({}, {})},
        {"CFArrayGetValueAtIndex", fileList, good, states({}, {})},
        {"LSSharedFileListItemResolve", fileList, good, states(unresolved, unresolved)},
        {"CFURLCopyAbsoluteURL", fileList, good, states(unresolved, unresolved)},
        {"LSSharedFileListInsertItemURL", fileList, good, states({other}, {other})},
        {"CFURLCreateWithFileSystemPath", fileList, good, states({other}, {other})},
        {"CFStringCreateWithCharacters", fileList, good, states({other}, {other})},
        {"LSSharedFileListItemRemove", fileList, good, states(both, both)},
        {"SMAppService", service, served, nothing},
        {"status", service, served, states({}, {})},
        {"registerAndReturnError", service, served, states({}, {})},
        {"unregisterAndReturnError", service, served, states({us}, {us})},
        {"CFBundleCopyBundleURL", service, served, states({}, {})},
    };
}

QList<Row> rows()
{
    return rowsOfElements() + rowsOfAccess() + rowsOfValuesRead() + rowsOfValuesWritten() + rowsOfKeys() +
           rowsOfButtons() + rowsOfTheLayout() + rowsOfScreens() + rowsOfSettings() + rowsOfLoginItems();
}

} // namespace

class FailedCallsTest : public MacTest
{
protected:
    void SetUp() override { start(); }

    void TearDown() override { mac.reset(); }

    /// A fresh system where every operation works.
    void start()
    {
        mac.reset();
        editor->attributes = {
            {u"Text"_s, u"Editor"_s},
            {u"Flag"_s, true},
            {u"Five"_s, 5},
            {u"Half"_s, 12.5},
            {u"List"_s, QVariantList{u"a"_s, u"b"_s}},
            {u"Dict"_s, QVariantMap{{u"key"_s, u"a"_s}}},
            {u"Link"_s, QUrl(u"https://example.org/"_s)},
            {u"Data"_s, QByteArray("bytes")},
            {u"Spot"_s, structured(AXValue(QPointF(1, 2)))},
            {u"Peer"_s, QVariant::fromValue(peer)},
        };
        editor->settable = {u"Text"_s};
        editor->actions = {{u"AXPress"_s, u"press"_s}};
        editor->processIdentifier = 100;
        peer->processIdentifier = 200;
        mac.accessGranted = true;
        mac.systemWide = std::make_shared<AxNode>();
        mac.applications = {editor, peer};
        mac.inputSource->characters = {{{6, 0}, u"z"_s}};
        mac.systemHotKeys = {{true, 49, 0x100}};
        mac.pointer = {10, 20};
        mac.preferences = {{u"FirstRun"_s, true}};
        mac.bundleResources = {u"Icon.png"_s};
        mac.loginItems = {Other};
        mac.appServiceStatus = 0;
    }

    /// That nothing was misused, and that nothing is left but what is kept for life and what the system
    /// itself did not take back.
    void expectNothingLeft(const QString& failed, const std::string& what)
    {
        EXPECT_EQ(mac.faults(), QStringList()) << what << mac.faults().join(u'\n').toStdString();
        QStringList left = mac.unreleased();
        left.removeIf([](const QString& function) { return KeptForLife.contains(function); });
        if (failed == u"PopSymbolicHotKeyMode"_s)
            left.removeOne(u"PushSymbolicHotKeyMode"_s);
        EXPECT_EQ(left, QStringList()) << what << left.join(u'\n').toStdString();
    }

    FakeClock clock;
    FakeWorkspace workspace;
    SharedPorts sharedPorts{clock, workspace};
    AxNodeRef editor = std::make_shared<AxNode>();
    AxNodeRef peer = std::make_shared<AxNode>();
};

TEST_F(FailedCallsTest, functionThatFails_givesTheNeutralResult)
{
    qsizetype number = 0;
    for (const Row& row : rows()) {
        const std::string what = std::string(row.function) + ", row " + std::to_string(number++) + ": ";
        start();
        const QVariant good = row.operation();
        EXPECT_EQ(good, row.good) << what << shown(good) << " though nothing fails";
        expectNothingLeft({}, what);
        start();
        mac.fail(QString::fromLatin1(row.function));
        const QVariant given = row.operation();
        EXPECT_EQ(given, row.neutral) << what << shown(given);
        EXPECT_FALSE(mac.callsOf(QString::fromLatin1(row.function)).isEmpty()) << what << "it was not called";
        expectNothingLeft(QString::fromLatin1(row.function), what);
    }
}

TEST_F(FailedCallsTest, everyFunctionThatTheAdaptersCanCall_hasItsRow)
{
    QStringList failing;
    for (const Row& row : rows())
        failing.append(QString::fromLatin1(row.function));
    const QStringList declared = declaredFunctions();
    EXPECT_GT(declared.size(), 60);
    for (const QString& function : declared)
        EXPECT_TRUE(failing.contains(function)) << function.toStdString();
}

TEST_F(FailedCallsTest, singleCallThatFails_isSurvived)
{
    qsizetype number = 0;
    for (const Row& row : rows()) {
        start();
        (void)row.operation();
        const QStringList calls = mac.functionsCalled();
        ASSERT_FALSE(calls.isEmpty());
        for (qsizetype i = 0; i < calls.size(); ++i) {
            start();
            mac.failOnly(i);
            (void)row.operation();
            expectNothingLeft(calls.at(i), calls.at(i).toStdString() + ", call " + std::to_string(i) +
                                               " of the operation in row " + std::to_string(number) + ": ");
        }
        ++number;
    }
}

} // namespace tarnwick
