// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderCell.h"

#include "foundation/Alerts.h"
#include "foundation/Application.h"
#include "foundation/EventSource.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "shortcut/Archive.h"
#include "shortcut/ColorMixing.h"
#include "shortcut/Geometry.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/Numbers.h"
#include "shortcut/SRAdditions.h"
#include "shortcut/SRSharedImageProvider.h"

#include <QGuiApplication>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 AllModifiers =
    CommandKeyMask | AlternateKeyMask | ControlKeyMask | ShiftKeyMask | FunctionKeyMask;

constexpr quint16 EscapeKey = 53;
constexpr quint16 DeleteKey = 51;
constexpr quint16 ForwardDeleteKey = 117;

constexpr quint64 MouseUpAndDragged =
    1U << quint32(Event::Type::LeftMouseUp) | 1U << quint32(Event::Type::LeftMouseDragged);

// Single precision on purpose: the eleventh tick is then the last one.
constexpr float SecondsPerTick = 1.0F / 30.0F;
constexpr float ProgressPerTick = 2.0F / 21.0F;
constexpr double TransitionEnd = 0.998;

QString defaultsKey(const QString& autosaveName)
{
    return filledIn(u"ShortcutRecorder %@"_s, {autosaveName});
}

quint64 currentEventModifierFlags()
{
    const auto event = Application::shared().currentEvent();
    return event ? event->modifierFlags : 0;
}

std::optional<QString> stringIn(const QVariantMap& dictionary, const QString& key)
{
    const QVariant value = dictionary.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

quint64 flagsIn(const QVariantMap& dictionary)
{
    if (dictionary.contains(u"modifierFlags"_s))
        return static_cast<quint64>(wholeNumber(dictionary.value(u"modifierFlags"_s)).value_or(0));
    return SRCarbonToCocoaFlags(
        static_cast<quint64>(wholeNumber(dictionary.value(u"modifiers"_s)).value_or(0)));
}

} // namespace

SRRecorderCell::SRRecorderCell()
{
    _privateInit();
}

SRRecorderCell::SRRecorderCell(Archive& archive)
{
    _privateInit();
    if (archive.allowsKeyedCoding())
        _decodeKeyed(archive);
    else
        _decodeUnkeyed(archive);
    _allowedFlags |= FunctionKeyMask; // archives from before function keys could be recorded lack it
    _loadKeyCombo();
}

SRRecorderCell::~SRRecorderCell()
{
    _popSymbolicHotKeyMode();
}

void SRRecorderCell::_privateInit()
{
    _validator = std::make_unique<SRValidator>(this);
    _allowedFlags = AllModifiers;
    _cancelCharacterSet = {EscapeKey, DeleteKey, ForwardDeleteKey};
    _systemColorsObserver = NotificationCenter::defaultCenter().addObserver(
        SystemColorsDidChangeNotification, nullptr, [this](const Notification&) { _createGradient(); });
    _createGradient();
    _loadKeyCombo();
}

void SRRecorderCell::_createGradient()
{
    const QPalette palette = _controlView ? _controlView->palette() : QGuiApplication::palette();
    constexpr double Level = 0.2;
    constexpr double Alpha = 0.9;
    Gradient gradient{shadowed(palette.color(QPalette::Active, QPalette::Highlight), Level),
                      highlighted(palette.color(QPalette::Active, QPalette::Highlight), Level)};
    gradient.starting.setAlphaF(Alpha);
    gradient.ending.setAlphaF(Alpha);
    _recordingGradient = std::make_shared<const Gradient>(gradient);
}

std::unique_ptr<SRRecorderCell> SRRecorderCell::copy() const
{
    auto copied = std::make_unique<SRRecorderCell>();
    copied->_recordingGradient = _recordingGradient;
    copied->_autosaveName = _autosaveName;
    copied->_isRecording = _isRecording;
    copied->_mouseInsideTrackingArea = _mouseInsideTrackingArea;
    copied->_mouseDown = _mouseDown;
    copied->_style = _style;
    copied->_isAnimating = _isAnimating;
    copied->_removeTrackingRectTag = _removeTrackingRectTag;
    copied->_snapbackTrackingRectTag = _snapbackTrackingRectTag;
    copied->_keyCombo = _keyCombo;
    copied->_hasKeyChars = _hasKeyChars;
    copied->_keyChars = _keyChars;
    copied->_keyCharsIgnoringModifiers = _keyCharsIgnoringModifiers;
    copied->_allowedFlags = _allowedFlags;
    copied->_requiredFlags = _requiredFlags;
    copied->_recordingFlags = _recordingFlags;
    copied->_allowsKeyOnly = _allowsKeyOnly;
    copied->_escapeKeysRecord = _escapeKeysRecord;
    copied->_cancelCharacterSet = _cancelCharacterSet;
    copied->_delegate = _delegate;
    copied->_globalHotKeys = _globalHotKeys;
    copied->_enabled = _enabled;
    copied->_controlView = _controlView;
    return copied;
}

