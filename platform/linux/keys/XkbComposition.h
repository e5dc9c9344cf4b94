// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/KeyComposition.h"

#include <QByteArray>
#include <QString>
#include <xkbcommon/xkbcommon-compose.h>

#include <memory>
#include <optional>

namespace tarnwick {

/// Dead keys and the Compose key, by the sequences of a locale. Those are many, and are not read before the
/// first dead key or Compose is pressed. GUI thread only.
class XkbComposition
{
public:
    /// `locale`: as in LC_CTYPE.
    explicit XkbComposition(QByteArray locale) : _locale(std::move(locale)) {}

    /// A key was pressed. Nothing when it types what it does by itself; a key that goes on with no sequence
    /// ends the one before it without a text. An empty text while a sequence goes on.
    [[nodiscard]] std::optional<QString> press(quint32 keysym);

private:
    struct Free
    {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
        void operator()(xkb_compose_table* table) const { xkb_compose_table_unref(table); }
        void operator()(xkb_compose_state* state) const { xkb_compose_state_unref(state); }
    };

    void _load();

    QByteArray _locale;
    bool _loaded = false;
    std::unique_ptr<xkb_compose_state, Free> _state; ///< null before a sequence begins, or without any
};

/// The locale of what is typed: of LC_ALL, LC_CTYPE and LANG the first that says something.
[[nodiscard]] QByteArray localeOfTyping();

/// That of a text that is typed now.
[[nodiscard]] KeyComposition compositionOfTyping();

} // namespace tarnwick
