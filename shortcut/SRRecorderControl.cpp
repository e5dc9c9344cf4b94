// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderControl.h"

#include "foundation/Application.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/Numbers.h"
#include "shortcut/RecorderAccessible.h"
#include "shortcut/RecorderPicture.h"
#include "shortcut/SRRecorderControlDelegate.h"
#include "shortcut/ShownKeys.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int ForcedHeight = 22;
constexpr int LeastWidth = 50;
constexpr int UsualWidth = 180;

/// How long the windows of other programs may be in front of an alert before recording ends, in milliseconds:
/// longer than the moment between two windows of our own.
constexpr int AwayTime = 500;

const QString& valueBinding()
{
    static const QString name = u"value"_s;
    return name;
}

} // namespace

SRRecorderControl::SRRecorderControl(QWidget* parent)
    : QWidget(parent), _view(*this, [this] { _tellScreenReader(); }),
      _cell(std::make_unique<SRRecorderCell>())
{
    _init();
}

SRRecorderControl::SRRecorderControl(Archive& archive, QWidget* parent)
    : QWidget(parent), _view(*this, [this] { _tellScreenReader(); }),
      _cell(std::make_unique<SRRecorderCell>(archive))
{
    _init();
}

SRRecorderControl::~SRRecorderControl() = default;

void SRRecorderControl::_init()
{
    RecorderAccessible::install();
    _cell->setDelegate(this);
    _cell->setControlView(&_view);
    setFocusPolicy(Qt::TabFocus); // a click makes it first responder only when the button is up again
    setMouseTracking(true);
    setFixedHeight(ForcedHeight);
    setMinimumWidth(LeastWidth);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_InputMethodEnabled, false);

    _awayTimer.setSingleShot(true);
    connect(&_awayTimer, &QTimer::timeout, this, [this] {
        if (QGuiApplication::applicationState() != Qt::ApplicationActive)
            (void)resignFirstResponder();
    });
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive && _offeringKey)
            _awayTimer.start(AwayTime);
    });
}

void SRRecorderControl::encodeWithCoder(Archive& archive) const
{
    _cell->encodeWithCoder(archive);
}

quint64 SRRecorderControl::cocoaToCarbonFlags(quint64 cocoaFlags)
{
    return SRCocoaToCarbonFlags(cocoaFlags);
}

quint64 SRRecorderControl::carbonToCocoaFlags(quint64 carbonFlags)
{
    return SRCarbonToCocoaFlags(carbonFlags);
}

// The object value and its binding

QVariant SRRecorderControl::objectValue() const
{
    const KeyCombo& combo = keyCombo();
    if (combo.code == -1 || combo.flags == 0)
        return {};
    return QVariantMap{{u"keyCode"_s, combo.code},
                       {u"modifierFlags"_s, combo.flags},
                       {u"characters"_s, keyCharsIgnoringModifiers().value_or(QString())}};
}

void SRRecorderControl::setObjectValue(const QVariant& value)
{
    const QVariantMap dictionary = value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
    const auto code = wholeNumber(dictionary.value(u"keyCode"_s));
    const auto flags = wholeNumber(dictionary.value(u"modifierFlags"_s));
    if (code && flags)
        setKeyCombo({static_cast<quint64>(*flags), *code});
    else
        setKeyCombo({0, -1});
}

const Binding* SRRecorderControl::infoForBinding(const QString& name) const
{
    const auto found = _bindings.constFind(name);
    return found == _bindings.cend() ? nullptr : &*found;
}

QMetaType SRRecorderControl::valueClassForBinding(const QString& name)
{
    return name == valueBinding() ? QMetaType::fromType<QVariantMap>() : QMetaType();
}

void SRRecorderControl::shortcutRecorderCellKeyComboDidChange(SRRecorderCell& /*cell*/,
                                                              const KeyCombo& keyCombo)
{
    if (_delegate)
        _delegate->shortcutRecorderKeyComboDidChange(*this, keyCombo);
    if (const Binding* binding = infoForBinding(valueBinding()))
        pushValue(objectValue(), *binding);
}

bool SRRecorderControl::shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(SRRecorderCell& /*cell*/,
                                                                         qint64 keyCode, quint64 cocoaFlags,
                                                                         std::optional<QString>& reason)
{
    return _delegate &&
           _delegate->shortcutRecorderIsKeyCodeAndFlagsTakenReason(*this, keyCode, cocoaFlags, reason);
}

// Keys and the first responder

bool SRRecorderControl::performKeyEquivalent(const Event& event)
{
    return isFirstResponder() && keyDown(event);
}

bool SRRecorderControl::keyDown(const Event& event)
{
    const QScopedValueRollback offering(_offeringKey, true);
    return _cell->performKeyEquivalent(event);
}

bool SRRecorderControl::isFirstResponder() const
{
    return _view.isFirstResponder();
}

bool SRRecorderControl::becomeFirstResponder()
{
    const bool became = _cell->becomeFirstResponder();
    if (became)
        update();
    return became;
}

bool SRRecorderControl::resignFirstResponder()
{
    const bool resigned = _cell->resignFirstResponder();
    if (resigned)
        update();
    return resigned;
}

