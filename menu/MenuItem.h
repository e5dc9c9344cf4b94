// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/Event.h"
#include "menu/AttributedTitle.h"

#include <QString>

#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {

class Menu;

/// One entry of a Menu. Holds its target. GUI thread only.
class MenuItem : public ActionSender, public std::enable_shared_from_this<MenuItem>
{
public:
    enum class State { Off = 0, On = 1 };

    /// Enabled, state off, key-equivalent mask Command.
    [[nodiscard]] static std::shared_ptr<MenuItem> create(const QString& title, const QString& action = {},
                                                          const QString& keyEquivalent = {});
    /// A separator: its title is empty and it is disabled.
    [[nodiscard]] static std::shared_ptr<MenuItem> separatorItem();
    ~MenuItem() override;
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    /// A new item, in no menu, with everything of this one; shares its target. A submenu stays with this one.
    [[nodiscard]] std::shared_ptr<MenuItem> copy() const;

    [[nodiscard]] bool isSeparatorItem() const { return _separator; }
    [[nodiscard]] const QString& title() const { return _title; }
    void setTitle(const QString& title) { _title = title; }
    [[nodiscard]] const std::optional<AttributedTitle>& attributedTitle() const { return _attributedTitle; }
    void setAttributedTitle(const std::optional<AttributedTitle>& title) { _attributedTitle = title; }
    [[nodiscard]] State state() const { return _state; }
    void setState(State state) { _state = state; }
    [[nodiscard]] bool isEnabled() const { return _enabled; }
    void setEnabled(bool enabled) { _enabled = enabled; }
    [[nodiscard]] const QString& keyEquivalent() const { return _keyEquivalent; }
    void setKeyEquivalent(const QString& keyEquivalent) { _keyEquivalent = keyEquivalent; }
    [[nodiscard]] quint64 keyEquivalentModifierMask() const { return _keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(quint64 mask) { _keyEquivalentModifierMask = mask; }
    [[nodiscard]] bool isAlternate() const { return _alternate; }
    void setAlternate(bool alternate) { _alternate = alternate; }

    [[nodiscard]] const QString& action() const { return _action; }
    void setAction(const QString& action) { _action = action; }
    [[nodiscard]] const std::shared_ptr<ActionTarget>& target() const { return _target; }
    void setTarget(std::shared_ptr<ActionTarget> target) { _target = std::move(target); }

    /// The menu that holds this item, null when in none. Not owned.
    [[nodiscard]] Menu* menu() const { return _menu; }
    /// The item whose submenu holds this item; null at the top level.
    [[nodiscard]] std::shared_ptr<MenuItem> parentItem() const;
    [[nodiscard]] bool hasSubmenu() const { return _submenu != nullptr; }
    [[nodiscard]] const std::shared_ptr<Menu>& submenu() const { return _submenu; }
    /// Replaces an earlier submenu, whose supermenu is cleared; null takes it away. A menu is the submenu of
    /// one item at a time: the item that had it before loses it. A menu that holds this item is refused.
    void setSubmenu(std::shared_ptr<Menu> submenu);

private:
    friend class Menu;
    MenuItem();
    void _attachSubmenu();
    void _detachSubmenu();

    QString _title;
    std::optional<AttributedTitle> _attributedTitle;
    QString _action;
    std::shared_ptr<ActionTarget> _target;
    QString _keyEquivalent;
    quint64 _keyEquivalentModifierMask = CommandKeyMask;
    State _state = State::Off;
    bool _enabled = true;
    bool _alternate = false;
    bool _separator = false;
    Menu* _menu = nullptr;
    std::shared_ptr<Menu> _submenu;
};

} // namespace tarnwick
