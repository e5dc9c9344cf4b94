// SPDX-License-Identifier: MIT
#include "platform/linux/look/WindowIcon.h"

#include <QEvent>
#include <QPixmap>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int Sides[] = {16, 24, 32, 48, 64, 128}; ///< in pixels, from a small panel to a large switcher

bool isListed(const QWidget& widget)
{
    const Qt::WindowType type = widget.windowType();
    return (type == Qt::Window || type == Qt::Dialog) &&
           !widget.windowFlags().testFlag(Qt::BypassWindowManagerHint);
}

/// Null where no theme has it, and where its picture cannot be read.
QIcon themedIcon(const QString& name)
{
    QIcon icon;
    const QIcon themed = QIcon::fromTheme(name);
    for (const int side : Sides) {
        const QPixmap picture = themed.pixmap(QSize(side, side), 1.0);
        if (picture.size() == QSize(side, side)) // a smaller one is not made larger
            icon.addPixmap(picture);
    }
    return icon;
}

QIcon builtInIcon()
{
    QIcon icon;
    for (const int side : Sides)
        icon.addPixmap(QPixmap(u":/icons/%1.png"_s.arg(side), "PNG"));
    return icon;
}

} // namespace

WindowIcon::WindowIcon(QString name) : _name(std::move(name)) {}

bool WindowIcon::eventFilter(QObject* watched, QEvent* event)
{
    // The window manager has not been told of the window yet.
    if (event->type() != QEvent::Show || event->spontaneous() || !watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (!isListed(*widget) || widget->testAttribute(Qt::WA_SetWindowIcon))
        return false;
    if (_icon.isNull())
        _icon = themedIcon(_name);
    if (_icon.isNull())
        _icon = builtInIcon();
    widget->setWindowIcon(_icon);
    return false;
}

} // namespace tarnwick
