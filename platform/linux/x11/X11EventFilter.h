// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <xcb/xcb.h>

#include <cstdint>

namespace tarnwick {

/// The type of an event of the X server, whether the server itself or a program has sent it.
template <typename Event>
[[nodiscard]] std::uint8_t x11EventType(const Event& event)
{
    constexpr std::uint8_t SentByAProgram = 0x80;
    return static_cast<std::uint8_t>(event.response_type & ~SentByAProgram);
}

/// Whether the event is one of the extension with this opcode; of none when it is 0.
[[nodiscard]] bool isOfX11Extension(const xcb_generic_event_t& event, std::uint8_t opcode);

/// `event` as the kind that its type says.
template <typename Event>
[[nodiscard]] const Event& x11EventAs(const xcb_generic_event_t& event)
{
    const void* bytes = &event;
    return *static_cast<const Event*>(bytes);
}

/// Sees the events of the toolkit's X connection before the toolkit does, from install() until remove() or
/// its end; the filter that was installed last comes first. GUI thread only.
class X11EventFilter : public QAbstractNativeEventFilter
{
public:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) final;

protected:
    void install();
    void remove();

    /// True when nobody else is to get the event. `type` is x11EventType(); what is changed in the event is
    /// what others see of it.
    [[nodiscard]] virtual bool filter(std::uint8_t type, xcb_generic_event_t& event) = 0;
};

} // namespace tarnwick
