// SPDX-License-Identifier: MIT
#include "foundation/CNumbers.h"

#include <QByteArray>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <locale> // with it comes what the system has of locales, also where locale.h is without

namespace tarnwick {

namespace {

// std::from_chars and std::to_chars would do, but not every standard library has them for floating point.
locale_t cLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// The C locale for this thread, as long as it lives.
class InCLocale
{
public:
    InCLocale() : _before(uselocale(cLocale())) {}
    ~InCLocale() { uselocale(_before); }
    InCLocale(const InCLocale&) = delete;
    InCLocale& operator=(const InCLocale&) = delete;

private:
    locale_t _before;
};

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isHexDigit(char byte)
{
    return isDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

qsizetype countDigits(QByteArrayView text, qsizetype from, bool (*isDigitOfBase)(char))
{
    qsizetype end = from;
    while (end < text.size() && isDigitOfBase(text[end]))
        ++end;
    return end - from;
}

/// How much of `text` is a number: digits, with a point or without, and an exponent that has digits; 0 for
/// none.
qsizetype numberLength(QByteArrayView text, bool hex)
{
    const auto isDigitOfBase = hex ? isHexDigit : isDigit;
    qsizetype digits = countDigits(text, 0, isDigitOfBase);
    qsizetype end = digits;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fraction = countDigits(text, end + 1, isDigitOfBase);
        digits += fraction;
        end += 1 + fraction;
    }
    if (digits == 0)
        return 0;
    if (end == text.size() || (text[end] | 0x20) != (hex ? 'p' : 'e'))
        return end;
    const qsizetype sign = end + 1;
    const bool isSigned = sign < text.size() && (text[sign] == '-' || text[sign] == '+');
    const qsizetype exponent = sign + (isSigned ? 1 : 0);
    const qsizetype exponentDigits = countDigits(text, exponent, isDigit);
    return exponentDigits > 0 ? exponent + exponentDigits : end;
}

} // namespace

QString formatG(double value, int precision)
{
    const InCLocale inCLocale;
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.*g", precision, value);
    return QString::fromLatin1(text.data(), length);
}

std::optional<float> magnitudeFromText(QByteArrayView text, std::chars_format format)
{
    const bool hex = format == std::chars_format::hex;
    const qsizetype length = numberLength(text, hex);
    if (length == 0)
        return std::nullopt;
    const QByteArray number = (hex ? QByteArray("0x") : QByteArray()) + text.first(length).toByteArray();
    return strtof_l(number.constData(), nullptr, cLocale());
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
