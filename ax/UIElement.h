// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

#include <memory>
#include <utility>

namespace tarnwick {

/// What an accessibility adapter knows of one element; only that adapter looks inside.
class UIElement
{
public:
    virtual ~UIElement() = default;

    /// Whether both stand for the same element of the same application.
    [[nodiscard]] virtual bool isEqualTo(const UIElement& other) const = 0;

protected:
    UIElement() = default;
    UIElement(const UIElement&) = default;
    UIElement& operator=(const UIElement&) = default;
    UIElement(UIElement&&) = default;
    UIElement& operator=(UIElement&&) = default;
};

/// Handle to a user-interface element of some process: shared, cheap to copy, false when it stands for
/// nothing. The element may be gone from its application at any time; reads of it then fail.
class UIElementRef
{
public:
    UIElementRef() = default;
    explicit UIElementRef(std::shared_ptr<const UIElement> element) : _element(std::move(element)) {}

    explicit operator bool() const { return _element != nullptr; }
    [[nodiscard]] const UIElement* get() const { return _element.get(); }

    friend bool operator==(const UIElementRef& left, const UIElementRef& right)
    {
        if (left._element == right._element)
            return true;
        return left._element && right._element && left._element->isEqualTo(*right._element);
    }

private:
    std::shared_ptr<const UIElement> _element;
};

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::UIElementRef)
