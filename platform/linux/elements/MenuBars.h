// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AccessibleTree.h"
#include "platform/linux/dbusmenu/DbusMenuExports.h"
#include "platform/linux/front/FrontWindow.h"
#include "platform/linux/gtk/GtkExports.h"
#include "platform/linux/menus/MenuSource.h"

#include <QHash>

#include <optional>

namespace tarnwick {

struct FoundMenuBar
{
    MenuSource* source = nullptr;
    BusReference bar;
    xcb_window_t owner = XCB_WINDOW_NONE; ///< none when it belongs to no window in particular

    explicit operator bool() const { return source != nullptr; }
};

/// What tells one menu bar from another: the window that has it, else the bar itself. The window goes first,
/// since which of two windows with the same title has a bar is known only a moment after the switch.
struct MenuBarOwner
{
    xcb_window_t window = XCB_WINDOW_NONE;
    BusReference bar;

    friend bool operator==(const MenuBarOwner&, const MenuBarOwner&) = default;
};

/// Where a window's menu bar is published. GUI thread only.
///
/// | in the accessibility tree     | exported by the window     | what is read                              |
/// |-------------------------------|----------------------------|-------------------------------------------|
/// | a bar                         | nothing                    | the tree                                  |
/// | a bar                         | its own model              | the tree, which has more shortcuts        |
/// | a bar with empty menus        | by the module of GTK       | the tree, after a look at the export has  |
/// |                               |                            | made the program fill its menus           |
/// | a bar that hides closed menus | a model with entries       | the export: GTK 4                         |
/// | none                          | a model with entries       | the export: GTK 2, or a bar that is shown |
/// |                               |                            | elsewhere                                 |
/// | none                          | nothing, or an empty model | what is exported for outside the window,  |
/// |                               |                            | if anything                               |
/// | of a toolkit that may make    | nothing                    | the same, else the tree: Firefox          |
/// | menus when they open          |                            |                                           |
class MenuBars
{
public:
    /// All must outlive this.
    struct Sources
    {
        AccessibleTree& tree;
        GtkExports& exports;
        MenuSource& own; ///< for the windows of this process
    };
    /// All must outlive this. `outside` is what is exported for a place outside of windows.
    MenuBars(X11Windows& windows, const Sources& sources, DbusMenuExports& outside)
        : _windows(windows), _sources(sources), _outside(outside)
    {
    }

    /// The window's own menu bar, else that of a window it is transient for, else that of any window of the
    /// same application; false when there is none. A bar in the accessibility tree goes before an exported
    /// one, unless its menus cannot be read while they are closed.
    [[nodiscard]] FoundMenuBar of(const FrontWindow& front);
    /// Reads what is in the menus of the bar that was found last, if that is of the same process, for `most`
    /// at most: see MenuSource.
    void readAhead(const FrontWindow& front, std::chrono::milliseconds most);
    /// Without a menu bar, the window that this one is transient for in the end.
    [[nodiscard]] MenuBarOwner ownerOf(const FrontWindow& front);

private:
    [[nodiscard]] FoundMenuBar _find(const FrontWindow& front);
    [[nodiscard]] FoundMenuBar _findOfNative(const FrontWindow& front);
    [[nodiscard]] FoundMenuBar _ofNative(const FrontWindow& front);
    [[nodiscard]] WindowPosition _position(const FrontWindow& front);
    [[nodiscard]] FoundMenuBar _ofWindow(const X11Window& window, bool active);
    /// Sees to it that the program has filled the menus of its bar in the tree, if it can be had to.
    void _haveFilled(xcb_window_t window, const BusReference& bar);
    [[nodiscard]] FoundMenuBar _ofAnyWindow(qint64 processIdentifier);
    /// `inside`, or what is exported for outside the window where that may be better.
    [[nodiscard]] FoundMenuBar _orOutside(const X11Window& window, const FoundMenuBar& inside);
    [[nodiscard]] FoundMenuBar _orOutsideAnyWindow(qint64 processIdentifier, const FoundMenuBar& inside);
    /// Whether there is something to read: a collector may know a bar that is gone or has nothing in it.
    [[nodiscard]] bool _hasEntries(const BusReference& outside);
    /// Whether its menus may be missing until they first open, or it is none.
    [[nodiscard]] bool _mayLackMenus(const FoundMenuBar& found);

    X11Windows& _windows;
    Sources _sources;
    DbusMenuExports& _outside;
    FoundMenuBar _last; ///< that was found
    std::optional<qint64> _processOfLast;
    /// By windows: the menus that were empty before a look at all of them. Another look helps none of these.
    QHash<xcb_window_t, QList<BusReference>> _leftEmpty;
    QHash<xcb_window_t, std::optional<Deadline>> _failedLooks; ///< by windows: when to look again
};

} // namespace tarnwick
