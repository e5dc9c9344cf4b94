// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/GlobalHotKeys.h"

#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "platform/linux/globalkeys/TriggerNotation.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "shortcut/ModifierFlags.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr quint32 Modifiers = CarbonCommandKey | CarbonShiftKey | CarbonOptionKey | CarbonControlKey;
/// What the setting is before a button was learned.
constexpr quint64 AnyExtraButton = 25;
constexpr quint64 FirstButtonAtTheSide = 3;
/// Between the lines in the setting.
constexpr char16_t Between = u'\f';

bool hasWorked(const QString& line)
{
    const auto known = UserDefaults::standardUserDefaults().objectForKey(TWLinesThatWorkKey).toString();
    return known.split(Between, Qt::SkipEmptyParts).contains(line);
}

TriggerHint hintOf(const trigger_notation::Line& line)
{
    return {TriggerHint::Kind::Line, line.text, line.place, hasWorked(line.text)};
}

} // namespace

GlobalHotKeys::GlobalHotKeys(Session session) : _session(std::move(session)), _presses(_session.order) {}

GlobalHotKeys::~GlobalHotKeys() = default;

void GlobalHotKeys::installEventHandler(std::function<qint32()> handler)
{
    _presses.addHandler(std::move(handler));
}

std::optional<EventHotKeyRef> GlobalHotKeys::registerEventHotKey(quint32 keyCode, quint32 modifiers,
                                                                 EventHotKeyID /*id*/, quint32 /*options*/)
{
    const auto key = keyOf(keyCode, modifiers);
    if (!key || isRegistered(keyCode, modifiers))
        return std::nullopt;
    const Registered hotKey{keyCode, modifiers & Modifiers, _freeAction()};
    const auto place = _registered.emplace(++_lastRef, hotKey).first;
    if (!take(hotKey, *key)) {
        _registered.erase(place);
        return std::nullopt;
    }
    return place->first;
}

bool GlobalHotKeys::unregisterEventHotKey(EventHotKeyRef hotKey)
{
    const auto found = _registered.find(hotKey);
    if (found == _registered.end())
        return false;
    const Registered former = found->second;
    _registered.erase(found);
    _presses.released(); // nobody tells of it any more
    giveBack(former);
    return true;
}

TriggerHint GlobalHotKeys::mouseButtonHint(quint64 button) const
{
    const quint64 meant = button == AnyExtraButton ? FirstButtonAtTheSide : button;
    const auto line = trigger_notation::lineForButton(_session.compositor, meant);
    return line ? hintOf(*line) : TriggerHint{TriggerHint::Kind::Unavailable};
}

std::optional<QString> GlobalHotKeys::ownerOf(quint32 /*keyCode*/, quint32 /*modifiers*/) const
{
    return std::nullopt;
}

void GlobalHotKeys::addChangeObserver(std::function<void()> changed)
{
    _observers.push_back(std::move(changed));
}

QString GlobalHotKeys::actionName()
{
    return tr("Open the Menu at the Pointer");
}

void GlobalHotKeys::setBus(const QDBusConnection& /*bus*/) {}

void GlobalHotKeys::layoutChanged()
{
    changed();
}

void GlobalHotKeys::menuWasAskedFor(PopUpTrigger::Kind by)
{
    const QString line = _advisedFor(by);
    if (line.isEmpty() || hasWorked(line))
        return;
    QStringList lines{line};
    const QString other =
        _advisedFor(by == PopUpTrigger::Kind::Key ? PopUpTrigger::Kind::Pointer : PopUpTrigger::Kind::Key);
    if (hasWorked(other))
        lines.append(other);
    UserDefaults::standardUserDefaults().setObjectForKey(lines.join(Between), TWLinesThatWorkKey);
    changed();
}

/// The line of the settings' hot key or mouse button; empty where that is switched off, or has none.
QString GlobalHotKeys::_advisedFor(PopUpTrigger::Kind trigger) const
{
    const auto& defaults = UserDefaults::standardUserDefaults();
    const bool isKey = trigger == PopUpTrigger::Kind::Key;
    if (!defaults.boolForKey(isKey ? TWEnableHotKeyKey : TWEnableMouseButtonKey))
        return {};
    if (!isKey)
        return mouseButtonHint(defaults.unsignedForKey(TWMouseButtonKey)).text;
    const auto flags = SRCocoaToCarbonFlags(defaults.unsignedForKey(TWTriggerModifiersKey));
    return configurationHint(quint32(defaults.unsignedForKey(TWTriggerCharacterKey)), quint32(flags)).text;
}

bool GlobalHotKeys::isRegistered(quint32 keyCode, quint32 modifiers) const
{
    return std::ranges::any_of(_registered, [&](const auto& entry) {
        return entry.second.keyCode == keyCode && entry.second.modifiers == (modifiers & Modifiers);
    });
}

std::optional<TriggerKey> GlobalHotKeys::keyOf(quint32 keyCode, quint32 modifiers) const
{
    return TriggerKey::of(keyCode, modifiers, _session.texts);
}

TriggerHint GlobalHotKeys::configurationHint(quint32 keyCode, quint32 modifiers) const
{
    const auto key = keyOf(keyCode, modifiers);
    const auto line = key ? trigger_notation::lineFor(_session.compositor, *key) : std::nullopt;
    if (line)
        return hintOf(*line);
    const QString command = trigger_notation::popUpCommand();
    return {TriggerHint::Kind::Command, command, {}, hasWorked(command)};
}

void GlobalHotKeys::changed() const
{
    const auto observers = _observers;
    for (const auto& observer : observers)
        observer();
}

QString GlobalHotKeys::_freeAction() const
{
    const auto isFree = [this](const QString& action) {
        return std::ranges::none_of(_registered,
                                    [&](const auto& entry) { return entry.second.action == action; });
    };
    QString action = desktop_names::PopUpAction;
    for (int number = 2; !isFree(action); ++number)
        action = desktop_names::PopUpAction + u'-' + QString::number(number);
    return action;
}

} // namespace tarnwick

#include "moc_GlobalHotKeys.cpp"