// Archives and settings

void SRRecorderCell::encodeWithCoder(Archive& archive) const
{
    const QCborValue name = _autosaveName.isNull() ? QCborValue(nullptr) : QCborValue(_autosaveName);
    const auto code = static_cast<qint16>(_keyCombo.code);
    const auto flags = static_cast<qint64>(_keyCombo.flags);
    const auto allowedFlags = static_cast<qint64>(_allowedFlags);
    const auto requiredFlags = static_cast<qint64>(_requiredFlags);
    if (!archive.allowsKeyedCoding()) {
        for (const QCborValue& value :
             {name, QCborValue(code), QCborValue(flags), QCborValue(allowedFlags), QCborValue(requiredFlags)})
            archive.encode(value);
        return;
    }
    archive.encode(name, u"autosaveName");
    archive.encode(code, u"keyComboCode");
    archive.encode(flags, u"keyComboFlags");
    archive.encode(allowedFlags, u"allowedFlags");
    archive.encode(requiredFlags, u"requiredFlags");
    if (_hasKeyChars) {
        archive.encode(_keyChars.value_or(QString()), u"keyChars");
        archive.encode(_keyCharsIgnoringModifiers.value_or(QString()), u"keyCharsIgnoringModifiers");
    }
    archive.encode(_allowsKeyOnly, u"allowsKeyOnly");
    archive.encode(_escapeKeysRecord, u"escapeKeysRecord");
    archive.encode(_isAnimating, u"isAnimating");
    archive.encode(_style, u"style");
}

void SRRecorderCell::_decodeKeyed(const Archive& archive)
{
    _autosaveName = archive.decodeString(u"autosaveName").value_or(QString());
    _keyCombo.code = static_cast<qint16>(archive.decodeInteger(u"keyComboCode"));
    _keyCombo.flags = static_cast<quint64>(archive.decodeInteger(u"keyComboFlags"));
    _allowedFlags = static_cast<quint64>(archive.decodeInteger(u"allowedFlags"));
    _requiredFlags = static_cast<quint64>(archive.decodeInteger(u"requiredFlags"));
    _keyChars = archive.decodeString(u"keyChars");
    _keyCharsIgnoringModifiers = archive.decodeString(u"keyCharsIgnoringModifiers");
    _hasKeyChars = _keyChars.has_value();
    _allowsKeyOnly = archive.decodeBool(u"allowsKeyOnly");
    _escapeKeysRecord = archive.decodeBool(u"escapeKeysRecord");
    _isAnimating = archive.decodeBool(u"isAnimating");
    setStyle(static_cast<qint16>(archive.decodeInteger(u"style")));
}

void SRRecorderCell::_decodeUnkeyed(Archive& archive)
{
    _autosaveName = archive.decodeString().value_or(QString());
    _keyCombo.code = static_cast<qint16>(archive.decodeInteger());
    _keyCombo.flags = static_cast<quint64>(archive.decodeInteger());
    _allowedFlags = static_cast<quint64>(archive.decodeInteger());
    _requiredFlags = static_cast<quint64>(archive.decodeInteger());
}

void SRRecorderCell::_saveKeyCombo() const
{
    if (_autosaveName.isEmpty())
        return;
    QVariantMap dictionary{
        {u"keyCode"_s, static_cast<qint16>(_keyCombo.code)},
        {u"modifierFlags"_s, _keyCombo.flags},
        {u"modifiers"_s, SRCocoaToCarbonFlags(_keyCombo.flags)},
    };
    if (_hasKeyChars) {
        dictionary.insert(u"keyChars"_s, _keyChars.value_or(QString()));
        dictionary.insert(u"keyCharsIgnoringModifiers"_s, _keyCharsIgnoringModifiers.value_or(QString()));
    }
    UserDefaultsController::sharedUserDefaultsController().setValueForKeyPath(
        dictionary, u"values."_s + defaultsKey(_autosaveName));
}

