// SPDX-License-Identifier: MIT
#include "platform/linux/elements/SourceReport.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString NothingExported = u"nothing is exported"_s;
const QString GtkModel = u"org.gtk.Menus"_s;
const QString DbusMenu = u"com.canonical.dbusmenu"_s;

QString told(const QString& source, const QString& what)
{
    return source + u": "_s + what;
}

QString told(const QString& by, const std::optional<QList<MenuRow>>& bar)
{
    if (!bar)
        return by + u", it does not answer"_s;
    return by + (bar->isEmpty() ? u", without entries"_s : u", %1 menus"_s.arg(menusIn(*bar).size()));
}

} // namespace

QStringList SourceReport::lines(std::optional<qint64> processIdentifier)
{
    const FrontWindow window = _windowOf(processIdentifier);
    if (!window)
        return {};
    const InTree tree = _inTree(window);
    const QString toolkit = tree.toolkit.isEmpty() ? u"not there"_s : u"toolkit \""_s + tree.toolkit + u'"';
    const QString bar = tree.bar
                            ? u"%1 menus, %2 of them with nothing in them"_s.arg(tree.menus).arg(tree.empty)
                            : u"no menu bar"_s;
    const QString exported = _exported(window);
    const QString read = _read(window);
    const bool isReadOutside = read.startsWith(DbusMenu);
    return QStringList{told(u"accessibility tree"_s, toolkit + u", "_s + bar), told(GtkModel, exported),
                       told(DbusMenu, _exportedForOutside(window)), told(u"read"_s, read)} +
           (isReadOutside ? QStringList() : _advice(tree, exported));
}

FrontWindow SourceReport::_windowOf(std::optional<qint64> processIdentifier)
{
    FrontWindow front = _reading.front->current();
    if (!processIdentifier || front.processIdentifier == processIdentifier)
        return front;
    const QList<xcb_window_t> windows = _reading.windows.windowsOf(*processIdentifier);
    if (!windows.isEmpty())
        return {windows.last(), processIdentifier};
    const QList<BusReference> native = _reading.tree.menuBars.windowsOf(*processIdentifier);
    return native.isEmpty() ? FrontWindow{} : FrontWindow{XCB_WINDOW_NONE, processIdentifier, native.last()};
}

SourceReport::InTree SourceReport::_inTree(const FrontWindow& window)
{
    _reading.budget.begin();
    InTree tree{_toolkitOf(window), _barInTree(window)};
    if (!tree.bar)
        return tree;
    const auto rows = _reading.tree.menus.readBar(tree.bar);
    tree.menus = menusIn(rows.value_or(QList<MenuRow>())).size();
    tree.empty = _reading.tree.menuBars.emptyMenusOf(tree.bar).size();
    return tree;
}

BusReference SourceReport::_barInTree(const FrontWindow& window)
{
    AtspiMenuBars& bars = _reading.tree.menuBars;
    return window.isNative() ? bars.below(window.accessible)
                             : bars.ofWindow({window.window, window.processIdentifier}, true);
}

QString SourceReport::_toolkitOf(const FrontWindow& window)
{
    if (!window.processIdentifier)
        return {};
    const ReadingBudget::Reading reading(_reading.budget);
    const auto roots = _reading.tree.applications.rootsOf(*window.processIdentifier, reading.deadline());
    if (roots.isEmpty())
        return {};
    return _reading.tree.bus.facts(roots.first(), {AtspiQuestion::Toolkit}, reading.deadline())
        .toolkit.value_or(u"unknown"_s);
}

QString SourceReport::_exported(const FrontWindow& window)
{
    _reading.budget.begin();
    GtkMenuBars& bars = _reading.exports.menuBars;
    const BusReference bar = window.isNative() ? bars.ofProcess(window.processIdentifier.value_or(0), {})
                                               : bars.ofWindow(window.window);
    if (!bar)
        return NothingExported;
    const QString by =
        GtkMenuBars::isOfModule(bar) ? u"exported by the module of GTK"_s : u"exported by the program"_s;
    return told(by, _reading.exports.menus.readBar(bar));
}

QString SourceReport::_exportedForOutside(const FrontWindow& window)
{
    _reading.budget.begin();
    DbusMenuBars& bars = _reading.outside.menuBars;
    const BusReference collected = window.isNative() ? bars.at(window.menuBar.service, window.menuBar.path)
                                                     : bars.ofWindow(window.window);
    const BusReference bar =
        collected || !window.processIdentifier ? collected : bars.ofProcess(*window.processIdentifier);
    if (!bar)
        return NothingExported;
    const QString collector = window.isNative() ? u"told by the compositor"_s : u"collected by the desktop"_s;
    return told(collected ? collector : u"exported by the program"_s, _reading.outside.menus.readBar(bar));
}

QString SourceReport::_read(const FrontWindow& window)
{
    _reading.budget.begin();
    const FoundMenuBar found = _reading.menuBars.of(window);
    if (!found)
        return u"nothing"_s;
    const QString source = _nameOf(*found.source);
    const bool another = found.owner != XCB_WINDOW_NONE && found.owner != window.window;
    return another ? source + u" of another window of the application"_s : source;
}

QString SourceReport::_nameOf(const MenuSource& source) const
{
    if (&source == &_reading.tree.menus)
        return u"the accessibility tree"_s;
    if (&source == &_reading.exports.menus)
        return GtkModel;
    return &source == &_reading.outside.menus ? DbusMenu : u"Tarnwick itself"_s;
}

QStringList SourceReport::_advice(const InTree& tree, const QString& exported)
{
    const bool unmade = tree.bar && tree.empty > 0;
    const bool nothing = !tree.bar && exported == NothingExported;
    QString advice;
    if (tree.toolkit == u"gtk" && unmade && exported == NothingExported)
        advice = u"the module appmenu-gtk3-module has menus made that are made when they open"_s;
    else if (tree.toolkit == u"Gecko" && (unmade || nothing))
        advice = u"widget.gtk.global-menu.enabled in about:config, with libdbusmenu-gtk3-4"_s;
    else if (tree.toolkit.isEmpty() && nothing)
        advice = u"appmenu-gtk2-module for a program of GTK 2, libatk-wrapper-java-jni for one of Java"_s;
    return advice.isEmpty() ? QStringList() : QStringList(told(u"could be switched on"_s, advice));
}

} // namespace tarnwick
