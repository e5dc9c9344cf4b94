// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11WindowFrame.h"

#include <array>

namespace tarnwick {

namespace {

constexpr std::uint16_t Position = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y;
constexpr std::uint16_t Size = XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;

std::uint32_t word(int number)
{
    return static_cast<std::uint32_t>(number);
}

} // namespace

std::optional<QRect> X11WindowFrame::_client()
{
    const auto sizeCookie = xcb_get_geometry(_x11.get(), _window);
    const auto placeCookie = xcb_translate_coordinates(_x11.get(), _window, _x11.root(), 0, 0);
    const XcbOwned<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(_x11.get(), sizeCookie, nullptr));
    const XcbOwned<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(_x11.get(), placeCookie, nullptr));
    if (!size || !place)
        return std::nullopt;
    return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

QMargins X11WindowFrame::_margins()
{
    const auto extents = [this](const QByteArray& property) { // left, right, top, bottom
        const auto words = _x11.property32(_window, property, 4);
        if (!words || words->size() != 4)
            return QMargins();
        return QMargins(int((*words)[0]), int((*words)[2]), int((*words)[1]), int((*words)[3]));
    };
    return extents("_NET_FRAME_EXTENTS") - extents("_GTK_FRAME_EXTENTS");
}

std::optional<QRect> X11WindowFrame::geometry()
{
    const auto client = _client();
    return client ? std::optional(client->marginsAdded(_margins())) : std::nullopt;
}

bool X11WindowFrame::move(const QPoint& position)
{
    const auto client = _client();
    if (!client)
        return false;
    const QMargins margins = _margins();
    _ask(QRect(position + QPoint(margins.left(), margins.top()), client->size()), Position);
    return true;
}

bool X11WindowFrame::resize(const QSize& size)
{
    const auto client = _client();
    if (!client)
        return false;
    _ask(QRect(client->topLeft(), size.shrunkBy(_margins()).expandedTo(QSize(1, 1))), Size);
    return true;
}

bool X11WindowFrame::_managerMoves()
{
    const auto supported = _x11.property32(_x11.root(), "_NET_SUPPORTED");
    return supported && supported->contains(_x11.atom("_NET_MOVERESIZE_WINDOW"));
}

void X11WindowFrame::_ask(const QRect& client, std::uint16_t fields)
{
    if (_managerMoves()) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = _window;
        event.type = _x11.atom("_NET_MOVERESIZE_WINDOW");
        constexpr std::uint32_t FromPager = 2U << 12U;
        event.data.data32[0] = XCB_GRAVITY_STATIC | std::uint32_t{fields} << 8U | FromPager;
        event.data.data32[1] = word(client.x());
        event.data.data32[2] = word(client.y());
        event.data.data32[3] = word(client.width());
        event.data.data32[4] = word(client.height());
        xcb_send_event(_x11.get(), 0, _x11.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&event));
    } else if (fields == Position) {
        const std::array<std::uint32_t, 2> values{word(client.x()), word(client.y())};
        xcb_configure_window(_x11.get(), _window, fields, values.data());
    } else {
        const std::array<std::uint32_t, 2> values{word(client.width()), word(client.height())};
        xcb_configure_window(_x11.get(), _window, fields, values.data());
    }
    xcb_flush(_x11.get());
}

} // namespace tarnwick