void SRRecorderCell::_loadKeyCombo()
{
    if (_autosaveName.isEmpty())
        return;
    const QVariantMap dictionary = UserDefaults::standardUserDefaults()
                                       .dictionaryForKey(defaultsKey(_autosaveName))
                                       .value_or(QVariantMap());
    _keyCombo.code = static_cast<qint16>(wholeNumber(dictionary.value(u"keyCode"_s)).value_or(0));
    _keyCombo.flags = _filteredCocoaFlags(flagsIn(dictionary));
    _keyChars = stringIn(dictionary, u"keyChars"_s);
    _keyCharsIgnoringModifiers = stringIn(dictionary, u"keyCharsIgnoringModifiers"_s);
    _hasKeyChars = _keyChars.has_value();
    if (_delegate)
        _delegate->shortcutRecorderCellKeyComboDidChange(*this, _keyCombo);
    _setNeedsDisplay();
}

// Settings of the cell

void SRRecorderCell::setStyle(qint32 style)
{
    _style = style == 1 ? 1 : 0;
}

void SRRecorderCell::setAllowsKeyOnlyEscapeKeysRecord(bool allowsKeyOnly, bool escapeKeysRecord)
{
    _allowsKeyOnly = allowsKeyOnly;
    _escapeKeysRecord = escapeKeysRecord;
}

void SRRecorderCell::setAllowedFlags(quint64 flags)
{
    _allowedFlags = flags;
    _flagsSettingDidChange();
}

void SRRecorderCell::setRequiredFlags(quint64 flags)
{
    _requiredFlags = flags;
    _flagsSettingDidChange();
}

void SRRecorderCell::_flagsSettingDidChange()
{
    if (_isRecording) {
        _recordingFlags = _filteredCocoaFlags(currentEventModifierFlags());
    } else if (const quint64 filtered = _filteredCocoaFlags(_keyCombo.flags); filtered != _keyCombo.flags) {
        _keyCombo.flags = filtered;
        if (_keyCombo.code >= 0)
            _keyComboDidChange();
    }
    _setNeedsDisplay();
}

void SRRecorderCell::setKeyCombo(const KeyCombo& keyCombo)
{
    _keyCombo = {_filteredCocoaFlags(keyCombo.flags), keyCombo.code};
    _hasKeyChars = false;
    _keyComboDidChange();
    _setNeedsDisplay();
}

void SRRecorderCell::_keyComboDidChange()
{
    if (_delegate)
        _delegate->shortcutRecorderCellKeyComboDidChange(*this, _keyCombo);
    _saveKeyCombo();
}

void SRRecorderCell::_setNeedsDisplay()
{
    if (_controlView)
        _controlView->setNeedsDisplay();
}

quint64 SRRecorderCell::_filteredCocoaFlags(quint64 flags) const
{
    return AllModifiers & (_requiredFlags | (flags & _allowedFlags));
}

quint64 SRRecorderCell::_filteredCocoaToCarbonFlags(quint64 flags) const
{
    return SRCocoaToCarbonFlags(_filteredCocoaFlags(flags));
}

bool SRRecorderCell::_validModifierFlags(quint64 flags) const
{
    return _allowsKeyOnly || (flags & AllModifiers) != 0;
}

// What the combination reads as

std::optional<QString> SRRecorderCell::keyChars() const
{
    return _hasKeyChars ? _keyChars : SRStringForKeyCode(_keyCombo.code);
}

std::optional<QString> SRRecorderCell::keyCharsIgnoringModifiers() const
{
    return _hasKeyChars ? _keyCharsIgnoringModifiers
                        : SRCharacterForKeyCodeAndCocoaFlags(_keyCombo.code, _keyCombo.flags);
}

bool SRRecorderCell::isEmpty() const
{
    return !_validModifierFlags(_keyCombo.flags) ||
           SRStringForKeyCode(_keyCombo.code).value_or(QString()).isEmpty();
}

std::optional<QString> SRRecorderCell::keyComboString() const
{
    if (isEmpty())
        return std::nullopt;
    return SRStringForCocoaModifierFlagsAndKeyCode(_keyCombo.flags, _keyCombo.code);
}

// Keys

