// SPDX-License-Identifier: MIT
#include "tests/macos/AxTree.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

AxTree::~AxTree()
{
    // Elements hold their parents, which hold them.
    for (const Copy& copy : _copies)
        copy.node->attributes.clear();
}

void AxTree::show(SimulatedMac& mac, const QList<UIElementRef>& applications)
{
    mac.applications.clear();
    for (const UIElementRef& application : applications)
        mac.applications.append(_nodeFor(application));
    const UIElementRef systemWide = _source.createSystemWide();
    mac.systemWide = _nodeFor(systemWide);
    const QString focused = u"AXFocusedApplication"_s;
    mac.systemWide->set(focused,
                        _valueFor(_source.copyAttributeValue(systemWide, focused).value_or(QVariant())));
}

QStringList AxTree::pressedTitles() const
{
    QStringList titles;
    for (const Copy& copy : _copies) {
        for (qsizetype i = 0; i < copy.node->performed.size(); ++i)
            titles.append(copy.node->value(u"AXTitle"_s)->toString());
    }
    return titles;
}

AxNodeRef AxTree::nodeTitled(const QString& title) const
{
    for (const Copy& copy : _copies) {
        const QVariant* text = copy.node->value(u"AXTitle"_s);
        if (text && text->toString() == title)
            return copy.node;
    }
    return nullptr;
}

AxNodeRef AxTree::_nodeFor(const UIElementRef& element)
{
    for (const Copy& copy : std::as_const(_copies)) {
        if (copy.element == element)
            return copy.node;
    }
    const auto node = std::make_shared<AxNode>();
    _copies.append({element, node});
    node->processIdentifier = _source.getPid(element).value_or(0);
    const QStringList names = _source.copyAttributeNames(element).value_or(QStringList());
    for (const QString& name : names) {
        const auto value = _source.copyAttributeValue(element, name);
        node->set(name, value ? _valueFor(*value) : QVariant());
        if (_source.isAttributeSettable(element, name).value_or(false))
            node->settable.append(name);
    }
    const QStringList actions = _source.copyActionNames(element).value_or(QStringList());
    for (const QString& action : actions)
        node->actions.append({action, _source.copyActionDescription(element, action).value_or(QString())});
    return node;
}

QVariant AxTree::_valueFor(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<UIElementRef>())
        return QVariant::fromValue(_nodeFor(value.value<UIElementRef>()));
    if (value.typeId() != QMetaType::QVariantList)
        return value;
    QVariantList list;
    const QVariantList elements = value.toList();
    for (const QVariant& each : elements)
        list.append(_valueFor(each));
    return list;
}

} // namespace tarnwick
