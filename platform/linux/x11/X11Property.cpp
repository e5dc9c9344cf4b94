// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Property.h"

namespace tarnwick {

X11Property::X11Property(X11Connection& x11, xcb_window_t window, const QByteArray& name, std::uint32_t words)
    : _answer(x11,
              xcb_get_property(x11.get(), 0, window, x11.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, words))
{
}

XcbOwned<xcb_get_property_reply_t> X11Property::_reply(std::uint8_t format)
{
    auto reply = _answer.take();
    if (reply && (reply->type == XCB_ATOM_NONE || reply->format != format))
        reply.reset();
    return reply;
}

std::optional<QList<std::uint32_t>> X11Property::items()
{
    const auto reply = _reply(32);
    if (!reply)
        return std::nullopt;
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return QList<std::uint32_t>(items, items + reply->value_len);
}

std::uint32_t X11Property::firstItem()
{
    return items().value_or(QList<std::uint32_t>()).value(0);
}

std::optional<QByteArray> X11Property::text()
{
    const auto reply = _reply(8);
    if (!reply)
        return std::nullopt;
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

} // namespace tarnwick
