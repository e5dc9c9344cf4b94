// SPDX-License-Identifier: MIT
#include "tests/fakes/FakeAccessibility.h"

#include "ax/AXValue.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// A handle: another one for the same element is another object, as with the adapters.
class FakeElement final : public UIElement
{
public:
    FakeElement(const FakeAccessibility* ownerFake, qsizetype nodeIndex) : owner(ownerFake), index(nodeIndex)
    {
    }

    [[nodiscard]] bool isEqualTo(const UIElement& other) const override
    {
        const auto* fake = dynamic_cast<const FakeElement*>(&other);
        return fake && fake->owner == owner && fake->index == index;
    }

    const FakeAccessibility* const owner;
    const qsizetype index;
};

struct Attribute
{
    QString name;
    QVariant value;
    bool listed = true;
    bool readable = true;
    bool settable = false;
};

struct Action
{
    QString name;
    QString description;
};

// Glyph codes of keys without a printable character.
const QHash<QString, int> glyphs = {
    {u"Return"_s, 11}, {u"Backspace"_s, 23}, {u"Esc"_s, 27},   {u"Space"_s, 32}, {u"PgUp"_s, 98},
    {u"Left"_s, 100},  {u"Right"_s, 101},    {u"Home"_s, 102}, {u"Up"_s, 104},   {u"End"_s, 105},
    {u"Down"_s, 106},  {u"PgDown"_s, 107},   {u"F1"_s, 111},   {u"F2"_s, 112},   {u"F3"_s, 113},
    {u"F4"_s, 114},    {u"F5"_s, 115},       {u"F6"_s, 116},   {u"F7"_s, 117},   {u"F8"_s, 118},
    {u"F9"_s, 119},    {u"F10"_s, 120},      {u"F11"_s, 121},  {u"F12"_s, 122},  {u"F13"_s, 123},
};

} // namespace

struct FakeAccessibility::Node
{
    qsizetype application = 0;
    bool gone = false;
    bool namesFail = false;
    std::vector<Attribute> attributes;
    QStringList listedNames;
    std::vector<Action> actions;

    [[nodiscard]] Attribute* find(const QString& name)
    {
        const auto found =
            std::find_if(attributes.begin(), attributes.end(),
                         [&name](const Attribute& attribute) { return attribute.name == name; });
        return found == attributes.end() ? nullptr : &*found;
    }

    Attribute& made(const QString& name)
    {
        if (Attribute* attribute = find(name))
            return *attribute;
        attributes.push_back({name, {}});
        listNames();
        return attributes.back();
    }

    void listNames()
    {
        listedNames.clear();
        for (const Attribute& attribute : attributes) {
            if (attribute.listed)
                listedNames.append(attribute.name);
        }
    }
};

FakeAccessibility::FakeAccessibility()
{
    const UIElementRef system = _newNode(0);
    setAttribute(system, AXRoleAttribute, u"AXSystemWide"_s);
}

FakeAccessibility::~FakeAccessibility() = default;

UIElementRef FakeAccessibility::addApplication(qint64 processIdentifier, const QString& title)
{
    const UIElementRef application = _newNode(static_cast<qsizetype>(_nodes.size()));
    setAttribute(application, AXRoleAttribute, AXApplicationRole);
    setAttribute(application, AXTitleAttribute, title);
    _applications.insert(processIdentifier, application);
    return application;
}

UIElementRef FakeAccessibility::addElement(const UIElementRef& parent, const QString& role,
                                           const QString& title)
{
    Node* above = _node(parent);
    Q_ASSERT(above);
    const UIElementRef element = _newNode(above->application);
    setAttribute(element, AXRoleAttribute, role);
    if (!title.isNull())
        setAttribute(element, AXTitleAttribute, title);
    setAttribute(element, AXParentAttribute, QVariant::fromValue(parent));
    Attribute& children = above->made(AXChildrenAttribute);
    QVariantList list = std::exchange(children.value, QVariant()).toList();
    list.append(QVariant::fromValue(element));
    children.value = list;
    return element;
}

UIElementRef FakeAccessibility::addWindow(const UIElementRef& application, const QString& title,
                                          const QString& roleDescription, const QRectF& frame)
{
    const UIElementRef window = addElement(application, u"AXWindow"_s, title);
    setAttribute(window, u"AXRoleDescription"_s, roleDescription);
    setAttribute(window, AXPositionAttribute, QVariant::fromValue(AXValue(frame.topLeft())));
    setAttribute(window, AXSizeAttribute, QVariant::fromValue(AXValue(frame.size())));
    setSettable(window, AXPositionAttribute);
    setSettable(window, AXSizeAttribute);
    setAttribute(application, u"AXFocusedWindow"_s, QVariant::fromValue(window));
    return window;
}

