// SPDX-License-Identifier: MIT
// Texts that are written to attributes, compared with what the C library reads in them. A byte that says of
// which type the attribute is, then the text.
#include "ax/Accessibility.h"
#include "ax/UIElementUtilities.h"
#include "foundation/CNumbers.h"
#include "tests/fuzz/Fuzzing.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class Element final : public UIElement
{
public:
    [[nodiscard]] bool isEqualTo(const UIElement& other) const override { return this == &other; }
};

/// One element with one attribute.
class OneAttribute final : public Accessibility
{
public:
    QVariant value;
    int written = 0;

    void beginReading() override {}
    bool apiEnabled() override { return true; }
    bool isProcessTrusted() override { return true; }
    UIElementRef createSystemWide() override { return {}; }
    UIElementRef createApplication(qint64 /*processIdentifier*/) override { return {}; }
    std::optional<qint64> getPid(const UIElementRef& /*element*/) override { return std::nullopt; }
    std::optional<QStringList> copyAttributeNames(const UIElementRef& /*element*/) override
    {
        return QStringList{u"AXValue"_s};
    }
    std::optional<QVariant> copyAttributeValue(const UIElementRef& /*element*/,
                                               const QString& /*attribute*/) override
    {
        return value;
    }
    std::optional<int> getAttributeValueCount(const UIElementRef& /*element*/,
                                              const QString& /*attribute*/) override
    {
        return std::nullopt;
    }
    std::optional<bool> isAttributeSettable(const UIElementRef& /*element*/,
                                            const QString& /*attribute*/) override
    {
        return true;
    }
    bool setAttributeValue(const UIElementRef& /*element*/, const QString& /*attribute*/,
                           const QVariant& newValue) override
    {
        value = newValue;
        ++written;
        return true;
    }
    std::optional<QStringList> copyActionNames(const UIElementRef& /*element*/) override
    {
        return std::nullopt;
    }
    std::optional<QString> copyActionDescription(const UIElementRef& /*element*/,
                                                 const QString& /*action*/) override
    {
        return std::nullopt;
    }
    bool performAction(const UIElementRef& /*element*/, const QString& /*action*/) override { return false; }
};

OneAttribute& accessibility()
{
    static OneAttribute attribute;
    return attribute;
}

const UIElementRef& element()
{
    static const UIElementRef only(std::make_shared<Element>());
    return only;
}

/// What stands in an attribute of the present value's type after `text` was written to it.
QVariant writtenTo(const QVariant& present, const QString& text)
{
    accessibility().value = present;
    accessibility().written = 0;
    UIElementUtilities::setStringValueForAttributeOfUIElement(text, u"AXValue"_s, element());
    return accessibility().value;
}

bool isSame(double left, double right)
{
    return std::isnan(left) ? std::isnan(right) : left == right;
}

QString terse(const AXValue& value)
{
    return UIElementUtilities::stringDescriptionOfAXValueBeingVerbose(value, false);
}

AXValue structure(const AXValue& present, const QString& text)
{
    const auto value = writtenTo(QVariant::fromValue(present), text).value<AXValue>();
    require(accessibility().written == 1, "a structured value is always written");
    require(value.type() == present.type(), "a structured value keeps its type");
    const QString description = terse(value);
    const auto again = writtenTo(QVariant::fromValue(present), description).value<AXValue>();
    require(terse(again) == description, "a terse description that is written back describes itself");
    return value;
}

void checkPoint(const QString& text, const char* bytes)
{
    float x = 0;
    float y = 0;
    std::sscanf(bytes, "x=%g y=%g", &x, &y);
    const auto point = *structure(AXValue(QPointF(7, 7)), text).get<QPointF>();
    require(isSame(point.x(), x) && isSame(point.y(), y), "a point reads as the C library reads it");
}

void checkSize(const QString& text, const char* bytes)
{
    float width = 0;
    float height = 0;
    std::sscanf(bytes, "w=%g h=%g", &width, &height);
    const auto size = *structure(AXValue(QSizeF(7, 7)), text).get<QSizeF>();
    require(isSame(size.width(), width) && isSame(size.height(), height),
            "a size reads as the C library reads it");
}

void checkRect(const QString& text, const char* bytes)
{
    std::array<float, 4> f{};
    std::sscanf(bytes, "x=%g y=%g w=%g h=%g", &f[0], &f[1], &f[2], &f[3]);
    const auto rect = *structure(AXValue(QRectF(7, 7, 7, 7)), text).get<QRectF>();
    require(isSame(rect.x(), f[0]) && isSame(rect.y(), f[1]) && isSame(rect.width(), f[2]) &&
                isSame(rect.height(), f[3]),
            "a rectangle reads as the C library reads it");
}

void checkRange(const QString& text, const char* bytes)
{
    long location = 0;
    long length = 0;
    std::sscanf(bytes, "pos=%ld len=%ld", &location, &length);
    const auto range = structure(AXValue(AXRange{7, 7}), text);
    require(*range.get<AXRange>() == AXRange{location, length}, "a range reads as the C library reads it");
    require(structure(AXValue(AXRange{}), terse(range)) == range, "a range that is written back is the same");
}

/// The decimal number that the bytes begin with, by the C library, which must not see what it alone
/// understands.
float decimalPrefix(const QString& text)
{
    QByteArray number;
    const QByteArray bytes = text.trimmed().toLatin1();
    const char* next = bytes.constData();
    const auto isDigit = [&next] { return *next >= '0' && *next <= '9'; };
    if (*next == '+' || *next == '-')
        number += *next++;
    bool digits = false;
    while (isDigit()) {
        digits = true;
        number += *next++;
    }
    if (*next == '.') {
        number += *next++;
        while (isDigit()) {
            digits = true;
            number += *next++;
        }
    }
    if (digits && (*next == 'e' || *next == 'E'))
        number += next;
    return digits ? std::strtof(number.constData(), nullptr) : 0.0F;
}

void checkNumber(const QString& text, const char* /*bytes*/)
{
    const QVariant number = writtenTo(5, text);
    require(number.typeId() == QMetaType::Float, "a number is written in single precision");
    require(isSame(number.toFloat(), decimalPrefix(text)), "a number is the one that the text begins with");
    if (std::isfinite(number.toFloat()))
        require(writtenTo(5, formatG(number.toDouble(), 9)) == number,
                "a number that is written back is the same");
}

void checkText(const QString& text, const char* /*bytes*/)
{
    require(writtenTo(u"present"_s, text) == text, "a text is written as it is");
    writtenTo(QVariantList{1, 2}, text);
    require(accessibility().written == 0, "nothing is written where a list stands");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    Accessibility::setShared(&accessibility());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::array checks{checkPoint, checkSize, checkRect, checkRange, checkNumber, checkText};
    FuzzInput input(data, size);
    const auto check = checks[static_cast<std::size_t>(input.choice(checks.size()))];
    const QString text = QString::fromUtf8(input.rest());
    check(text, text.toUtf8().constData());
    return 0;
}
