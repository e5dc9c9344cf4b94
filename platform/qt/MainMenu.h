// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace tarnwick {

class Application;
class Menu;
struct Event;

/// Tarnwick's own menu bar: what its windows can do. The masks name the physical modifiers. `application`
/// must outlive it.
[[nodiscard]] std::shared_ptr<Menu> makeMainMenu(Application& application);

/// Performs the first enabled item of `menu` and its submenus that has `event` as its key equivalent. False
/// when there is none.
bool performKeyEquivalent(Menu& menu, const Event& event);

} // namespace tarnwick
