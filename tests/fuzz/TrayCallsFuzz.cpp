// SPDX-License-Identifier: MIT
// Calls of whoever shows status items, to the item and to its menu. A byte that says which method, the
// signature, a zero byte, the body.
#include "platform/linux/tray/PublishedMenu.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/PeerBus.h"
#include "tests/fuzz/Wire.h"

#include <cstring>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr const char* Item = "org.kde.StatusNotifierItem";
constexpr const char* Menu = "com.canonical.dbusmenu";
constexpr const char* Properties = "org.freedesktop.DBus.Properties";
constexpr const char* ItemPath = "/StatusNotifierItem";
constexpr const char* MenuPath = "/MenuBar";

constexpr PeerBus::Call calls[] = {
    {MenuPath, Menu, "GetLayout"},        {MenuPath, Menu, "GetGroupProperties"},
    {MenuPath, Menu, "GetProperty"},      {MenuPath, Menu, "Event"},
    {MenuPath, Menu, "EventGroup"},       {MenuPath, Menu, "AboutToShow"},
    {MenuPath, Menu, "AboutToShowGroup"}, {MenuPath, Properties, "GetAll"},
    {ItemPath, Item, "Activate"},         {ItemPath, Item, "SecondaryActivate"},
    {ItemPath, Item, "ContextMenu"},      {ItemPath, Item, "Scroll"},
    {ItemPath, Properties, "Get"},        {ItemPath, Properties, "Set"},
};

/// The item with a menu of each kind of entry, and what came of a call.
class Tray
{
public:
    static Tray& shared()
    {
        static auto* const tray = new Tray;
        return *tray;
    }

    void forget() { chosen = clicked = greyed = 0; }

    [[nodiscard]] bool isAsItWas() const
    {
        return _menu.actions().size() == 4 && !_menu.actions().at(2)->isEnabled() && !_menu.isVisible();
    }

    int chosen = 0;  ///< entries that can be
    int greyed = 0;  ///< entries that cannot
    int clicked = 0; ///< the icon

private:
    Tray()
        : _bus(PeerBus::shared().connection()), _published(_menu),
          _item(QDBusConnection(QString()), _menu, [this] { ++clicked; })
    {
        connect(_menu.addAction(u"&Preferences…"_s), chosen);
        _menu.addSeparator();
        QAction* grey = _menu.addAction(u"Grey_"_s);
        grey->setEnabled(false);
        connect(grey, greyed);
        QAction* checked = _menu.addAction(u"Checked"_s);
        checked->setCheckable(true);
        connect(checked, chosen);
        require(
            _bus.registerObject(QLatin1StringView(MenuPath), &_published,
                                QDBusConnection::ExportAllContents) &&
                _bus.registerObject(QLatin1StringView(ItemPath), &_item, QDBusConnection::ExportAllContents),
            "objects can be published");
    }

    static void connect(QAction* action, int& count)
    {
        QObject::connect(action, &QAction::triggered, [&count] { ++count; });
    }

    QDBusConnection _bus;
    QMenu _menu;
    PublishedMenu _published;
    StatusNotifierItem _item;
};

bool isOneOf(const PeerBus::Call& call, std::initializer_list<const char*> members)
{
    return std::any_of(members.begin(), members.end(),
                       [&](const char* member) { return std::strcmp(call.member, member) == 0; });
}

void checkCall(Tray& tray, const PeerBus::Call& call, sd_bus_message* arguments)
{
    tray.forget();
    if (!PeerBus::shared().call(call, arguments))
        return;
    require(tray.greyed == 0, "what is greyed cannot be chosen");
    require(tray.chosen == 0 || isOneOf(call, {"Event", "EventGroup"}), "only events choose entries");
    require(tray.chosen <= 1 || isOneOf(call, {"EventGroup"}), "an event chooses one");
    require(tray.clicked == 0 || isOneOf(call, {"Activate", "ContextMenu"}), "only a click is one");
    require(tray.clicked <= 1, "one click is one");
    require(tray.isAsItWas(), "the menu is the program's, whatever others call");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    PeerBus::shared();
    Tray& tray = Tray::shared();
    FuzzInput input(data, size);
    const PeerBus::Call& call = calls[input.choice(std::size(calls))];
    return Wire::shared().feed(input, [&](sd_bus_message* arguments) { checkCall(tray, call, arguments); });
}