bool SRRecorderCell::performKeyEquivalent(const Event& event)
{
    const quint64 filtered = _filteredCocoaFlags(event.modifierFlags);
    const bool cancelKey = _cancelCharacterSet.contains(event.keyCode);
    const bool valid = _validModifierFlags(cancelKey ? event.modifierFlags : filtered);
    if (!_isRecording && event.characters == u" ") {
        _startRecordingTransition();
        return true;
    }
    if (!_isRecording || (!valid && !cancelKey)) {
        _startRecordingForSpace(event);
        return false;
    }

    if (_recordsKey(filtered, cancelKey, valid) && _record(event, filtered) == Outcome::Refused)
        return true;
    _recordingFlags = 0;
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
    return valid && !(_allowsKeyOnly && keyAlone && !_escapeKeysRecord);
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
    _keyCombo = {filtered, event.keyCode};
    _hasKeyChars = true;
    _keyChars = event.characters;
    _keyCharsIgnoringModifiers = event.charactersIgnoringModifiers;
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
    const bool firstResponder = _controlView && _controlView->isFirstResponder();
    if (firstResponder && event.characters.startsWith(u' ') && _enabled)
        _startRecordingTransition();
}

void SRRecorderCell::flagsChanged(const Event& event)
{
    if (!_isRecording)
        return;
    _recordingFlags = _filteredCocoaFlags(event.modifierFlags);
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
    if (_isRecording || (_isAnimatingNow && _isAnimatingTowardsRecording))
        _endRecordingTransition();
    resetTrackingRects();
    _setNeedsDisplay();
    return true;
}

// Recording and the transitions into and out of it

bool SRRecorderCell::_effectiveIsAnimating() const
{
    return _isAnimating && styleSupportsAnimation(_style);
}

void SRRecorderCell::_startRecordingTransition()
{
    if (_effectiveIsAnimating())
        _startTransition(true);
    else
        _startRecording();
}

void SRRecorderCell::_endRecordingTransition()
{
    if (_effectiveIsAnimating())
        _startTransition(false);
    else
        _endRecording();
}

void SRRecorderCell::_startTransition(bool towardsRecording)
{
    _isAnimatingTowardsRecording = towardsRecording;
    _isAnimatingNow = true;
    _transitionProgress = 0;
    _scheduleTick();
}

void SRRecorderCell::_scheduleTick()
{
    _pendingTick = Clock::shared().performAfterDelay(SecondsPerTick, [this] { _tick(); });
}

void SRRecorderCell::_tick()
{
    _transitionProgress += ProgressPerTick;
    if (_transitionProgress < TransitionEnd) {
        _setNeedsDisplay();
        _scheduleTick();
        return;
    }
    _isAnimatingNow = false;
    _transitionProgress = 0;
    if (_isAnimatingTowardsRecording)
        _startRecording();
    else
        _endRecording();
}

void SRRecorderCell::_startRecording()
{
    _isRecording = true;
    _recordingFlags = _filteredCocoaFlags(0);
    _setNeedsDisplay();
    if (_controlView)
        _controlView->setKeyboardFocusRingNeedsDisplay();
    if (_globalHotKeys)
        _pushSymbolicHotKeyMode();
}

