// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtEventSource.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QWidget>

#include <utility>

namespace tarnwick {

namespace {

/// Runs the event loop until one event that is waited for has come, or the window that is tracked in has
/// gone.
class EventTracker final : public QObject
{
public:
    EventTracker(QtEventConverter converter, quint64 mask) : _converter(std::move(converter)), _mask(mask)
    {
        const QWidget* grabber = QWidget::mouseGrabber();
        QWidget* tracked = grabber ? grabber->window() : QApplication::activeWindow();
        if (tracked) {
            _window = tracked;
            QObject::connect(tracked, &QObject::destroyed, &_loop, &QEventLoop::quit);
        }
        qApp->installEventFilter(this);
    }

    std::optional<Event> next()
    {
        _loop.exec();
        return _event;
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver == _window && event->type() == QEvent::Hide)
            _loop.quit();
        // An event comes by its native window first: Qt must see it there, it keeps book of held buttons.
        if (_event || !receiver->isWidgetType() || event->type() == QEvent::ShortcutOverride)
            return false;
        auto converted = _converter.convert(*event);
        if (!converted || !((_mask >> quint32(converted->type)) & 1))
            return false;
        _event = std::move(converted);
        _loop.quit();
        return true;
    }

private:
    QtEventConverter _converter; ///< of this event only: it must not remember keys that go up meanwhile
    const quint64 _mask;
    QPointer<QWidget> _window;
    QEventLoop _loop;
    std::optional<Event> _event;
};

} // namespace

QtEventSource::QtEventSource(QtEventConverter converter) : _converter(std::move(converter)) {}

std::optional<Event> QtEventSource::nextEventMatchingMask(quint64 mask)
{
    return EventTracker(_converter, mask).next();
}

} // namespace tarnwick
