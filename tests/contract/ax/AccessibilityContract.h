// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"
#include "menu/GlyphLookUpTable.h"
#include "tests/fakes/MenuFile.h"

#include <QHash>
#include <QStringList>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace tarnwick {

/// What every Accessibility promises of an application in front that shows tests/data/editor.menu: run on the
/// fake and on the real adapters, so that the fake cannot drift.
class AccessibilityContract
{
public:
    struct Subject
    {
        Accessibility& accessibility;
        qint64 processIdentifier = 0;
        QString title; ///< the application's display name
        /// The titles pressed in the application so far, once there are at least `count` or it has taken too
        /// long.
        std::function<QStringList(qsizetype count)> pressed;
    };

    explicit AccessibilityContract(Subject subject)
        : _subject(std::move(subject)), _ax(_subject.accessibility)
    {
    }

    void run()
    {
        _checkAccess();
        _checkApplication();
        _checkMenuBar();
        _checkFailures();
        _checkPress();
    }

private:
    void _checkAccess()
    {
        EXPECT_TRUE(_ax.apiEnabled());
        EXPECT_TRUE(_ax.isProcessTrusted());
        const UIElementRef system = _ax.createSystemWide();
        ASSERT_TRUE(system);
        EXPECT_EQ(_text(system, AXRoleAttribute), _name("AXSystemWide"));
        EXPECT_TRUE(_ax.createSystemWide() == system);
    }

    void _checkApplication()
    {
        const UIElementRef focused = _element(_ax.createSystemWide(), _name("AXFocusedApplication"));
        ASSERT_TRUE(focused);
        EXPECT_EQ(_text(focused, AXRoleAttribute), AXApplicationRole);
        EXPECT_EQ(_text(focused, AXTitleAttribute), _subject.title);
        EXPECT_EQ(_ax.getPid(focused), _subject.processIdentifier);
        const UIElementRef created = _ax.createApplication(_subject.processIdentifier);
        EXPECT_TRUE(created == focused) << "one application is one element, however it was found";
        EXPECT_EQ(_text(created, AXTitleAttribute), _subject.title);
    }

    void _checkMenuBar()
    {
        _ax.beginReading();
        const UIElementRef bar = _menuBar();
        ASSERT_TRUE(bar);
        EXPECT_EQ(_text(bar, AXRoleAttribute), _name("AXMenuBar"));
        EXPECT_TRUE(_element(bar, AXParentAttribute) == _application());
        EXPECT_EQ(_ax.getPid(bar), _subject.processIdentifier);
        _checkEntries(bar, MenuFile::read(_name("editor")), _name("AXMenuBarItem"));
        EXPECT_TRUE(_menuBar() == bar) << "read again, it is the same element";
    }

    void _checkEntries(const UIElementRef& menu, const std::vector<fixture::MenuText>& expected,
                       const QString& role)
    {
        _ax.beginReading();
        const QList<UIElementRef> items = _children(menu);
        ASSERT_EQ(items.size(), static_cast<qsizetype>(expected.size()));
        EXPECT_EQ(_ax.getAttributeValueCount(menu, AXChildrenAttribute), static_cast<int>(expected.size()));
        for (qsizetype i = 0; i < items.size(); ++i) {
            const fixture::MenuText& entry = expected.at(static_cast<std::size_t>(i));
            const ::testing::ScopedTrace trace(__FILE__, __LINE__, entry.separator ? "---" : entry.title);
            EXPECT_TRUE(_element(items.at(i), AXParentAttribute) == menu);
            EXPECT_EQ(_text(items.at(i), AXRoleAttribute), role);
            EXPECT_EQ(_text(items.at(i), AXTitleAttribute), QString::fromStdString(entry.title));
            _checkNames(items.at(i));
            if (!entry.separator)
                _checkEntry(items.at(i), entry, role != _name("AXMenuBarItem"));
        }
        // Only now: a submenu is a reading of its own.
        for (qsizetype i = 0; i < items.size(); ++i) {
            const fixture::MenuText& entry = expected.at(static_cast<std::size_t>(i));
            if (entry.holdsMenu())
                _checkEntries(_children(items.at(i)).value(0), entry.children, _name("AXMenuItem"));
        }
    }

