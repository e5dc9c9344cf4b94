// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"
#include "tests/fakes/Journal.h"
#include "tests/fakes/MenuFile.h"

#include <QHash>
#include <QList>

#include <functional>
#include <memory>
#include <vector>

namespace tarnwick {

/// Applications that exist in the test only: a tree of elements in the form that the adapters present, with
/// levers for everything that can go wrong. A read of what is not there, or of an application that has quit,
/// fails.
class FakeAccessibility final : public Accessibility
{
public:
    struct Set
    {
        UIElementRef element;
        QString attribute;
        QVariant value;
    };
    struct Press
    {
        UIElementRef element;
        QString action;
    };
    /// How often each function was called.
    struct Calls
    {
        int attributeNames = 0;
        int attributeValues = 0;
        int attributeValueCounts = 0;
        int actions = 0;
    };

    FakeAccessibility();
    ~FakeAccessibility() override;

    bool present = true; ///< lever: accessibility exists at all
    bool enabled = true;
    bool trusted = true;
    /// Lever: runs before each read of a value, and may change the tree.
    std::function<void(const UIElementRef& element, const QString& attribute)> beforeRead;
    Journal* journal = nullptr; ///< "begin reading"

    // Growing the tree.
    UIElementRef addApplication(qint64 processIdentifier, const QString& title);
    /// Appended to the parent's "AXChildren". Without a title when that is null.
    UIElementRef addElement(const UIElementRef& parent, const QString& role, const QString& title = {});
    /// A window, "AXFocusedWindow" of its application from now on. Coordinates as in accessibility space.
    UIElementRef addWindow(const UIElementRef& application, const QString& title,
                           const QString& roleDescription, const QRectF& frame);
    /// Replaces the menu bar.
    UIElementRef setMenuBar(const UIElementRef& application, const std::vector<fixture::MenuText>& entries);
    /// Appends to a menu bar or a menu what one entry and those below it are presented as.
    UIElementRef addMenuEntry(const UIElementRef& menu, const fixture::MenuText& entry);
    /// An empty handle: no application has the focus and reading it fails.
    void setFocusedApplication(const UIElementRef& application);

    // Levers. An element that is empty or of another fake is a mistake of the test.
    void setAttribute(const UIElementRef& element, const QString& attribute, const QVariant& value);
    void removeAttribute(const UIElementRef& element, const QString& attribute);
    /// Stays listed, but cannot be read.
    void failAttribute(const UIElementRef& element, const QString& attribute);
    /// Can be read, but is not listed.
    void hideAttribute(const UIElementRef& element, const QString& attribute);
    void failAttributeNames(const UIElementRef& element);
    void setSettable(const UIElementRef& element, const QString& attribute);
    void addAction(const UIElementRef& element, const QString& action, const QString& description);
    void removeChildren(const UIElementRef& element);
    void quit(const UIElementRef& application);

    // Looks.
    QList<Press> presses;
    QList<Set> sets;
    Calls calls;
    QStringList reads; ///< the attributes read by value, in order, while `logReads`
    bool logReads = false;
    [[nodiscard]] QStringList pressedTitles() const;
    [[nodiscard]] QVariant attribute(const UIElementRef& element, const QString& attribute) const;
    /// The item that these titles lead to from the application's menu bar; empty when there is none.
    [[nodiscard]] UIElementRef menuItem(const UIElementRef& application, const QStringList& titles) const;

    void beginReading() override { note(journal, QStringLiteral("begin reading")); }
    [[nodiscard]] bool apiEnabled() override { return present && enabled; }
    [[nodiscard]] bool isProcessTrusted() override { return present && trusted; }
    [[nodiscard]] UIElementRef createSystemWide() override;
    [[nodiscard]] UIElementRef createApplication(qint64 processIdentifier) override;
    [[nodiscard]] std::optional<qint64> getPid(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QStringList> copyAttributeNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QVariant> copyAttributeValue(const UIElementRef& element,
                                                             const QString& attribute) override;
    [[nodiscard]] std::optional<int> getAttributeValueCount(const UIElementRef& element,
                                                            const QString& attribute) override;
    [[nodiscard]] std::optional<bool> isAttributeSettable(const UIElementRef& element,
                                                          const QString& attribute) override;
    bool setAttributeValue(const UIElementRef& element, const QString& attribute,
                           const QVariant& value) override;
    [[nodiscard]] std::optional<QStringList> copyActionNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QString> copyActionDescription(const UIElementRef& element,
                                                               const QString& action) override;
    bool performAction(const UIElementRef& element, const QString& action) override;

private:
    struct Node;

    UIElementRef _newNode(qsizetype application);
    [[nodiscard]] UIElementRef _handle(qsizetype index) const;
    /// Null for an empty handle, one of another adapter, or an element whose application has quit.
    [[nodiscard]] Node* _node(const UIElementRef& element) const;
    void _addMenuEntries(const UIElementRef& menu, const std::vector<fixture::MenuText>& entries);
    void _describeShortcut(const UIElementRef& item, const QString& shortcut);

    std::vector<std::unique_ptr<Node>> _nodes;
    QHash<qint64, UIElementRef> _applications;
};

} // namespace tarnwick
