// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "mouse/ActionCell.h"
#include "mouse/EventTaps.h"

#include <QString>
#include <QWidget>

namespace tarnwick {

class TWMouseButtonIdentifier;

/// The control's tap only takes note of what it sees: `event` goes on to the application under the mouse.
const TappedEvent* nsviewmouseCGEventCallback(EventTapRef proxy, quint32 type, const TappedEvent* event,
                                              TWMouseButtonIdentifier* identifier);

/// Learns which mouse button is to open the menu: a click with an extra button makes the code of its press
/// the button number. The code is that of the event, the same for all extra buttons, as the mouse trigger
/// reports it. Text is black on a light ground, whatever the palette. GUI thread only.
class TWMouseButtonIdentifier final : public QWidget, public ActionSender
{
    Q_OBJECT

public:
    using cellClass = ActionCell;

    /// Would make that the class of the controls' cells. Does nothing, since it is their class from the
    /// beginning.
    static void initialize() {}

    explicit TWMouseButtonIdentifier(QWidget* parent = nullptr);

    [[nodiscard]] const cellClass& cell() const { return _cell; }

    /// The learned code, 0 before there is one.
    [[nodiscard]] quint64 buttonNumber() const { return _buttonNumber; }
    void setButtonNumber(quint64 number);

    [[nodiscard]] qint64 tag() const { return _tag; }
    void setTag(qint64 tag) { _tag = tag; }

    /// Each learned code sends `action` to `target`, which is not owned.
    void setTarget(ActionTarget* target) { _cell.setTarget(target); }
    void setAction(const QString& action) { _cell.setAction(action); }

    /// Makes a tap, schedules it and enables it. An earlier tap stays, unless it was released.
    void setupTap();
    /// Without the tap there is no point in going on: when the system refuses it, writes so to standard error
    /// and ends the process with status 1.
    void setupMouseUpEventTap();
    /// Disables and releases the tap that was made last.
    void disableAndReleaseTap();

    /// Does nothing; buttons may name it as their action.
    void resetButtonNumber(ActionSender* sender);
    /// Everything of the window is connected: nothing is left to do.
    void awakeFromNib();

    [[nodiscard]] static bool acceptsFirstResponder() { return true; }
    /// Redraws the focus ring; always gives the focus up.
    bool resignFirstResponder();

    /// An extra button was released over the control: learns the code of its press.
    void otherMouseUp();

    /// "Button Number: 25": the low 32 bits of the code, as a signed number.
    [[nodiscard]] QString text() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void _drawGround(QPainter& painter) const;
    void _drawFocusRing(QPainter& painter) const;
    void _drawText(QPainter& painter) const;

    quint64 _buttonNumber = 0;
    [[maybe_unused]] quint64 _tmpNumber = 0;
    [[maybe_unused]] bool _clicked = false;
    qint64 _tag = 0;
    cellClass _cell;
};

} // namespace tarnwick
