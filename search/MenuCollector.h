// SPDX-License-Identifier: MIT
#pragma once

#include "search/MenuEntry.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

class Menu;

/// A menu that was not searched, or not to its end.
struct UnsearchedMenu
{
    enum class Reason {
        Empty,     ///< nothing is in it, or no more than the word that it is made when it opens
        Slow,      ///< its half second was over
        OutOfTime, ///< all menus together had taken theirs
        TooMuch,   ///< deeper, or more, than any menu bar
    };
    QStringList path;
    Reason reason;

    friend bool operator==(const UnsearchedMenu&, const UnsearchedMenu&) = default;
};

/// Reads the menus of a menu bar one after another, as they are read when they open: the delegate is told
/// menuNeedsUpdate and the menu enables its items. They do not open, and nothing tells the delegate so. Those
/// that are open are taken as they stand, first; then the menus in the innermost of them, those in the one
/// around it and so on; then those below, level by level. Each is asked once, and none that could not be
/// opened, since its entry is greyed. Separators are left out, and what has no title or nothing to do.
/// Alternates are entries like others: who searches them does not know which key to hold. GUI thread only.
class MenuCollector
{
public:
    /// In seconds. What is asked keeps the first one itself; here it is taken as what a menu may need.
    static constexpr double TimeForMenu = 0.5;
    /// While menus are read; the time between the steps does not count.
    static constexpr double TimeInAll = 3.0;
    static constexpr double PauseAfterSlowMenu = 0.1;
    static constexpr qsizetype DeepestMenu = 32;
    static constexpr int MostEntries = 50000;

    using ShownTitle = std::function<QString(const MenuItem&)>;

    /// `root` and `open`, menus below it, are open now. Their delegates must live while they are attached.
    MenuCollector(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open,
                  ShownTitle shownTitle);
    ~MenuCollector();
    MenuCollector(const MenuCollector&) = delete;
    MenuCollector& operator=(const MenuCollector&) = delete;

    /// The next menu, at most one of which is asked for. Each call belongs into an event of its own, since a
    /// reading has the time of one event. Nothing when it was the last one, and within another call.
    [[nodiscard]] std::optional<CollectedMenu> step();
    /// Whether the next step asks nobody.
    [[nodiscard]] bool isNextOpen() const { return !_open.isEmpty(); }
    [[nodiscard]] bool isFinished() const { return _open.isEmpty() && _unread.isEmpty() && !_reading; }

    /// In seconds. What was pressed while a menu needed all its time is handled first; until then nothing
    /// could be read, and the next menu would look like an empty one.
    [[nodiscard]] double delayOfNextStep() const { return _wasSlow ? PauseAfterSlowMenu : 0; }

    /// Nothing is read any more; what is read right now is dropped. Menus that nothing had been read of
    /// before are as empty again: what was collected of them stays. They are not to be open yet.
    void cancel();

    /// In the order of the reading. After a cancel no more than before it.
    [[nodiscard]] const QList<UnsearchedMenu>& unsearched() const { return _unsearched; }

private:
    struct Pending
    {
        std::shared_ptr<Menu> menu;
        int holder;
        QStringList path;
    };

    [[nodiscard]] std::optional<Pending> _takeNext();
    [[nodiscard]] bool _isAttached(const Menu& menu) const;
    [[nodiscard]] bool _read(const Pending& pending);
    [[nodiscard]] CollectedMenu _collect(const Pending& pending, bool wasOpen);
    void _await(const QList<Pending>& menus, bool holderWasOpen);
    void _leaveOut(UnsearchedMenu::Reason reason);

    std::shared_ptr<Menu> _root;
    QList<std::shared_ptr<Menu>> _openMenus;
    ShownTitle _shownTitle;
    QList<Pending> _open;
    QList<Pending> _unread;
    QList<UnsearchedMenu> _unsearched;
    QList<std::shared_ptr<Menu>> _filled; ///< that were empty; the last one is read right now, while one is
    int _entries = 0;
    double _spent = 0;
    bool _wasSlow = false;
    bool _reading = false;
    bool _cancelled = false;
};

} // namespace tarnwick