bool SRRecorderControl::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // While recording, a key is neither a shortcut of the window nor the key of a mnemonic.
        if (_cell->isRecording()) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyPress:
        // Before QWidget takes Tab for itself.
        if (_cell->isRecording() && _handleKey(static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::ParentChange:
        _viewDidMoveToWindow();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool SRRecorderControl::_handleKey(QKeyEvent* /*event*/)
{
    const auto current = Application::shared().currentEvent();
    if (!current)
        return false;
    if (current->type == Event::Type::FlagsChanged) {
        flagsChanged(*current);
        return true;
    }
    return current->type == Event::Type::KeyDown && keyDown(*current);
}

void SRRecorderControl::keyPressEvent(QKeyEvent* event)
{
    // While it records, the cell has been offered the key already.
    if (!_cell->isRecording() && _handleKey(event))
        event->accept();
    else
        QWidget::keyPressEvent(event);
}

void SRRecorderControl::keyReleaseEvent(QKeyEvent* event)
{
    const auto current = Application::shared().currentEvent();
    if (current && current->type == Event::Type::FlagsChanged)
        flagsChanged(*current);
    QWidget::keyReleaseEvent(event);
}

void SRRecorderControl::focusInEvent(QFocusEvent* /*event*/)
{
    (void)becomeFirstResponder();
}

void SRRecorderControl::focusOutEvent(QFocusEvent* /*event*/)
{
    update();
    if (!_offeringKey) // the cell's own alert takes the focus for a while, and recording goes on after it
        (void)resignFirstResponder();
}

// The mouse

void SRRecorderControl::mousePressEvent(QMouseEvent* event)
{
    const auto current = Application::shared().currentEvent();
    if (event->button() != Qt::LeftButton || !current) {
        QWidget::mousePressEvent(event);
        return;
    }
    event->accept();
    _cell->trackMouseInRectOfViewUntilMouseUp(*current, _view.bounds(), _view, true);
}

void SRRecorderControl::mouseMoveEvent(QMouseEvent* event)
{
    const Event current = Application::shared().currentEvent().value_or(Event());
    _view.trackingRects().pointerMoved(_view.convertPoint(event->position()), [this, &current](bool entered) {
        if (entered)
            _cell->mouseEntered(current);
        else
            _cell->mouseExited(current);
    });
}

void SRRecorderControl::leaveEvent(QEvent* /*event*/)
{
    const Event current = Application::shared().currentEvent().value_or(Event());
    _view.trackingRects().pointerLeft([this, &current](bool) { _cell->mouseExited(current); });
}

// The frame

void SRRecorderControl::setFrameSize(const QSizeF& size)
{
    resize(_forcedSize(size));
}

void SRRecorderControl::setFrame(const QRectF& frame)
{
    setGeometry({frame.topLeft().toPoint(), _forcedSize(frame.size())});
}

QSize SRRecorderControl::_forcedSize(const QSizeF& size) const
{
    return {std::max(LeastWidth, qRound(size.width())), ForcedHeight};
}

QSize SRRecorderControl::sizeHint() const
{
    double width = UsualWidth;
    for (const QString& text : longestKeyCombos())
        width = std::max(width, std::ceil(RecorderPicture::widthFor(text)));
    return {int(width), ForcedHeight};
}

void SRRecorderControl::_viewDidMoveToWindow()
{
    resetTrackingRects();
}

void SRRecorderControl::_viewFrameDidChange()
{
    resetTrackingRects();
}

void SRRecorderControl::moveEvent(QMoveEvent* /*event*/)
{
    _viewFrameDidChange();
}

void SRRecorderControl::resizeEvent(QResizeEvent* /*event*/)
{
    _viewFrameDidChange();
}

void SRRecorderControl::showEvent(QShowEvent* /*event*/)
{
    _viewDidMoveToWindow();
}

void SRRecorderControl::hideEvent(QHideEvent* /*event*/)
{
    // Not every desktop takes the focus away first; what recording has switched off must come back.
    (void)resignFirstResponder();
}

void SRRecorderControl::changeEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::EnabledChange:
        _cell->setEnabled(isEnabled());
        if (!isEnabled())
            (void)resignFirstResponder();
        resetTrackingRects();
        break;
    case QEvent::PaletteChange:
        NotificationCenter::defaultCenter().postNotificationName(SystemColorsDidChangeNotification, this);
        break;
    case QEvent::LayoutDirectionChange:
        resetTrackingRects();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
    update();
}

void SRRecorderControl::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    _cell->drawWithFrameInView(rect(), painter, _view);
}

// Assistive programs

QString SRRecorderControl::spokenText() const
{
    const QString name = accessibleName().isEmpty() ? localized("Shortcut") : accessibleName();
    if (_cell->isRecording())
        return filledIn(localized("%@, recording, type shortcut or press Escape to cancel"), {name});
    const QString combination = _cell->isEmpty() ? localized("none") : spokenKeyCombo(keyCombo());
    if (!isEnabled())
        return filledIn(localized("%@, %@"), {name, combination});
    return filledIn(localized("%@, %@, press Space to record"), {name, combination});
}

void SRRecorderControl::_tellScreenReader()
{
    if (!QAccessible::isActive())
        return;
    const QString text = spokenText();
    if (text == _toldText)
        return;
    _toldText = text;
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

} // namespace tarnwick

#include "moc_SRRecorderControl.cpp"
