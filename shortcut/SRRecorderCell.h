// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"
#include "foundation/NotificationCenter.h"
#include "shortcut/Gradient.h"
#include "shortcut/KeyCombo.h"
#include "shortcut/RecorderCellView.h"
#include "shortcut/RecorderSettings.h"
#include "shortcut/RecorderTransition.h"
#include "shortcut/SRRecorderCellDelegate.h"
#include "shortcut/SRValidator.h"
#include "shortcut/SymbolicHotKeys.h"

#include <QRectF>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

class QPainter;

namespace tarnwick {

class Archive;

/// Posted when the palette has changed. Every recorder cell then mixes its recording look anew.
inline const QString SystemColorsDidChangeNotification =
    QStringLiteral("NSSystemColorsDidChangeNotification");

/// Records a key combination: what its keys, clicks and settings do. Flags are Cocoa flags, rectangles and
/// points are in the coordinates of its view (RecorderCellView). GUI thread only.
class SRRecorderCell final : public SRValidatorDelegate
{
public:
    /// No combination; Command, Option, Control, Shift and the function-key bit are allowed, none is
    /// required.
    SRRecorderCell();
    /// As it was when `archive` was made; then whatever is stored under its autosave name. Reads on from
    /// where the archive stands.
    explicit SRRecorderCell(Archive& archive);
    /// Ends with the system's shortcuts switched on again, whatever state it was in.
    ~SRRecorderCell() override;
    SRRecorderCell(const SRRecorderCell&) = delete;
    SRRecorderCell& operator=(const SRRecorderCell&) = delete;

    void encodeWithCoder(Archive& archive) const;

    /// Another cell with the state and the delegate of this one, a validator of its own, no running
    /// transition, and nothing switched off.
    [[nodiscard]] std::unique_ptr<SRRecorderCell> copy() const;

    /// The view that it is in; not owned, null when in none.
    [[nodiscard]] RecorderCellView* controlView() const { return _state.controlView; }
    void setControlView(RecorderCellView* view) { _state.controlView = view; }
    [[nodiscard]] bool isEnabled() const { return _state.enabled; }
    void setEnabled(bool enabled) { _state.enabled = enabled; }

    /// 0 or 1; only 1 can animate. Any other value is stored as 0.
    [[nodiscard]] qint32 style() const { return _state.style; }
    void setStyle(qint32 style) { _state.setStyle(style); }
    [[nodiscard]] bool animates() const { return _state.isAnimating; }
    void setAnimates(bool animates) { _state.isAnimating = animates; }
    [[nodiscard]] static bool styleSupportsAnimation(qint32 style) { return style == 1; }

    /// The modifiers that may take part.
    [[nodiscard]] quint64 allowedFlags() const { return _state.allowedFlags; }
    void setAllowedFlags(quint64 flags);
    /// The modifiers that take part always.
    [[nodiscard]] quint64 requiredFlags() const { return _state.requiredFlags; }
    void setRequiredFlags(quint64 flags);

    /// Whether a key alone may be recorded, and then whether Escape and the delete keys may, which otherwise
    /// cancel.
    [[nodiscard]] bool allowsKeyOnly() const { return _state.allowsKeyOnly; }
    [[nodiscard]] bool escapeKeysRecord() const { return _state.escapeKeysRecord; }
    void setAllowsKeyOnlyEscapeKeysRecord(bool allowsKeyOnly, bool escapeKeysRecord);

    /// Whether the desktop's own shortcuts are switched off while recording.
    [[nodiscard]] bool canCaptureGlobalHotKeys() const { return _state.globalHotKeys; }
    void setCanCaptureGlobalHotKeys(bool capture) { _state.globalHotKeys = capture; }

    /// The name under which each new combination is kept in the settings; null or empty keeps none. Setting
    /// it reads nothing.
    [[nodiscard]] const QString& autosaveName() const { return _state.autosaveName; }
    void setAutosaveName(const QString& name) { _state.autosaveName = name; }

    /// Not owned.
    [[nodiscard]] SRRecorderCellDelegate* delegate() const { return _state.delegate; }
    void setDelegate(SRRecorderCellDelegate* delegate) { _state.delegate = delegate; }

    [[nodiscard]] const KeyCombo& keyCombo() const { return _state.keyCombo; }
    /// Filters the flags, tells the delegate and saves, also when nothing changes.
    void setKeyCombo(const KeyCombo& keyCombo);

    /// What the recorded keys typed, or what the key would; nothing for a key without a name.
    [[nodiscard]] std::optional<QString> keyChars() const;
    [[nodiscard]] std::optional<QString> keyCharsIgnoringModifiers() const;
    /// Glyphs and the key; nothing when the cell is empty.
    [[nodiscard]] std::optional<QString> keyComboString() const;
    [[nodiscard]] bool isEmpty() const;

