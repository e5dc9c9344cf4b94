// SPDX-License-Identifier: MIT
#include "platform/linux/keys/XkbComposition.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <array>

namespace tarnwick {

namespace {

bool beginsSequence(xkb_keysym_t keysym)
{
    return keysym == XKB_KEY_Multi_key ||
           (keysym >= XKB_KEY_dead_grave && keysym <= XKB_KEY_dead_longsolidusoverlay);
}

} // namespace

std::optional<QString> XkbComposition::press(quint32 keysym)
{
    if (!_loaded && beginsSequence(keysym))
        _load();
    if (!_state || xkb_compose_state_feed(_state.get(), keysym) == XKB_COMPOSE_FEED_IGNORED)
        return std::nullopt;
    switch (xkb_compose_state_get_status(_state.get())) {
    case XKB_COMPOSE_COMPOSING:
        return QString();
    case XKB_COMPOSE_COMPOSED:
        break;
    case XKB_COMPOSE_CANCELLED:
    case XKB_COMPOSE_NOTHING:
        return std::nullopt;
    }
    std::array<char, 64> text{};
    const int length = xkb_compose_state_get_utf8(_state.get(), text.data(), text.size());
    return QString::fromUtf8(text.data(), qBound(0, length, int(text.size()) - 1));
}

void XkbComposition::_load()
{
    _loaded = true;
    const std::unique_ptr<xkb_context, Free> context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    if (!context)
        return;
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    const std::unique_ptr<xkb_compose_table, Free> table(
        xkb_compose_table_new_from_locale(context.get(), _locale.constData(), XKB_COMPOSE_COMPILE_NO_FLAGS));
    if (table)
        _state.reset(xkb_compose_state_new(table.get(), XKB_COMPOSE_STATE_NO_FLAGS));
}

QByteArray localeOfTyping()
{
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (QByteArray locale = qgetenv(name); !locale.isEmpty())
            return locale;
    return QByteArrayLiteral("C");
}

KeyComposition compositionOfTyping()
{
    return [composition = std::make_shared<XkbComposition>(localeOfTyping())](quint32 keysym) {
        return composition->press(keysym);
    };
}

} // namespace tarnwick
