// SPDX-License-Identifier: MIT
#include "platform/qt/MainMenu.h"

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"
#include "menu/Menu.h"

#include <QApplication>
#include <QMetaMethod>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The application's delegate, whichever it is at the time.
class DelegateTarget final : public ActionTarget
{
public:
    explicit DelegateTarget(Application& application) : _application(application) {}

    [[nodiscard]] bool respondsTo(const QString& action) const override
    {
        const ApplicationDelegate* delegate = _application.delegate();
        return delegate && delegate->respondsTo(action);
    }
    void perform(const QString& action, ActionSender* sender) override
    {
        if (ApplicationDelegate* delegate = _application.delegate())
            delegate->perform(action, sender);
    }

private:
    Application& _application;
};

/// A widget of our own: it does what it has a slot without arguments for.
class WidgetTarget final : public ActionTarget
{
public:
    explicit WidgetTarget(QWidget* (*widget)()) : _widget(widget) {}

    [[nodiscard]] bool respondsTo(const QString& action) const override
    {
        const QWidget* widget = _widget();
        return widget && widget->metaObject()->indexOfSlot((action + u"()"_s).toLatin1().constData()) >= 0;
    }
    void perform(const QString& action, ActionSender* /*sender*/) override
    {
        if (respondsTo(action))
            QMetaObject::invokeMethod(_widget(), action.toLatin1().constData(), Qt::DirectConnection);
    }

private:
    QWidget* (*_widget)();
};

struct Entry
{
    QString title; ///< empty for a separator
    QString action;
    QString key;
    quint64 moreModifiers = 0;
};

void addMenu(Menu& bar, const QString& title, const std::shared_ptr<ActionTarget>& target, quint64 modifier,
             const QList<Entry>& entries)
{
    const auto holder = MenuItem::create(title);
    const auto menu = Menu::create(title);
    for (const Entry& entry : entries) {
        if (entry.title.isEmpty()) {
            menu->addItem(MenuItem::separatorItem());
            continue;
        }
        const auto item = MenuItem::create(entry.title, entry.action, entry.key);
        item->setKeyEquivalentModifierMask(modifier | entry.moreModifiers);
        item->setTarget(target);
        menu->addItem(item);
    }
    holder->setSubmenu(menu);
    bar.addItem(holder);
}

} // namespace

std::shared_ptr<Menu> makeMainMenu(Application& application, quint64 modifier)
{
    auto bar = Menu::create(u"MainMenu"_s);
    addMenu(*bar, u"Application"_s, std::make_shared<DelegateTarget>(application), modifier,
            {{u"About Tarnwick..."_s, u"displayAboutPanel"_s, {}},
             {u"Preferences..."_s, u"showPreferencePanel"_s, u","_s},
             {}});
    // The application outlives its menu: a handle that owns nothing.
    const std::shared_ptr<ActionTarget> self(std::shared_ptr<void>(), &application);
    const auto quit = MenuItem::create(u"Quit"_s, u"terminate:"_s, u"q"_s);
    quit->setKeyEquivalentModifierMask(modifier);
    quit->setTarget(self);
    bar->itemAtIndex(0)->submenu()->addItem(quit);
    addMenu(*bar, u"Edit"_s, std::make_shared<WidgetTarget>(&QApplication::focusWidget), modifier,
            {{u"Undo"_s, u"undo"_s, u"z"_s},
             {u"Redo"_s, u"redo"_s, u"z"_s, ShiftKeyMask},
             {},
             {u"Cut"_s, u"cut"_s, u"x"_s},
             {u"Copy"_s, u"copy"_s, u"c"_s},
             {u"Paste"_s, u"paste"_s, u"v"_s},
             {u"Select All"_s, u"selectAll"_s, u"a"_s}});
    addMenu(*bar, u"Window"_s, std::make_shared<WidgetTarget>(&QApplication::activeWindow), modifier,
            {{u"Minimize"_s, u"showMinimized"_s, u"m"_s}, {u"Close"_s, u"close"_s, u"w"_s}});
    return bar;
}

bool performKeyEquivalent(Menu& menu, const Event& event)
{
    constexpr quint64 modifiers = ShiftKeyMask | ControlKeyMask | AlternateKeyMask | CommandKeyMask;
    menu.update();
    for (const auto& item : menu.itemArray()) {
        if (item->hasSubmenu()) {
            if (performKeyEquivalent(*item->submenu(), event))
                return true;
            continue;
        }
        if (item->keyEquivalent().isEmpty() || !item->isEnabled() ||
            item->keyEquivalent().toUpper() != event.charactersIgnoringModifiers.toUpper() ||
            item->keyEquivalentModifierMask() != (event.modifierFlags & modifiers))
            continue;
        if (const auto target = item->target())
            target->perform(item->action(), item.get());
        return true;
    }
    return false;
}

} // namespace tarnwick
