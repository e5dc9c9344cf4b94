// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderCell.h"

#include "foundation/Alerts.h"
#include "foundation/Application.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "shortcut/ColorMixing.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/SRAdditions.h"
#include "shortcut/ShownKeys.h"

#include <QGuiApplication>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 EscapeKey = 53;
constexpr quint16 DeleteKey = 51;
constexpr quint16 ForwardDeleteKey = 117;

QString defaultsKey(const QString& autosaveName)
{
    return filledIn(u"ShortcutRecorder %@"_s, {autosaveName});
}

quint64 currentEventModifierFlags()
{
    const auto event = Application::shared().currentEvent();
    return event ? event->modifierFlags : 0;
}

} // namespace

SRRecorderCell::SRRecorderCell()
    : _transition([this] { _setNeedsDisplay(); },
                  [this](bool towardsRecording) {
                      if (towardsRecording)
                          _startRecording();
                      else
                          _endRecording();
                  })
{
    _privateInit();
}

SRRecorderCell::SRRecorderCell(Archive& archive) : SRRecorderCell()
{
    _state.decode(archive);
    _loadKeyCombo();
}

SRRecorderCell::~SRRecorderCell()
{
    _popSymbolicHotKeyMode();
}

void SRRecorderCell::_privateInit()
{
    _validator = std::make_unique<SRValidator>(this);
    _cancelCharacterSet = {EscapeKey, DeleteKey, ForwardDeleteKey};
    _systemColorsObserver = NotificationCenter::defaultCenter().addObserver(
        SystemColorsDidChangeNotification, nullptr, [this](const Notification&) { _createGradient(); });
    _createGradient();
    _loadKeyCombo();
}

void SRRecorderCell::_createGradient()
{
    const QPalette palette = _state.controlView ? _state.controlView->palette() : QGuiApplication::palette();
    constexpr double Level = 0.2;
    constexpr double Alpha = 0.9;
    Gradient gradient{shadowed(palette.color(QPalette::Active, QPalette::Highlight), Level),
                      highlighted(palette.color(QPalette::Active, QPalette::Highlight), Level)};
    gradient.starting.setAlphaF(Alpha);
    gradient.ending.setAlphaF(Alpha);
    _state.recordingGradient = std::make_shared<const Gradient>(gradient);
}

std::unique_ptr<SRRecorderCell> SRRecorderCell::copy() const
{
    auto copied = std::make_unique<SRRecorderCell>();
    copied->_state = _state;
    return copied;
}

// Archives and settings

void SRRecorderCell::encodeWithCoder(Archive& archive) const
{
    _state.encode(archive);
}

void SRRecorderCell::_saveKeyCombo() const
{
    if (_state.autosaveName.isEmpty())
        return;
    UserDefaultsController::sharedUserDefaultsController().setValueForKeyPath(
        _state.dictionary(), u"values."_s + defaultsKey(_state.autosaveName));
}

void SRRecorderCell::_loadKeyCombo()
{
    if (_state.autosaveName.isEmpty())
        return;
    _state.setDictionary(UserDefaults::standardUserDefaults()
                             .dictionaryForKey(defaultsKey(_state.autosaveName))
                             .value_or(QVariantMap()));
    if (_state.delegate)
        _state.delegate->shortcutRecorderCellKeyComboDidChange(*this, _state.keyCombo);
    _setNeedsDisplay();
}

// Settings of the cell

void SRRecorderCell::setAllowsKeyOnlyEscapeKeysRecord(bool allowsKeyOnly, bool escapeKeysRecord)
{
    _state.allowsKeyOnly = allowsKeyOnly;
    _state.escapeKeysRecord = escapeKeysRecord;
}

void SRRecorderCell::setAllowedFlags(quint64 flags)
{
    _state.allowedFlags = flags;
    _flagsSettingDidChange();
}

void SRRecorderCell::setRequiredFlags(quint64 flags)
{
    _state.requiredFlags = flags;
    _flagsSettingDidChange();
}

void SRRecorderCell::_flagsSettingDidChange()
{
    if (_state.isRecording) {
        _state.recordingFlags = _filteredCocoaFlags(currentEventModifierFlags());
    } else if (const quint64 filtered = _filteredCocoaFlags(_state.keyCombo.flags);
               filtered != _state.keyCombo.flags) {
        _state.keyCombo.flags = filtered;
        if (_state.keyCombo.code >= 0)
            _keyComboDidChange();
    }
    _setNeedsDisplay();
}