    [[nodiscard]] bool isRecording() const { return _state.isRecording; }
    [[nodiscard]] bool isAnimatingNow() const { return _transition.isAnimatingNow(); }
    [[nodiscard]] bool isAnimatingTowardsRecording() const
    {
        return _transition.isAnimatingTowardsRecording();
    }
    [[nodiscard]] double transitionProgress() const { return _transition.progress(); }
    [[nodiscard]] bool mouseInsideTrackingArea() const { return _state.mouseInsideTrackingArea; }
    [[nodiscard]] bool mouseDown() const { return _state.mouseDown; }
    [[nodiscard]] bool comboJustChanged() const { return _comboJustChanged; }
    /// The modifiers held now, while recording.
    [[nodiscard]] quint64 recordingFlags() const { return _state.recordingFlags; }

    /// Offers a key press; true when the cell has used it up. May show an alert and wait for its answer.
    bool performKeyEquivalent(const Event& event);
    void flagsChanged(const Event& event);
    [[nodiscard]] bool becomeFirstResponder();
    [[nodiscard]] bool resignFirstResponder();
    void mouseEntered(const Event& event);
    void mouseExited(const Event& event);
    /// Follows the left button from `event`, its press, to its release; waits for events meanwhile. When the
    /// view goes away while it waits, nothing of the cell is touched any more.
    bool trackMouseInRectOfViewUntilMouseUp(const Event& event, const QRectF& cellFrame,
                                            RecorderCellView& view, bool untilMouseUp);
    void resetTrackingRects();

    /// The small buttons; the zero rectangle for a remove button that is not there.
    [[nodiscard]] QRectF removeButtonRectForFrame(const QRectF& cellFrame) const;
    [[nodiscard]] QRectF snapbackRectForFrame(const QRectF& cellFrame) const;

    /// What the cell shows, as text.
    [[nodiscard]] QString displayedText() const;

    /// Draws the cell into `frame`, which is in the painter's coordinates.
    void drawWithFrameInView(const QRectF& frame, QPainter& painter, const RecorderCellView& view) const;

    bool shortcutValidatorIsKeyCodeAndFlagsTakenReason(SRValidator& validator, qint64 keyCode,
                                                       quint64 cocoaFlags,
                                                       std::optional<QString>& reason) override;

private:
    void _privateInit();
    void _createGradient();
    void _setNeedsDisplay();

    [[nodiscard]] quint64 _filteredCocoaFlags(quint64 flags) const;
    [[nodiscard]] quint64 _filteredCocoaToCarbonFlags(quint64 flags) const;
    [[nodiscard]] bool _validModifierFlags(quint64 flags) const;
    void _flagsSettingDidChange();

    [[nodiscard]] bool _recordsKey(quint64 filtered, bool cancelKey, bool valid) const;
    enum class Outcome { Recorded, Cancelled, Refused };
    Outcome _record(const Event& event, quint64 filtered);
    void _showRefusal(const std::optional<SRError>& error);
    void _startRecordingForSpace(const Event& event);

    [[nodiscard]] bool _effectiveIsAnimating() const;
    void _startRecordingTransition();
    void _endRecordingTransition();
    void _startRecording();
    void _endRecording();
    void _pushSymbolicHotKeyMode();
    void _popSymbolicHotKeyMode();

    void _finishTracking(const Event& event, const QRectF& buttonRect, const QRectF& mainArea,
                         RecorderCellView& view);
    [[nodiscard]] bool _mouseEventCounts(const Event& event) const;
    void _resetTrackingRect(const QRectF& rect, RecorderCellView::TrackingRectTag& tag);

    void _keyComboDidChange();
    void _saveKeyCombo() const;
    void _loadKeyCombo();

    [[nodiscard]] QString _idleText() const;
    [[nodiscard]] QString _recordingText() const;
    [[nodiscard]] QString _removeImageName() const;

    /// All that a copy takes along.
    struct State : RecorderSettings
    {
        std::shared_ptr<const Gradient> recordingGradient;
        bool isRecording = false;
        bool mouseInsideTrackingArea = false;
        bool mouseDown = false;
        RecorderCellView::TrackingRectTag removeTrackingRectTag = 0;
        RecorderCellView::TrackingRectTag snapbackTrackingRectTag = 0;
        quint64 recordingFlags = 0;
        SRRecorderCellDelegate* delegate = nullptr;
        bool enabled = true;
        RecorderCellView* controlView = nullptr;
    };

    State _state;
    RecorderTransition _transition;
    bool _comboJustChanged = false;
    QSet<quint16> _cancelCharacterSet;
    std::unique_ptr<SRValidator> _validator;
    SymbolicHotKeys::ModeToken _hotKeyModeToken = 0;
    std::unique_ptr<NotificationCenter::Observer> _systemColorsObserver;
};

} // namespace tarnwick
