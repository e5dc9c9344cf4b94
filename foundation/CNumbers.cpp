// SPDX-License-Identifier: MIT
#include "foundation/CNumbers.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <limits>
#include <system_error>

namespace tarnwick {

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isHexDigit(char byte)
{
    return isDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

qint64 exponentOf(QByteArrayView text)
{
    constexpr qint64 Limit = 1'000'000'000'000;
    const bool negative = text.startsWith('-');
    qint64 exponent = 0;
    for (const char byte : text) {
        if (isDigit(byte))
            exponent = std::min(exponent * 10 + (byte - '0'), Limit);
    }
    return negative ? -exponent : exponent;
}

// Whether a number that is out of the range of a float is too large; otherwise it is too small. The place of
// its first significant digit and its exponent decide.
bool isTooLarge(QByteArrayView number, std::chars_format format)
{
    const bool hex = format == std::chars_format::hex;
    const char mark = hex ? 'p' : 'e';
    const auto end =
        std::find_if(number.begin(), number.end(), [mark](char c) { return (c | 0x20) == mark; });
    const auto point = std::find(number.begin(), end, '.');
    const auto first = std::find_if(number.begin(), end, [](char c) { return c != '0' && c != '.'; });
    const qint64 exponent = end == number.end() ? 0 : exponentOf(number.sliced(end - number.begin() + 1));
    return (point - first) * (hex ? 4 : 1) + exponent > 0;
}

} // namespace

QString formatG(double value, int precision)
{
    std::array<char, 64> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, precision);
    return QString::fromLatin1(text.data(), written.ptr - text.data());
}

std::optional<float> magnitudeFromText(QByteArrayView text, std::chars_format format)
{
    if (text.isEmpty() || !(text.front() == '.' || isHexDigit(text.front())))
        return std::nullopt;
    float value = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), value, format);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const bool large = isTooLarge(text.first(end - text.begin()), format);
        return large ? std::numeric_limits<float>::infinity() : 0.0F;
    }
    return value;
}

float floatValue(QStringView text)
{
    const QByteArray bytes = text.trimmed().toLatin1();
    QByteArrayView number(bytes);
    const bool negative = number.startsWith('-');
    if (negative || number.startsWith('+'))
        number = number.sliced(1);
    const float magnitude = magnitudeFromText(number, std::chars_format::general).value_or(0.0F);
    return negative ? -magnitude : magnitude;
}

} // namespace tarnwick