void SRRecorderCell::setKeyCombo(const KeyCombo& keyCombo)
{
    _state.keyCombo = {_filteredCocoaFlags(keyCombo.flags), keyCombo.code};
    _state.hasKeyChars = false;
    _keyComboDidChange();
    _setNeedsDisplay();
}

void SRRecorderCell::_keyComboDidChange()
{
    if (_state.delegate)
        _state.delegate->shortcutRecorderCellKeyComboDidChange(*this, _state.keyCombo);
    _saveKeyCombo();
}

void SRRecorderCell::_setNeedsDisplay()
{
    if (_state.controlView)
        _state.controlView->setNeedsDisplay();
}

quint64 SRRecorderCell::_filteredCocoaFlags(quint64 flags) const
{
    return _state.filtered(flags);
}

quint64 SRRecorderCell::_filteredCocoaToCarbonFlags(quint64 flags) const
{
    return SRCocoaToCarbonFlags(_filteredCocoaFlags(flags));
}

bool SRRecorderCell::_validModifierFlags(quint64 flags) const
{
    return _state.valid(flags);
}

// What the combination reads as

std::optional<QString> SRRecorderCell::keyChars() const
{
    return _state.hasKeyChars ? _state.keyChars : SRStringForKeyCode(_state.keyCombo.code);
}

std::optional<QString> SRRecorderCell::keyCharsIgnoringModifiers() const
{
    return _state.hasKeyChars
               ? _state.keyCharsIgnoringModifiers
               : SRCharacterForKeyCodeAndCocoaFlags(_state.keyCombo.code, _state.keyCombo.flags);
}

bool SRRecorderCell::isEmpty() const
{
    return !_validModifierFlags(_state.keyCombo.flags) ||
           SRStringForKeyCode(_state.keyCombo.code).value_or(QString()).isEmpty();
}

std::optional<QString> SRRecorderCell::keyComboString() const
{
    if (isEmpty())
        return std::nullopt;
    return SRStringForCocoaModifierFlagsAndKeyCode(_state.keyCombo.flags, _state.keyCombo.code);
}

// Keys

bool SRRecorderCell::performKeyEquivalent(const Event& event)
{
    const quint64 filtered = _filteredCocoaFlags(event.modifierFlags);
    const bool cancelKey = _cancelCharacterSet.contains(event.keyCode);
    const bool valid = _validModifierFlags(cancelKey ? event.modifierFlags : filtered);
    if (!_state.isRecording && event.characters == u" ") {
        _startRecordingTransition();
        return true;
    }
    if (!_state.isRecording || (!valid && !cancelKey)) {
        _startRecordingForSpace(event);
        return false;
    }

    if (_recordsKey(filtered, cancelKey, valid) && _record(event, filtered) == Outcome::Refused)
        return true;
    _state.recordingFlags = 0;
    _endRecordingTransition();
    resetTrackingRects();
    _setNeedsDisplay();
    return true;
}

bool SRRecorderCell::_recordsKey(quint64 filtered, bool cancelKey, bool valid) const
{
    if (!cancelKey)
        return true;
    const bool keyAlone = filtered == 0 || filtered == FunctionKeyMask;
    return valid && !(_state.allowsKeyOnly && keyAlone && !_state.escapeKeysRecord);
}

SRRecorderCell::Outcome SRRecorderCell::_record(const Event& event, quint64 filtered)
{
    if (event.charactersIgnoringModifiers.toUpper().isEmpty()) {
        Application::shared().beep();
        return Outcome::Cancelled;
    }
    std::optional<SRError> error;
    if (_validator->isKeyCodeAndFlagsTakenError(event.keyCode, _filteredCocoaToCarbonFlags(filtered),
                                                &error)) {
        _showRefusal(error);
        return Outcome::Refused;
    }
    _state.keyCombo = {filtered, event.keyCode};
    _state.hasKeyChars = true;
    _state.keyChars = event.characters;
    _state.keyCharsIgnoringModifiers = event.charactersIgnoringModifiers;
    _keyComboDidChange();
    _comboJustChanged = true;
    return Outcome::Recorded;
}

