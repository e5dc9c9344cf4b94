// SPDX-License-Identifier: MIT
#include "mouse/TWMouseButtonIdentifier.h"

#include "foundation/Application.h"
#include "foundation/Failure.h"
#include "foundation/Fonts.h"
#include "mouse/MouseButtonAccessible.h"
#include "mouse/TWMouseButtonIdentifierTap.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>

namespace tarnwick {

using namespace Qt::StringLiterals;
using mouse_button_identifier::eventTap;
using mouse_button_identifier::mouseCode;

namespace {

constexpr double FontSize = 12.0;
constexpr double TextShift = 32.0;
constexpr double TextTop = 10.0;
constexpr double CornerRadius = 4.0;
constexpr double RingWidth = 2.0;
constexpr QRgb Ground = 0xFFF4F4F2;
constexpr QRgb Border = 0xFF9A9A98;

bool isExtra(Qt::MouseButton button)
{
    return button != Qt::LeftButton && button != Qt::RightButton;
}

} // namespace

const TappedEvent* nsviewmouseCGEventCallback(EventTapRef /*proxy*/, quint32 type, const TappedEvent* event,
                                              TWMouseButtonIdentifier* /*identifier*/)
{
    mouseCode = type;
    return event;
}

TWMouseButtonIdentifier::TWMouseButtonIdentifier(QWidget* parent) : QWidget(parent)
{
    MouseButtonAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TWMouseButtonIdentifier::setButtonNumber(quint64 number)
{
    _buttonNumber = number;
    update();
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

void TWMouseButtonIdentifier::setupTap()
{
    setupMouseUpEventTap();
    EventTaps::shared().enable(eventTap, true);
}

void TWMouseButtonIdentifier::setupMouseUpEventTap()
{
    auto& taps = EventTaps::shared();
    eventTap = taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                           EventTaps::EventTapOptionDefault, quint64(1) << EventTapOtherMouseDown,
                           [this](quint32 type, const TappedEvent* event) {
                               return nsviewmouseCGEventCallback(eventTap, type, event, this);
                           });
    if (eventTap == 0)
        failure::endProcess("failed to create event tap\n");
    taps.addSourceToMainRunLoop(eventTap);
    taps.enable(eventTap, true);
}

void TWMouseButtonIdentifier::disableAndReleaseTap()
{
    EventTaps::shared().enable(eventTap, false);
    EventTaps::shared().release(eventTap);
}

void TWMouseButtonIdentifier::resetButtonNumber(ActionSender* /*sender*/) {}

void TWMouseButtonIdentifier::awakeFromNib() {}

bool TWMouseButtonIdentifier::resignFirstResponder()
{
    update();
    return true;
}

void TWMouseButtonIdentifier::otherMouseUp()
{
    setButtonNumber(mouseCode);
    Application::shared().sendActionToFrom(_cell.action(), _cell.target(), this);
}

QString TWMouseButtonIdentifier::text() const
{
    return tr("Button Number: %i").replace(u"%i"_s, QString::number(static_cast<qint32>(_buttonNumber)));
}

QSize TWMouseButtonIdentifier::sizeHint() const
{
    const QFontMetricsF metrics(Fonts::shared().menuFontOfSize(FontSize));
    return {qRound(metrics.horizontalAdvance(text()) + 2 * TextShift),
            qRound(metrics.height() + 2 * TextTop)};
}

void TWMouseButtonIdentifier::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(isExtra(event->button())); // who takes the press gets the release
}

void TWMouseButtonIdentifier::mouseReleaseEvent(QMouseEvent* event)
{
    if (isExtra(event->button()) && rect().contains(event->position().toPoint()))
        // The tap may not have told of the press yet: it does so from the event loop.
        QMetaObject::invokeMethod(this, &TWMouseButtonIdentifier::otherMouseUp, Qt::QueuedConnection);
    else
        event->ignore();
}

void TWMouseButtonIdentifier::focusInEvent(QFocusEvent* /*event*/)
{
    update();
}

void TWMouseButtonIdentifier::focusOutEvent(QFocusEvent* /*event*/)
{
    resignFirstResponder();
}

void TWMouseButtonIdentifier::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        updateGeometry();
    update();
}

void TWMouseButtonIdentifier::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    _drawGround(painter);
    if (hasFocus())
        _drawFocusRing(painter);
    _drawText(painter);
}

void TWMouseButtonIdentifier::_drawGround(QPainter& painter) const
{
    painter.setOpacity(isEnabled() ? 1.0 : 0.5);
    painter.setPen(QColor(Border));
    painter.setBrush(QColor(Ground));
    const QRectF field = QRectF(rect()).adjusted(RingWidth, RingWidth, -RingWidth, -RingWidth);
    painter.drawRoundedRect(field.adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius, CornerRadius);
}

void TWMouseButtonIdentifier::_drawFocusRing(QPainter& painter) const
{
    constexpr double Half = RingWidth / 2;
    painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), RingWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(Half, Half, -Half, -Half), CornerRadius + Half,
                            CornerRadius + Half);
}

void TWMouseButtonIdentifier::_drawText(QPainter& painter) const
{
    // The rectangle grows by as much as it is shifted, and so reaches past the edge: on purpose.
    QRectF place(TextShift, TextTop, width() + TextShift, height() - TextTop);
    if (isRightToLeft())
        place.moveRight(width() - TextShift);
    painter.setFont(Fonts::shared().menuFontOfSize(FontSize));
    painter.setPen(Qt::black);
    painter.drawText(place, Qt::AlignLeading | Qt::AlignTop | Qt::TextSingleLine, text());
}

} // namespace tarnwick

#include "moc_TWMouseButtonIdentifier.cpp"
