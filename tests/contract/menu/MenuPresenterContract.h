// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/NotificationCenter.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "menu/MenuPresenter.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

/// What the core relies on of whoever shows its menus.
class MenuPresenterContract
{
public:
    struct Subject
    {
        MenuPresenter& presenter;
        /// What the user does in the next menu: once it is open, `whileOpen` runs; then the user goes for the
        /// entries of these titles, one in each menu, and closes the menu if that has not chosen anything.
        std::function<void(const QStringList& way, const std::function<void()>& whileOpen)> user;
    };

    explicit MenuPresenterContract(Subject subject)
        : _subject(std::move(subject)), _presenter(_subject.presenter)
    {
    }

    void run()
    {
        _checkChoice();
        _checkSubmenu();
        _checkNoChoice();
        _checkWhileOpen();
    }

private:
    using Journal = QStringList;

    class Target final : public ActionTarget
    {
    public:
        explicit Target(Journal& journal) : _journal(journal) {}
        [[nodiscard]] bool respondsTo(const QString& action) const override
        {
            return action == QStringLiteral("act:");
        }
        void perform(const QString& action, ActionSender* sender) override
        {
            _journal.append(action + QStringLiteral(" ") + static_cast<MenuItem*>(sender)->title());
        }

    private:
        Journal& _journal;
    };

    /// Switches all entries on before it opens: what it says of them is overruled by their targets.
    class Delegate final : public MenuDelegate
    {
    public:
        explicit Delegate(Journal& journal) : _journal(journal) {}
        void menuNeedsUpdate(Menu& menu) override
        {
            _journal.append(QStringLiteral("update ") + menu.title());
            for (const auto& item : menu.itemArray())
                item->setEnabled(true);
        }
        void menuWillOpen(Menu& menu) override
        {
            _journal.append(QStringLiteral("open ") + menu.title());
            const auto denied = menu.itemWithTitle(QStringLiteral("Denied"));
            EXPECT_FALSE(denied && denied->isEnabled()) << "the menu has been updated by now";
        }
        void menuDidClose(Menu& menu) override { _journal.append(QStringLiteral("close ") + menu.title()); }

    private:
        Journal& _journal;
    };

    std::shared_ptr<Menu> _menuOf(const QString& name, const QStringList& titles)
    {
        auto menu = Menu::create(name);
        menu->setDelegate(&_delegate);
        for (const QString& title : titles) {
            const bool denied = title == QStringLiteral("Denied");
            const auto item =
                MenuItem::create(title, denied ? QStringLiteral("unknown:") : QStringLiteral("act:"));
            item->setTarget(_target);
            menu->addItem(item);
        }
        return menu;
    }

    std::shared_ptr<Menu> _menu()
    {
        auto menu = _menuOf(QStringLiteral("bar"),
                            {QStringLiteral("Open"), QStringLiteral("Denied"), QStringLiteral("Recent")});
        menu->itemWithTitle(QStringLiteral("Recent"))
            ->setSubmenu(
                _menuOf(QStringLiteral("recent"), {QStringLiteral("Alpha"), QStringLiteral("Beta")}));
        return menu;
    }

    bool _popUp(const std::shared_ptr<Menu>& menu)
    {
        return _presenter.popUpMenuPositioningItem(menu, nullptr, QPointF(200, 400));
    }

    /// Shows a menu to a user who goes this way, and gives what has happened, the last thing being whether an
    /// item was chosen.
    Journal _show(const QStringList& way, const std::function<void()>& whileOpen = {})
    {
        _journal.clear();
        const auto menu = _menu();
        const auto submenu = menu->itemWithTitle(QStringLiteral("Recent"))->submenu();
        const auto told = [this](const QString& name) {
            return [this, name](const Notification& notification) {
                _journal.append(QStringLiteral("told ") + name + QStringLiteral(" ") +
                                notification.userInfo.value(QStringLiteral("MenuItem")).toString());
            };
        };
        auto& center = NotificationCenter::defaultCenter();
        const QString name = QString::fromUtf16(MenuDidSendActionNotificationName);
        const auto ofMenu = center.addObserver(name, menu.get(), told(menu->title()));
        const auto ofSubmenu = center.addObserver(name, submenu.get(), told(submenu->title()));
        _subject.user(way, whileOpen);
        const bool chosen = _popUp(menu);
        return _journal + Journal{chosen ? QStringLiteral("chosen") : QStringLiteral("nothing")};
    }

    static Journal _lines(const char* text) { return QString::fromLatin1(text).split(QStringLiteral(", ")); }

    void _checkChoice()
    {
        const Journal chosen = _lines("update bar, open bar, close bar, act: Open, told bar Open, chosen");
        for (int time = 0; time < 2; ++time)
            EXPECT_EQ(_show({QStringLiteral("Open")}), chosen) << "time " << time;
    }

    void _checkSubmenu()
    {
        Journal journal = _show({QStringLiteral("Recent"), QStringLiteral("Beta")});
        EXPECT_EQ(journal.removeAll(QStringLiteral("close bar")), 1);
        EXPECT_EQ(journal.count(QStringLiteral("close recent")), 1);
        EXPECT_EQ(journal,
                  _lines("update bar, open bar, update recent, open recent, close recent, act: Beta, "
                         "told recent Beta, chosen"))
            << "every menu has closed before the action is performed";
    }

    void _checkNoChoice()
    {
        const Journal nothing = _lines("update bar, open bar, close bar, nothing");
        EXPECT_EQ(_show({}), nothing);
        EXPECT_EQ(_show({QStringLiteral("Denied")}), nothing) << "it is disabled";
        EXPECT_EQ(_show({QStringLiteral("Open")}, [this] { _presenter.cancelTracking(); }), nothing);

        EXPECT_FALSE(_popUp(nullptr));
        _presenter.cancelTracking();
        EXPECT_EQ(_show({QStringLiteral("Open")}).constLast(), QStringLiteral("chosen"))
            << "what is cancelled without a menu does not close the next one";
    }

    void _checkWhileOpen()
    {
        const auto other = _menuOf(QStringLiteral("other"), {QStringLiteral("Open")});
        const Journal journal =
            _show({QStringLiteral("Open")}, [this, &other] { EXPECT_FALSE(_popUp(other)); });
        EXPECT_EQ(journal.filter(QStringLiteral("other")), Journal()) << "one is open already";
        EXPECT_EQ(journal.constLast(), QStringLiteral("chosen"));

        _journal.clear();
        auto menu = _menu();
        _subject.user({QStringLiteral("Open")}, [&menu] {
            menu->removeAllItems();
            menu.reset();
        });
        EXPECT_TRUE(_popUp(menu));
        EXPECT_EQ(_journal, _lines("update bar, open bar, close bar, act: Open"))
            << "what is shown stays, though the menu has changed and nobody else has it";
    }

    Subject _subject;
    MenuPresenter& _presenter;
    Journal _journal;
    Delegate _delegate{_journal};
    std::shared_ptr<Target> _target = std::make_shared<Target>(_journal);
};

} // namespace tarnwick