UIElementRef FakeAccessibility::setMenuBar(const UIElementRef& application,
                                           const std::vector<fixture::MenuText>& entries)
{
    const UIElementRef bar = _newNode(_node(application)->application);
    setAttribute(bar, AXRoleAttribute, u"AXMenuBar"_s);
    setAttribute(bar, AXParentAttribute, QVariant::fromValue(application));
    setAttribute(bar, AXChildrenAttribute, QVariantList());
    _addMenuEntries(bar, entries);
    setAttribute(application, u"AXMenuBar"_s, QVariant::fromValue(bar));
    return bar;
}

UIElementRef FakeAccessibility::addMenuEntry(const UIElementRef& menu, const fixture::MenuText& entry)
{
    const bool inBar = attribute(menu, AXRoleAttribute) == u"AXMenuBar"_s;
    const UIElementRef item = addElement(menu, inBar ? u"AXMenuBarItem"_s : u"AXMenuItem"_s,
                                         entry.separator ? u""_s : QString::fromStdString(entry.title));
    if (entry.separator)
        return item;
    setAttribute(item, u"AXEnabled"_s, entry.enabled);
    if (entry.checked)
        setAttribute(item, u"AXMenuItemMarkChar"_s, u"✓"_s);
    _describeShortcut(item, QString::fromStdString(entry.shortcut));
    if (!entry.holdsMenu() && !inBar) {
        addAction(item, AXPressAction, u"press"_s);
        return item;
    }
    const UIElementRef below = addElement(item, u"AXMenu"_s);
    setAttribute(below, AXChildrenAttribute, QVariantList());
    _addMenuEntries(below, entry.children);
    return item;
}

void FakeAccessibility::_addMenuEntries(const UIElementRef& menu,
                                        const std::vector<fixture::MenuText>& entries)
{
    for (const fixture::MenuText& entry : entries)
        if (!entry.hidden)
            addMenuEntry(menu, entry);
}

void FakeAccessibility::setFocusedApplication(const UIElementRef& application)
{
    if (application)
        setAttribute(_handle(0), u"AXFocusedApplication"_s, QVariant::fromValue(application));
    else
        removeAttribute(_handle(0), u"AXFocusedApplication"_s);
}

void FakeAccessibility::setAttribute(const UIElementRef& element, const QString& attribute,
                                     const QVariant& value)
{
    _node(element)->made(attribute).value = value;
}

void FakeAccessibility::removeAttribute(const UIElementRef& element, const QString& attribute)
{
    Node& node = *_node(element);
    std::erase_if(node.attributes, [&attribute](const Attribute& held) { return held.name == attribute; });
    node.listNames();
}

void FakeAccessibility::failAttribute(const UIElementRef& element, const QString& attribute)
{
    _node(element)->made(attribute).readable = false;
}

void FakeAccessibility::hideAttribute(const UIElementRef& element, const QString& attribute)
{
    Node& node = *_node(element);
    node.made(attribute).listed = false;
    node.listNames();
}

void FakeAccessibility::failAttributeNames(const UIElementRef& element)
{
    _node(element)->namesFail = true;
}

void FakeAccessibility::setSettable(const UIElementRef& element, const QString& attribute)
{
    _node(element)->made(attribute).settable = true;
}

void FakeAccessibility::addAction(const UIElementRef& element, const QString& action,
                                  const QString& description)
{
    _node(element)->actions.push_back({action, description});
}

void FakeAccessibility::removeChildren(const UIElementRef& element)
{
    setAttribute(element, AXChildrenAttribute, QVariantList());
}

void FakeAccessibility::quit(const UIElementRef& application)
{
    const qsizetype index = _node(application)->application;
    for (const auto& node : _nodes)
        node->gone = node->gone || node->application == index;
}

QStringList FakeAccessibility::pressedTitles() const
{
    QStringList titles;
    for (const Press& press : presses)
        titles.append(attribute(press.element, AXTitleAttribute).toString());
    return titles;
}

QVariant FakeAccessibility::attribute(const UIElementRef& element, const QString& attribute) const
{
    Node* node = _node(element);
    const Attribute* held = node ? node->find(attribute) : nullptr;
    return held ? held->value : QVariant();
}

UIElementRef FakeAccessibility::menuItem(const UIElementRef& application, const QStringList& titles) const
{
    UIElementRef menu = attribute(application, u"AXMenuBar"_s).value<UIElementRef>();
    UIElementRef item;
    for (const QString& title : titles) {
        item = {};
        const QVariantList entries = attribute(menu, AXChildrenAttribute).toList();
        for (const QVariant& entry : entries) {
            if (!item && attribute(entry.value<UIElementRef>(), AXTitleAttribute) == title)
                item = entry.value<UIElementRef>();
        }
        menu = attribute(item, AXChildrenAttribute).toList().value(0).value<UIElementRef>();
    }
    return item;
}

UIElementRef FakeAccessibility::createSystemWide()
{
    return present ? _handle(0) : UIElementRef();
}

UIElementRef FakeAccessibility::createApplication(qint64 processIdentifier)
{
    const UIElementRef known = _applications.value(processIdentifier);
    return known ? known : _handle(-1);
}

