// SPDX-License-Identifier: MIT
// What any program with the toolkit takes that has an icon in the tray and a hot key: nothing else is in it.
//   bench_bare KEY MODIFIERS
// grabs the key (X key code) with the modifiers (X state bits) and pops an empty menu up at the pointer, from
// within the event of the press. Writes "ready" when the key is grabbed.
#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <qguiapplication_platform.h>
#include <xcb/xcb.h>

#include <cstdio>

namespace {

constexpr QSize smallest(100, 20);

class HotKey final : public QAbstractNativeEventFilter
{
public:
    HotKey(xcb_connection_t* server, xcb_keycode_t key, quint16 modifiers) : _key(key)
    {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
        xcb_grab_key(server, 1, root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        xcb_flush(server);
        _menu.setMinimumSize(smallest); // without a size it is not shown at all
    }

    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        const auto* event = static_cast<const xcb_key_press_event_t*>(message);
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS || event->detail != _key || _menu.isVisible())
            return false;
        _menu.popup(QCursor::pos());
        return true;
    }

private:
    xcb_keycode_t _key;
    QMenu _menu;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    if (arguments.size() != 3 || !x11) {
        std::fputs("bench_bare KEY MODIFIERS\n", stderr);
        return 2;
    }
    QPixmap picture(22, 22);
    picture.fill(Qt::black);
    QSystemTrayIcon icon((QIcon(picture)));
    icon.show();
    HotKey hotKey(x11->connection(), static_cast<xcb_keycode_t>(arguments.at(1).toUInt()),
                  static_cast<quint16>(arguments.at(2).toUInt()));
    application.installNativeEventFilter(&hotKey);
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}
