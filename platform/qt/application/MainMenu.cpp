// SPDX-License-Identifier: MIT
#include "platform/qt/application/MainMenu.h"

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"
#include "menu/Menu.h"

#include <QApplication>
#include <QCoreApplication>
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
    const char* title = nullptr; ///< null for a separator
    QString action;
    QString key;
    quint64 moreModifiers = 0;
};

QString translated(const char* title)
{
    return QCoreApplication::translate("MainMenu", title);
}

void addMenu(Menu& bar, const char* title, const std::shared_ptr<ActionTarget>& target, quint64 modifier,
             const QList<Entry>& entries)
{
    const auto holder = MenuItem::create(translated(title));
    const auto menu = Menu::create(translated(title));
    for (const Entry& entry : entries) {
        if (!entry.title) {
            menu->addItem(MenuItem::separatorItem());
            continue;
        }
        const auto item = MenuItem::create(translated(entry.title), entry.action, entry.key);
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
    addMenu(*bar, QT_TRANSLATE_NOOP("MainMenu", "Application"), std::make_shared<DelegateTarget>(application),
            modifier,
            {{QT_TRANSLATE_NOOP("MainMenu", "About Tarnwick..."), u"displayAboutPanel"_s, {}},
             {QT_TRANSLATE_NOOP("MainMenu", "Preferences..."), u"showPreferencePanel"_s, u","_s},
             {}});
    // The application outlives its menu: a handle that owns nothing.
    const std::shared_ptr<ActionTarget> self(std::shared_ptr<void>(), &application);
    const auto quit =
        MenuItem::create(translated(QT_TRANSLATE_NOOP("MainMenu", "Quit")), u"terminate:"_s, u"q"_s);
    quit->setKeyEquivalentModifierMask(modifier);
    quit->setTarget(self);
    bar->itemAtIndex(0)->submenu()->addItem(quit);
    addMenu(*bar, QT_TRANSLATE_NOOP("MainMenu", "Edit"),
            std::make_shared<WidgetTarget>(&QApplication::focusWidget), modifier,
            {{QT_TRANSLATE_NOOP("MainMenu", "Undo"), u"undo"_s, u"z"_s},
             {QT_TRANSLATE_NOOP("MainMenu", "Redo"), u"redo"_s, u"z"_s, ShiftKeyMask},
             {},
             {QT_TRANSLATE_NOOP("MainMenu", "Cut"), u"cut"_s, u"x"_s},
             {QT_TRANSLATE_NOOP("MainMenu", "Copy"), u"copy"_s, u"c"_s},
             {QT_TRANSLATE_NOOP("MainMenu", "Paste"), u"paste"_s, u"v"_s},
             {QT_TRANSLATE_NOOP("MainMenu", "Select All"), u"selectAll"_s, u"a"_s}});
    addMenu(*bar, QT_TRANSLATE_NOOP("MainMenu", "Window"),
            std::make_shared<WidgetTarget>(&QApplication::activeWindow), modifier,
            {{QT_TRANSLATE_NOOP("MainMenu", "Minimize"), u"showMinimized"_s, u"m"_s},
             {QT_TRANSLATE_NOOP("MainMenu", "Close"), u"close"_s, u"w"_s}});
    return bar;
}

bool performKeyEquivalent(Menu& menu, const Event& event)
{
    constexpr quint64 Modifiers = ShiftKeyMask | ControlKeyMask | AlternateKeyMask | CommandKeyMask;
    menu.update();
    for (const auto& item : menu.itemArray()) {
        if (item->hasSubmenu()) {
            if (performKeyEquivalent(*item->submenu(), event))
                return true;
            continue;
        }
        if (item->keyEquivalent().isEmpty() || !item->isEnabled() ||
            item->keyEquivalent().toUpper() != event.charactersIgnoringModifiers.toUpper() ||
            item->keyEquivalentModifierMask() != (event.modifierFlags & Modifiers))
            continue;
        if (const auto target = item->target())
            target->perform(item->action(), item.get());
        return true;
    }
    return false;
}

} // namespace tarnwick