void SRRecorderCell::_endRecording()
{
    _isRecording = false;
    _comboJustChanged = false;
    _setNeedsDisplay();
    if (_controlView)
        _controlView->setKeyboardFocusRingNeedsDisplay();
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

// The mouse

QRectF SRRecorderCell::removeButtonRectForFrame(const QRectF& cellFrame) const
{
    if (isEmpty() || !_enabled)
        return {};
    const QSizeF image = SRSharedImageProvider::supportingImageWithName(u"SRRemoveShortcut"_s)->size();
    // Halves the frame's y as well, on purpose: frames begin at 0.
    return {{cellFrame.x() + cellFrame.width() - image.width() - 4.0,
             (cellFrame.y() + cellFrame.height() - image.height()) * 0.5},
            image};
}

QRectF SRRecorderCell::snapbackRectForFrame(const QRectF& cellFrame) const
{
    const QSizeF image = SRSharedImageProvider::supportingImageWithName(u"SRSnapback"_s)->size();
    return {{cellFrame.x() + cellFrame.width() - image.width() - 2.0,
             (cellFrame.y() + cellFrame.height() - image.height()) * 0.5 + 1.0},
            image};
}

bool SRRecorderCell::trackMouseInRectOfViewUntilMouseUp(const Event& event, const QRectF& cellFrame,
                                                        RecorderCellView& view, bool /*untilMouseUp*/)
{
    const QRectF buttonRect =
        _isRecording ? snapbackRectForFrame(cellFrame) : removeButtonRectForFrame(cellFrame);
    QRectF mainArea = cellFrame;
    if (!buttonRect.isNull())
        mainArea.setWidth(mainArea.width() - (4.0 + buttonRect.width()));

    for (Event current = event;;) {
        const bool insideButton = isInside(view.convertPointFromWindow(current.locationInWindow), buttonRect);
        if (current.type == Event::Type::LeftMouseDown) {
            if (insideButton) {
                _mouseDown = true;
                view.setNeedsDisplay();
            }
        } else if (current.type == Event::Type::LeftMouseDragged) {
            _mouseInsideTrackingArea = insideButton;
            view.setNeedsDisplay();
        } else {
            _finishTracking(current, buttonRect, mainArea, view);
            return true;
        }
        const auto next = EventSource::shared().nextEventMatchingMask(MouseUpAndDragged);
        if (!next)
            return true;
        current = *next;
    }
}

void SRRecorderCell::_finishTracking(const Event& event, const QRectF& buttonRect, const QRectF& mainArea,
                                     RecorderCellView& view)
{
    const QPointF location = view.convertPointFromWindow(event.locationInWindow);
    _mouseDown = false;
    _mouseInsideTrackingArea = isInside(location, buttonRect);
    if (_mouseInsideTrackingArea) {
        if (_isRecording)
            _endRecordingTransition();
        else
            setKeyCombo({0, -1});
    } else if (isInside(location, mainArea) && !_isRecording && _enabled) {
        _startRecordingTransition();
    }
    if (_enabled)
        view.makeFirstResponder();
    resetTrackingRects();
    view.setNeedsDisplay();
}

void SRRecorderCell::resetTrackingRects()
{
    if (!_controlView)
        return;
    if (!_enabled) {
        _controlView->removeTrackingRect(_removeTrackingRectTag);
        _controlView->removeTrackingRect(_snapbackTrackingRectTag);
        return;
    }
    if (_isRecording)
        _resetTrackingRect(snapbackRectForFrame(_controlView->bounds()), _snapbackTrackingRectTag);
    else
        _resetTrackingRect(removeButtonRectForFrame(_controlView->bounds()), _removeTrackingRectTag);
}

void SRRecorderCell::_resetTrackingRect(const QRectF& rect, RecorderCellView::TrackingRectTag& tag)
{
    const auto event = Application::shared().currentEvent();
    const bool inside =
        event && isInside(_controlView->convertPointFromWindow(event->locationInWindow), rect);
    if (tag != 0)
        _controlView->removeTrackingRect(tag);
    tag = _controlView->addTrackingRect(rect, inside);
    _mouseInsideTrackingArea = inside;
}

bool SRRecorderCell::_mouseEventCounts(const Event& event) const
{
    return _controlView && (_controlView->windowIsKey() || _controlView->acceptsFirstMouse(event));
}

void SRRecorderCell::mouseEntered(const Event& event)
{
    if (!_mouseEventCounts(event))
        return;
    _mouseInsideTrackingArea = true;
    _setNeedsDisplay();
}

void SRRecorderCell::mouseExited(const Event& event)
{
    if (!_mouseEventCounts(event))
        return;
    _mouseInsideTrackingArea = false;
    _setNeedsDisplay();
}

// Its validator's delegate

bool SRRecorderCell::shortcutValidatorIsKeyCodeAndFlagsTakenReason(SRValidator& /*validator*/, qint64 keyCode,
                                                                   quint64 cocoaFlags,
                                                                   std::optional<QString>& reason)
{
    return _delegate &&
           _delegate->shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(*this, keyCode, cocoaFlags, reason);
}

// Its texts and images, by state

QString SRRecorderCell::displayedText() const
{
    return _isRecording ? _recordingText() : _idleText();
}

QString SRRecorderCell::_idleText() const
{
    return keyComboString().value_or(localized("Click to record shortcut"));
}

QString SRRecorderCell::_recordingText() const
{
    if (_validModifierFlags(_recordingFlags)) {
        const QString glyphs = SRStringForCocoaModifierFlags(_recordingFlags);
        return glyphs.isEmpty() ? localized("Type shortcut") : glyphs;
    }
    return _mouseInsideTrackingArea ? localized("Use old shortcut") : localized("Type shortcut");
}

QString SRRecorderCell::_removeImageName() const
{
    QString suffix = u""_s;
    if (_mouseInsideTrackingArea && _mouseDown)
        suffix = u"Pressed"_s;
    else if (_mouseInsideTrackingArea || _mouseDown)
        suffix = u"Rollover"_s;
    return filledIn(u"SRRemoveShortcut%@"_s, {suffix});
}

} // namespace tarnwick