void SRRecorderCell::_showRefusal(const std::optional<SRError>& error)
{
    Alert alert = alertWithNonRecoverableError(error);
    alert.style = Alert::Style::Critical;
    Alerts::shared().runModal(alert);
    flagsChanged(Application::shared().currentEvent().value_or(Event()));
}

void SRRecorderCell::_startRecordingForSpace(const Event& event)
{
    const bool firstResponder = _state.controlView && _state.controlView->isFirstResponder();
    if (firstResponder && event.characters.startsWith(u' ') && _state.enabled)
        _startRecordingTransition();
}

void SRRecorderCell::flagsChanged(const Event& event)
{
    if (!_state.isRecording)
        return;
    _state.recordingFlags = _filteredCocoaFlags(event.modifierFlags);
    _setNeedsDisplay();
}

bool SRRecorderCell::becomeFirstResponder()
{
    resetTrackingRects();
    _setNeedsDisplay();
    return true;
}

bool SRRecorderCell::resignFirstResponder()
{
    // A transition that is on its way to recording turns round: nobody types into this cell any more.
    if (_state.isRecording || (isAnimatingNow() && isAnimatingTowardsRecording()))
        _endRecordingTransition();
    resetTrackingRects();
    _setNeedsDisplay();
    return true;
}

// Recording and the transitions into and out of it

bool SRRecorderCell::_effectiveIsAnimating() const
{
    return _state.isAnimating && styleSupportsAnimation(_state.style);
}

void SRRecorderCell::_startRecordingTransition()
{
    if (_effectiveIsAnimating())
        _transition.start(true);
    else
        _startRecording();
}

void SRRecorderCell::_endRecordingTransition()
{
    if (_effectiveIsAnimating())
        _transition.start(false);
    else
        _endRecording();
}

void SRRecorderCell::_startRecording()
{
    _state.isRecording = true;
    _state.recordingFlags = _filteredCocoaFlags(0);
    _setNeedsDisplay();
    if (_state.controlView)
        _state.controlView->setKeyboardFocusRingNeedsDisplay();
    if (_state.globalHotKeys)
        _pushSymbolicHotKeyMode();
}

void SRRecorderCell::_endRecording()
{
    _state.isRecording = false;
    _comboJustChanged = false;
    _setNeedsDisplay();
    if (_state.controlView)
        _state.controlView->setKeyboardFocusRingNeedsDisplay();
    _popSymbolicHotKeyMode();
}

// A push that is still held is given back first, so that starting twice leaves nothing switched off; and a
// pop needs only a push, not the setting, which may have changed meanwhile.
void SRRecorderCell::_pushSymbolicHotKeyMode()
{
    _popSymbolicHotKeyMode();
    _hotKeyModeToken = SymbolicHotKeys::shared().pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
}

void SRRecorderCell::_popSymbolicHotKeyMode()
{
    if (_hotKeyModeToken != 0)
        SymbolicHotKeys::shared().popSymbolicHotKeyMode(std::exchange(_hotKeyModeToken, 0));
}

// Its validator's delegate

bool SRRecorderCell::shortcutValidatorIsKeyCodeAndFlagsTakenReason(SRValidator& /*validator*/, qint64 keyCode,
                                                                   quint64 cocoaFlags,
                                                                   std::optional<QString>& reason)
{
    return _state.delegate && _state.delegate->shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(
                                  *this, keyCode, cocoaFlags, reason);
}

// Its texts and images, by state

QString SRRecorderCell::displayedText() const
{
    return _state.isRecording ? _recordingText() : _idleText();
}

QString SRRecorderCell::_idleText() const
{
    return isEmpty() ? localized("Click to record shortcut") : shownKeyCombo(_state.keyCombo);
}

QString SRRecorderCell::_recordingText() const
{
    if (_validModifierFlags(_state.recordingFlags)) {
        const QString held = shownModifiers(_state.recordingFlags);
        return held.isEmpty() ? localized("Type shortcut") : held;
    }
    return _state.mouseInsideTrackingArea ? localized("Use old shortcut") : localized("Type shortcut");
}

QString SRRecorderCell::_removeImageName() const
{
    QString suffix = u""_s;
    if (_state.mouseInsideTrackingArea && _state.mouseDown)
        suffix = u"Pressed"_s;
    else if (_state.mouseInsideTrackingArea || _state.mouseDown)
        suffix = u"Rollover"_s;
    return filledIn(u"SRRemoveShortcut%@"_s, {suffix});
}

} // namespace tarnwick
