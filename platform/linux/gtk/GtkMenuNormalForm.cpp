// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkMenuNormalForm.h"

#include "platform/linux/gtk/GtkMenuDecode.h"
#include "platform/linux/menus/KeyBinding.h"
#include "platform/linux/menus/MnemonicLabel.h"

#include <QSet>

#include <utility>

namespace tarnwick {

namespace {

std::optional<MenuShortcut> shortcutOf(const GtkMenuEntry& entry)
{
    const auto binding = entry.accelerator ? KeyBinding::parseAccelerator(*entry.accelerator) : std::nullopt;
    return binding ? MenuShortcut::of(*binding) : std::nullopt;
}

bool takes(const GtkActionFacts& facts, const std::optional<SdBusValue>& target)
{
    return facts.parameterType == (target ? target->signature() : QByteArray());
}

/// A state that equals the target is the chosen one of several; without a target, a state of true is a check.
bool isChecked(const GtkActionFacts& facts, const std::optional<SdBusValue>& target)
{
    if (!facts.state)
        return false;
    return target ? facts.state == target : facts.state->truth().value_or(false);
}

bool isHidden(const GtkMenuEntry& entry, bool missing, bool enabled)
{
    return (entry.hiddenWhen == "action-missing" && missing) ||
           (entry.hiddenWhen == "action-disabled" && !enabled);
}

class Walk
{
public:
    Walk(const GtkMenus& menus, const GtkMenuPlace& place, const GtkActionGroups& actions,
         const BusReference& self)
        : _menus(menus), _place(place), _actions(actions), _self(self)
    {
    }

    QList<MenuRow> rows()
    {
        _walkMenu(_place.number, _place.actionNamespace, true);
        return _rows;
    }

private:
    /// A section that is reached again, from itself or from another one, is not shown again.
    void _walkMenu(GtkMenuNumber number, const QByteArray& actionNamespace, bool separated)
    {
        if (_walked.contains(number) || _depth >= SdBusValue::MaximumDepth)
            return;
        _walked.insert(number);
        ++_depth;
        const qsizetype begin = _rows.size();
        const QByteArray menu = _pathWithin(number);
        const QList<GtkMenuEntry> entries = _menus.value(number);
        for (qsizetype i = 0; i < entries.size() && _rows.size() < gtk_menus::MaximumEntries; ++i) {
            if (entries[i].section)
                _walkSection(entries[i], actionNamespace, separated && _rows.size() > begin);
            else
                _append(entries[i], actionNamespace, _reference(menu + QByteArray::number(i)));
        }
        --_depth;
    }

    void _walkSection(const GtkMenuEntry& entry, const QByteArray& actionNamespace, bool follows)
    {
        const qsizetype begin = _rows.size();
        _walkMenu(*entry.section, _within(actionNamespace, entry.actionNamespace), false);
        if (_rows.size() == begin || !(follows || entry.label))
            return;
        MenuRow separator;
        separator.kind = MenuRow::Kind::Separator;
        separator.item = _reference(_pathWithin(*entry.section) + "-1");
        _rows.insert(begin, separator);
    }

    void _append(const GtkMenuEntry& entry, const QByteArray& actionNamespace, const BusReference& item)
    {
        MenuRow row;
        row.title = titleOfMnemonicLabel(entry.label.value_or(QString()));
        row.item = item;
        const bool missing = !_readAction(entry, actionNamespace, row);
        if (row.title.isEmpty() || isHidden(entry, missing, row.enabled))
            return;
        if (entry.submenu) {
            row.kind = MenuRow::Kind::Holder;
            row.checked = false;
            row.contents = _contents(*entry.submenu, _within(actionNamespace, entry.actionNamespace));
        } else {
            row.shortcut = shortcutOf(entry);
        }
        _rows.append(std::move(row));
    }

    /// False when the entry has an action that does not exist in the form that the entry wants.
    bool _readAction(const GtkMenuEntry& entry, const QByteArray& actionNamespace, MenuRow& row) const
    {
        row.enabled = !entry.action;
        if (!entry.action)
            return true;
        auto action = _place.find(*entry.action, actionNamespace);
        const auto group = action ? _actions.constFind(action->path) : _actions.cend();
        if (group == _actions.cend())
            return false;
        const auto facts = group->constFind(action->name);
        if (facts == group->cend() || !takes(*facts, entry.target))
            return false;
        row.enabled = facts->enabled;
        row.checked = isChecked(*facts, entry.target);
        action->target = entry.target;
        row.action = std::make_shared<const GtkMenuAction>(*std::move(action));
        return true;
    }

    [[nodiscard]] static QByteArray _within(const QByteArray& outer, const QByteArray& inner)
    {
        return outer.isEmpty() || inner.isEmpty() ? outer + inner : outer + '.' + inner;
    }

    /// What the paths of the entries of a menu begin with.
    [[nodiscard]] QByteArray _pathWithin(GtkMenuNumber number) const
    {
        return _place.menus + ' ' + QByteArray::number(number.group) + ' ' + QByteArray::number(number.menu) +
               ' ';
    }

    [[nodiscard]] BusReference _reference(const QByteArray& path) const
    {
        BusReference reference = _self;
        reference.path = path;
        return reference;
    }

    [[nodiscard]] BusReference _contents(GtkMenuNumber submenu, const QByteArray& actionNamespace) const
    {
        GtkMenuPlace place = _place;
        place.number = submenu;
        place.actionNamespace = actionNamespace;
        BusReference reference = _self;
        reference.path = place.toPath();
        return reference;
    }

    const GtkMenus& _menus;
    const GtkMenuPlace& _place;
    const GtkActionGroups& _actions;
    const BusReference& _self;
    QSet<GtkMenuNumber> _walked;
    int _depth = 0;
    QList<MenuRow> _rows;
};

} // namespace

QList<GtkMenuNumber> missingSections(const GtkMenus& menus, GtkMenuNumber number)
{
    QList<GtkMenuNumber> missing;
    QSet<GtkMenuNumber> seen{number};
    QList<GtkMenuNumber> next{number};
    while (!next.isEmpty()) {
        const GtkMenuNumber current = next.takeLast();
        if (!menus.contains(current)) {
            missing.append(current);
            continue;
        }
        for (const GtkMenuEntry& entry : *menus.constFind(current))
            if (entry.section && !seen.contains(*entry.section)) {
                seen.insert(*entry.section);
                next.append(*entry.section);
            }
    }
    return missing;
}

QList<MenuRow> gtkNormalForm(const GtkMenus& menus, const GtkMenuPlace& place, const GtkActionGroups& actions,
                             const BusReference& self)
{
    return Walk(menus, place, actions, self).rows();
}

} // namespace tarnwick
