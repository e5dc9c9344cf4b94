// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"
#include "shortcut/Binding.h"
#include "shortcut/KeyCombo.h"
#include "shortcut/RecorderControlView.h"
#include "shortcut/SRRecorderCell.h"
#include "shortcut/SRRecorderCellDelegate.h"

#include <QHash>
#include <QMetaType>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <optional>

namespace tarnwick {

class Archive;
class SRRecorderControlDelegate;

/// The control in which the user records a key combination; a shell around its cell. Flags are Cocoa flags.
/// It is 22 points high and at least 50 wide.
class SRRecorderControl final : public QWidget, public SRRecorderCellDelegate
{
    Q_OBJECT

public:
    using cellClass = SRRecorderCell;

    explicit SRRecorderControl(QWidget* parent = nullptr);
    /// As it was when `archive` was made.
    explicit SRRecorderControl(Archive& archive, QWidget* parent = nullptr);
    ~SRRecorderControl() override;

    void encodeWithCoder(Archive& archive) const;

    [[nodiscard]] SRRecorderCell& cell() { return *_cell; }
    [[nodiscard]] const SRRecorderCell& cell() const { return *_cell; }

    /// Not owned.
    [[nodiscard]] SRRecorderControlDelegate* delegate() const { return _delegate; }
    void setDelegate(SRRecorderControlDelegate* delegate) { _delegate = delegate; }

    // Forwarded to the cell, which says what they mean.
    [[nodiscard]] const KeyCombo& keyCombo() const { return _cell->keyCombo(); }
    void setKeyCombo(const KeyCombo& keyCombo) { _cell->setKeyCombo(keyCombo); }
    [[nodiscard]] quint64 allowedFlags() const { return _cell->allowedFlags(); }
    void setAllowedFlags(quint64 flags) { _cell->setAllowedFlags(flags); }
    [[nodiscard]] quint64 requiredFlags() const { return _cell->requiredFlags(); }
    void setRequiredFlags(quint64 flags) { _cell->setRequiredFlags(flags); }
    [[nodiscard]] bool allowsKeyOnly() const { return _cell->allowsKeyOnly(); }
    [[nodiscard]] bool escapeKeysRecord() const { return _cell->escapeKeysRecord(); }
    void setAllowsKeyOnlyEscapeKeysRecord(bool allowsKeyOnly, bool escapeKeysRecord)
    {
        _cell->setAllowsKeyOnlyEscapeKeysRecord(allowsKeyOnly, escapeKeysRecord);
    }
    [[nodiscard]] bool canCaptureGlobalHotKeys() const { return _cell->canCaptureGlobalHotKeys(); }
    void setCanCaptureGlobalHotKeys(bool capture) { _cell->setCanCaptureGlobalHotKeys(capture); }
    [[nodiscard]] const QString& autosaveName() const { return _cell->autosaveName(); }
    void setAutosaveName(const QString& name) { _cell->setAutosaveName(name); }
    [[nodiscard]] qint32 style() const { return _cell->style(); }
    void setStyle(qint32 style) { _cell->setStyle(style); }
    [[nodiscard]] bool animates() const { return _cell->animates(); }
    void setAnimates(bool animates) { _cell->setAnimates(animates); }
    [[nodiscard]] std::optional<QString> keyComboString() const { return _cell->keyComboString(); }
    [[nodiscard]] std::optional<QString> keyChars() const { return _cell->keyChars(); }
    [[nodiscard]] std::optional<QString> keyCharsIgnoringModifiers() const
    {
        return _cell->keyCharsIgnoringModifiers();
    }
    void resetTrackingRects() { _cell->resetTrackingRects(); }

    [[nodiscard]] static quint64 cocoaToCarbonFlags(quint64 cocoaFlags);
    [[nodiscard]] static quint64 carbonToCocoaFlags(quint64 carbonFlags);

    /// A dictionary with "keyCode", "modifierFlags" and "characters"; invalid without a key or without a
    /// modifier.
    [[nodiscard]] QVariant objectValue() const;
    /// Takes a dictionary with numbers for "keyCode" and "modifierFlags"; anything else clears the recorder.
    void setObjectValue(const QVariant& value);

    /// Each new combination goes to what "value" is bound to, until it is unbound.
    void bind(const QString& name, const Binding& binding) { _bindings.insert(name, binding); }
    void unbind(const QString& name) { _bindings.remove(name); }
    /// Null without such a binding.
    [[nodiscard]] const Binding* infoForBinding(const QString& name) const;
    /// The type of the values that a binding of that name takes; invalid for a name that there is not.
    [[nodiscard]] static QMetaType valueClassForBinding(const QString& name);

    [[nodiscard]] static bool acceptsFirstResponder() { return true; }
    [[nodiscard]] static bool acceptsFirstMouse() { return true; }
    /// Offers a key press to the cell, if the control is its window's first responder; whether it was used
    /// up.
    bool performKeyEquivalent(const Event& event);
    /// Offers a key press to the cell; false when it goes on to whoever comes next.
    bool keyDown(const Event& event);
    void flagsChanged(const Event& event) { _cell->flagsChanged(event); }
    [[nodiscard]] bool becomeFirstResponder();
    [[nodiscard]] bool resignFirstResponder();
    [[nodiscard]] bool isFirstResponder() const;

    /// Both force the height to 22 and the width to 50 or more.
    void setFrameSize(const QSizeF& size);
    void setFrame(const QRectF& frame);

    [[nodiscard]] QSize sizeHint() const override;
    /// "Shortcut, Option Z, press Space to record": what a screen reader says.
    [[nodiscard]] QString spokenText() const;

    void shortcutRecorderCellKeyComboDidChange(SRRecorderCell& cell, const KeyCombo& keyCombo) override;
    bool shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(SRRecorderCell& cell, qint64 keyCode,
                                                          quint64 cocoaFlags,
                                                          std::optional<QString>& reason) override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void _init();
    void _viewDidMoveToWindow();
    void _viewFrameDidChange();
    [[nodiscard]] QSize _forcedSize(const QSizeF& size) const;
    [[nodiscard]] bool _handleKey(QKeyEvent* event);
    void _tellScreenReader();

    SRRecorderControlDelegate* _delegate = nullptr;
    RecorderControlView _view;
    std::unique_ptr<SRRecorderCell> _cell;
    QHash<QString, Binding> _bindings;
    bool _offeringKey = false; ///< an alert of the cell may be up
    QTimer _awayTimer;
    QString _toldText;
};

} // namespace tarnwick