    void _checkEntry(const UIElementRef& item, const fixture::MenuText& entry, bool inMenu)
    {
        // These follow what is selected in the application.
        const bool ownState = entry.title == "Cut" || entry.title == "Copy" || entry.title == "Paste";
        const auto enabled = _ax.copyAttributeValue(item, _name("AXEnabled"));
        ASSERT_TRUE(enabled);
        EXPECT_EQ(enabled->typeId(), QMetaType::Bool);
        EXPECT_TRUE(ownState || enabled->toBool() == entry.enabled);
        EXPECT_EQ(_ax.copyAttributeValue(item, _name("AXMenuItemMarkChar")).has_value(), entry.checked);
        const QStringList actions = _ax.copyActionNames(item).value_or(QStringList());
        if (entry.holdsMenu() || !inMenu) {
            EXPECT_EQ(actions, QStringList()) << "what holds a menu cannot be pressed";
            const QList<UIElementRef> below = _children(item);
            ASSERT_EQ(below.size(), 1);
            EXPECT_EQ(_text(below.first(), AXRoleAttribute), _name("AXMenu"));
            EXPECT_FALSE(_ax.copyAttributeValue(below.first(), AXTitleAttribute)) << "menus have no titles";
            EXPECT_TRUE(_element(below.first(), AXParentAttribute) == item);
        } else {
            EXPECT_EQ(actions, QStringList{AXPressAction});
            EXPECT_TRUE(_ax.copyActionDescription(item, AXPressAction));
            EXPECT_TRUE(_children(item).isEmpty());
        }
        _checkShortcut(item, QString::fromStdString(entry.shortcut));
    }

    // The two ways of reading agree: what is listed can be read, what can be read is listed.
    void _checkNames(const UIElementRef& item)
    {
        const auto names = _ax.copyAttributeNames(item);
        ASSERT_TRUE(names);
        for (const QString& name : *names)
            EXPECT_TRUE(_ax.copyAttributeValue(item, name)) << name.toStdString();
        for (const char* known :
             {"AXRole", "AXTitle", "AXParent", "AXChildren", "AXEnabled", "AXMenuItemMarkChar",
              "AXMenuItemCmdChar", "AXMenuItemCmdGlyph", "AXMenuItemCmdModifiers"}) {
            EXPECT_EQ(names->contains(_name(known)), _ax.copyAttributeValue(item, _name(known)).has_value())
                << known;
        }
    }

    // Control is reported as Command; what the codes cannot express is not reported at all.
    void _checkShortcut(const UIElementRef& item, const QString& shortcut)
    {
        QStringList parts = shortcut.split(u'+');
        const QString key = parts.takeLast();
        const int code = (parts.contains(_name("Shift")) ? 1 : 0) | (parts.contains(_name("Alt")) ? 2 : 0) |
                         (parts.contains(_name("Super")) ? 4 : 0) | (parts.contains(_name("Ctrl")) ? 0 : 8);
        const bool reported = !key.isEmpty() && !QList<int>{5, 7, 8, 13, 14, 15}.contains(code);
        const auto character = _ax.copyAttributeValue(item, _name("AXMenuItemCmdChar"));
        const auto glyph = _ax.copyAttributeValue(item, _name("AXMenuItemCmdGlyph"));
        const auto modifiers = _ax.copyAttributeValue(item, _name("AXMenuItemCmdModifiers"));
        EXPECT_EQ(character || glyph, reported);
        if (!reported)
            return;
        EXPECT_EQ(modifiers.value_or(QVariant()).toInt(), code);
        EXPECT_TRUE(modifiers.has_value());
        const QString reportedKey = glyph ? glyphLookUpTable().value(QString::number(glyph->toInt()))
                                          : character.value_or(QVariant()).toString().toLower();
        EXPECT_EQ(reportedKey, _keyEquivalent(key));
    }