std::optional<qint64> FakeAccessibility::getPid(const UIElementRef& element)
{
    const Node* node = _node(element);
    if (!node || node->application == 0)
        return std::nullopt;
    for (auto it = _applications.cbegin(); it != _applications.cend(); ++it) {
        if (it.value() == _handle(node->application))
            return it.key();
    }
    return std::nullopt;
}

std::optional<QStringList> FakeAccessibility::copyAttributeNames(const UIElementRef& element)
{
    ++calls.attributeNames;
    const Node* node = _node(element);
    return node && !node->namesFail ? std::optional(node->listedNames) : std::nullopt;
}

std::optional<QVariant> FakeAccessibility::copyAttributeValue(const UIElementRef& element,
                                                              const QString& attribute)
{
    ++calls.attributeValues;
    if (logReads)
        reads.append(attribute);
    if (beforeRead)
        beforeRead(element, attribute);
    Node* node = _node(element);
    const Attribute* held = node ? node->find(attribute) : nullptr;
    return held && held->readable && held->value.isValid() ? std::optional(held->value) : std::nullopt;
}

std::optional<int> FakeAccessibility::getAttributeValueCount(const UIElementRef& element,
                                                             const QString& attribute)
{
    ++calls.attributeValueCounts;
    Node* node = _node(element);
    const Attribute* held = node ? node->find(attribute) : nullptr;
    if (!held || !held->readable || held->value.typeId() != QMetaType::QVariantList)
        return std::nullopt;
    return static_cast<int>(held->value.toList().size());
}

std::optional<bool> FakeAccessibility::isAttributeSettable(const UIElementRef& element,
                                                           const QString& attribute)
{
    Node* node = _node(element);
    const Attribute* held = node ? node->find(attribute) : nullptr;
    return held ? std::optional(held->settable) : std::nullopt;
}

bool FakeAccessibility::setAttributeValue(const UIElementRef& element, const QString& attribute,
                                          const QVariant& value)
{
    sets.append({element, attribute, value});
    Node* node = _node(element);
    Attribute* held = node ? node->find(attribute) : nullptr;
    if (!held || !held->settable)
        return false;
    held->value = value;
    return true;
}

std::optional<QStringList> FakeAccessibility::copyActionNames(const UIElementRef& element)
{
    ++calls.actions;
    const Node* node = _node(element);
    if (!node)
        return std::nullopt;
    QStringList names;
    for (const Action& action : node->actions)
        names.append(action.name);
    return names;
}

std::optional<QString> FakeAccessibility::copyActionDescription(const UIElementRef& element,
                                                                const QString& action)
{
    ++calls.actions;
    const Node* node = _node(element);
    if (!node)
        return std::nullopt;
    const auto found = std::find_if(node->actions.cbegin(), node->actions.cend(),
                                    [&action](const Action& held) { return held.name == action; });
    return found != node->actions.cend() ? std::optional(found->description) : std::nullopt;
}

bool FakeAccessibility::performAction(const UIElementRef& element, const QString& action)
{
    if (!copyActionDescription(element, action))
        return false;
    presses.append({element, action});
    return true;
}

UIElementRef FakeAccessibility::_newNode(qsizetype application)
{
    _nodes.push_back(std::make_unique<Node>());
    _nodes.back()->application = application;
    return _handle(static_cast<qsizetype>(_nodes.size()) - 1);
}

UIElementRef FakeAccessibility::_handle(qsizetype index) const
{
    return UIElementRef(std::make_shared<FakeElement>(this, index));
}

FakeAccessibility::Node* FakeAccessibility::_node(const UIElementRef& element) const
{
    const auto* fake = dynamic_cast<const FakeElement*>(element.get());
    if (!fake || fake->owner != this || fake->index < 0)
        return nullptr;
    Node* node = _nodes.at(static_cast<std::size_t>(fake->index)).get();
    return node->gone ? nullptr : node;
}

// Control is reported as Command, Super as Control; a shortcut that the codes cannot express is not reported.
void FakeAccessibility::_describeShortcut(const UIElementRef& item, const QString& shortcut)
{
    if (shortcut.isEmpty())
        return;
    QStringList parts = shortcut.split(u'+');
    const QString key = parts.takeLast();
    const int modifiers = (parts.contains(u"Shift"_s) ? 1 : 0) | (parts.contains(u"Alt"_s) ? 2 : 0) |
                          (parts.contains(u"Super"_s) ? 4 : 0) | (parts.contains(u"Ctrl"_s) ? 0 : 8);
    const bool expressible = !QList<int>{5, 7, 8, 13, 14, 15}.contains(modifiers);
    if (!expressible || (key.size() != 1 && !glyphs.contains(key)))
        return;
    if (key.size() == 1)
        setAttribute(item, u"AXMenuItemCmdChar"_s, key.toUpper());
    else
        setAttribute(item, u"AXMenuItemCmdGlyph"_s, glyphs.value(key));
    setAttribute(item, u"AXMenuItemCmdModifiers"_s, modifiers);
}

} // namespace tarnwick
