// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <memory>

namespace tarnwick {

class Application;
class Menu;
struct Event;

/// Tarnwick's own menu bar: what its windows can do, by shortcuts with `modifier`, a physical one.
/// `application` must outlive it.
[[nodiscard]] std::shared_ptr<Menu> makeMainMenu(Application& application, quint64 modifier);

/// Performs the first enabled item of `menu` and its submenus that has `event` as its key equivalent. False
/// when there is none.
bool performKeyEquivalent(Menu& menu, const Event& event);

} // namespace tarnwick
