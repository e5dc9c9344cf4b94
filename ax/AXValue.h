// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QtGlobal>

#include <variant>

namespace tarnwick {

/// A range of positions in a text.
struct AXRange
{
    qint64 location = 0;
    qint64 length = 0;
    friend bool operator==(const AXRange&, const AXRange&) = default;
};

/// The types of structured values, numbered as the platform numbers them; None is no structured value.
enum class AXValueType { None = 0, Point = 1, Size = 2, Rect = 3, Range = 4 };

/// One structured accessibility value. Immutable and cheap to copy; a default-made one is of type None.
class AXValue
{
public:
    AXValue() = default;
    explicit AXValue(const QPointF& point) : _value(point) {}
    explicit AXValue(const QSizeF& size) : _value(size) {}
    explicit AXValue(const QRectF& rect) : _value(rect) {}
    explicit AXValue(const AXRange& range) : _value(range) {}

    [[nodiscard]] AXValueType type() const { return static_cast<AXValueType>(_value.index()); }

    /// The value when it is of type T (QPointF, QSizeF, QRectF or AXRange), else null.
    template <typename T>
    [[nodiscard]] const T* get() const
    {
        return std::get_if<T>(&_value);
    }

    friend bool operator==(const AXValue&, const AXValue&) = default;

private:
    std::variant<std::monostate, QPointF, QSizeF, QRectF, AXRange> _value;
};

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::AXValue)