    void _checkFailures()
    {
        _ax.beginReading();
        const UIElementRef file = _children(_menuBar()).value(0);
        ASSERT_TRUE(file);
        const UIElementRef nobody = _ax.createApplication(0x7FFFFFFE);
        for (const UIElementRef& element : {UIElementRef(), nobody}) {
            EXPECT_FALSE(_ax.copyAttributeValue(element, _name("AXMenuBar")));
            EXPECT_FALSE(_ax.copyAttributeValue(element, AXChildrenAttribute));
            EXPECT_FALSE(_ax.getAttributeValueCount(element, AXChildrenAttribute));
            EXPECT_FALSE(_ax.isAttributeSettable(element, AXTitleAttribute).value_or(false));
            EXPECT_FALSE(_ax.setAttributeValue(element, AXTitleAttribute, _name("x")));
            EXPECT_FALSE(_ax.performAction(element, AXPressAction));
            EXPECT_TRUE(_ax.copyActionNames(element).value_or(QStringList()).isEmpty());
        }
        EXPECT_FALSE(_ax.copyAttributeNames(UIElementRef()));
        EXPECT_FALSE(_ax.getPid(UIElementRef()));
        EXPECT_FALSE(nobody == UIElementRef());

        EXPECT_FALSE(_ax.copyAttributeValue(file, _name("AXNoSuchAttribute")));
        EXPECT_FALSE(_ax.getAttributeValueCount(file, _name("AXNoSuchAttribute")));
        EXPECT_FALSE(_ax.getAttributeValueCount(file, AXTitleAttribute)) << "a text has no count";
        EXPECT_FALSE(_ax.isAttributeSettable(file, AXTitleAttribute).value_or(false));
        EXPECT_FALSE(_ax.setAttributeValue(file, AXTitleAttribute, _name("x")));
        EXPECT_EQ(_text(file, AXTitleAttribute), _name("File"));
        EXPECT_FALSE(_ax.performAction(file, AXPressAction)) << "what holds a menu is never pressed";
        EXPECT_FALSE(_ax.performAction(file, _name("AXNoSuchAction")));
        EXPECT_FALSE(_ax.copyActionDescription(file, _name("AXNoSuchAction")));
        EXPECT_EQ(_subject.pressed(0), QStringList()) << "reading presses nothing";
    }

    void _checkPress()
    {
        _ax.beginReading();
        const UIElementRef help = _children(_children(_menuBar()).value(3)).value(0);
        const UIElementRef contents = _children(help).value(0);
        ASSERT_EQ(_text(contents, AXTitleAttribute), _name("Contents"));
        EXPECT_TRUE(_ax.performAction(contents, AXPressAction));
        EXPECT_EQ(_subject.pressed(1), QStringList{_name("Contents")}) << "exactly once";
        EXPECT_TRUE(_ax.performAction(contents, AXPressAction));
        EXPECT_EQ(_subject.pressed(2), (QStringList{_name("Contents"), _name("Contents")}));
    }

    [[nodiscard]] UIElementRef _application()
    {
        return _element(_ax.createSystemWide(), _name("AXFocusedApplication"));
    }

    [[nodiscard]] UIElementRef _menuBar() { return _element(_application(), _name("AXMenuBar")); }

    [[nodiscard]] UIElementRef _element(const UIElementRef& element, const QString& attribute)
    {
        return _ax.copyAttributeValue(element, attribute).value_or(QVariant()).value<UIElementRef>();
    }

    [[nodiscard]] std::optional<QString> _text(const UIElementRef& element, const QString& attribute)
    {
        const auto value = _ax.copyAttributeValue(element, attribute);
        return value && value->typeId() == QMetaType::QString ? std::optional(value->toString())
                                                              : std::nullopt;
    }

    [[nodiscard]] QList<UIElementRef> _children(const UIElementRef& element)
    {
        QList<UIElementRef> children;
        const auto value = _ax.copyAttributeValue(element, AXChildrenAttribute);
        const QVariantList list = value ? value->toList() : QVariantList();
        for (const QVariant& child : list)
            children.append(child.value<UIElementRef>());
        return children;
    }

    [[nodiscard]] static QString _keyEquivalent(const QString& key)
    {
        const QHash<QString, char16_t> arrows = {{_name("Up"), 0xF700},
                                                 {_name("Down"), 0xF701},
                                                 {_name("Left"), 0xF702},
                                                 {_name("Right"), 0xF703}};
        if (arrows.contains(key))
            return {QChar(arrows.value(key))};
        if (key.size() > 1 && key.startsWith(u'F'))
            return {QChar(0xF703 + key.mid(1).toInt())};
        return key.toLower();
    }

    [[nodiscard]] static QString _name(const char* name) { return QString::fromLatin1(name); }

    Subject _subject;
    Accessibility& _ax;
};

} // namespace tarnwick
