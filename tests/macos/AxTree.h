// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeAccessibility.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QList>

namespace tarnwick {

/// The applications of a fake, shown by the simulated system: every element of `source` becomes an element
/// with the same attributes and actions. What changes in the fake afterwards is not seen. The elements end
/// with this.
class AxTree
{
public:
    explicit AxTree(FakeAccessibility& source) : _source(source) {}
    ~AxTree();
    AxTree(const AxTree&) = delete;
    AxTree& operator=(const AxTree&) = delete;

    /// Makes the system show what the fake shows, with `applications` to be found by their process
    /// identifiers.
    void show(SimulatedMac& mac, const QList<UIElementRef>& applications);

    /// The titles of the elements that were pressed, each as often as it was.
    [[nodiscard]] QStringList pressedTitles() const;
    /// The first element with this title; null when there is none.
    [[nodiscard]] AxNodeRef nodeTitled(const QString& title) const;

private:
    struct Copy
    {
        UIElementRef element;
        AxNodeRef node;
    };
    [[nodiscard]] AxNodeRef _nodeFor(const UIElementRef& element);
    [[nodiscard]] QVariant _valueFor(const QVariant& value);

    FakeAccessibility& _source;
    QList<Copy> _copies;
};

} // namespace tarnwick
