// SPDX-License-Identifier: MIT
#include "foundation/CScanner.h"

#include "foundation/CNumbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace tarnwick {

namespace {

bool isSpace(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

char lower(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool isHexDigit(char byte)
{
    return isDigit(byte) || (lower(byte) >= 'a' && lower(byte) <= 'f');
}

} // namespace

CScanner& CScanner::literal(QByteArrayView pattern)
{
    for (const char byte : pattern) {
        if (!_matching)
            break;
        if (byte == ' ')
            _skipWhiteSpace();
        else
            _matching = _take(byte);
    }
    return *this;
}

float CScanner::g()
{
    if (_matching)
        _skipWhiteSpace();
    const bool negative = _takeSign();
    const std::optional<float> magnitude = _matching ? _takeMagnitude() : std::nullopt;
    _matching = magnitude.has_value();
    if (!_matching)
        return 0;
    return negative ? -*magnitude : *magnitude;
}

qint64 CScanner::ld()
{
    if (_matching)
        _skipWhiteSpace();
    const bool negative = _takeSign();
    const qsizetype count = _matching ? _countDigits() : 0;
    _matching = count > 0;
    if (!_matching)
        return 0;
    const QByteArrayView digits = _rest.first(count);
    _rest = _rest.sliced(count);
    // One more than the largest positive number is the smallest negative one.
    constexpr quint64 Largest = std::numeric_limits<qint64>::max();
    const quint64 limit = negative ? Largest + 1 : Largest;
    quint64 magnitude = 0;
    const auto result = std::from_chars(digits.begin(), digits.end(), magnitude);
    if (result.ec != std::errc() || magnitude > limit)
        magnitude = limit;
    return static_cast<qint64>(negative ? 0 - magnitude : magnitude);
}

std::optional<float> CScanner::_takeMagnitude()
{
    if (_rest.isEmpty())
        return std::nullopt;
    if (lower(_rest.front()) == 'n')
        return _takeWord("nan") ? std::optional(std::numeric_limits<float>::quiet_NaN()) : std::nullopt;
    if (lower(_rest.front()) == 'i')
        return _takeInfinity();
    if (_rest.size() > 1 && _rest.front() == '0' && lower(_rest[1]) == 'x') {
        _rest = _rest.sliced(2);
        const QByteArrayView number = _takeNumber(isHexDigit, 'p');
        // The "0" of "0x." is a number, that of a bare "0x" is not.
        return number.isEmpty()
                   ? std::nullopt
                   : std::optional(magnitudeFromText(number, std::chars_format::hex).value_or(0.0F));
    }
    return magnitudeFromText(_takeNumber(isDigit, 'e'), std::chars_format::general);
}

std::optional<float> CScanner::_takeInfinity()
{
    if (!_takeWord("inf"))
        return std::nullopt;
    const bool longer = !_rest.isEmpty() && lower(_rest.front()) == 'i';
    if (longer && !_takeWord("inity"))
        return std::nullopt;
    return std::numeric_limits<float>::infinity();
}

// Takes everything that can still belong to the number, even an exponent without digits.
QByteArrayView CScanner::_takeNumber(bool (*isDigitOfBase)(char), char exponentMark)
{
    qsizetype length = 0;
    const auto at = [this, &length] { return length < _rest.size() ? _rest[length] : '\0'; };
    bool digits = false;
    bool point = false;
    for (; isDigitOfBase(at()) || (at() == '.' && !point); ++length) {
        digits = digits || at() != '.';
        point = point || at() == '.';
    }
    if (digits && lower(at()) == exponentMark) {
        ++length;
        if (at() == '+' || at() == '-')
            ++length;
        while (isDigit(at()))
            ++length;
    }
    const QByteArrayView number = _rest.first(length);
    _rest = _rest.sliced(length);
    return number;
}

bool CScanner::_take(char byte)
{
    if (_rest.isEmpty() || _rest.front() != byte)
        return false;
    _rest = _rest.sliced(1);
    return true;
}

bool CScanner::_takeWord(QByteArrayView word)
{
    if (_rest.size() < word.size() ||
        !std::equal(word.begin(), word.end(), _rest.begin(), [](char a, char b) { return a == lower(b); }))
        return false;
    _rest = _rest.sliced(word.size());
    return true;
}

bool CScanner::_takeSign()
{
    if (!_matching)
        return false;
    const bool negative = _take('-');
    if (!negative)
        _take('+');
    return negative;
}

qsizetype CScanner::_countDigits() const
{
    return std::find_if_not(_rest.begin(), _rest.end(), isDigit) - _rest.begin();
}

void CScanner::_skipWhiteSpace()
{
    _rest = _rest.sliced(std::find_if_not(_rest.begin(), _rest.end(), isSpace) - _rest.begin());
}

} // namespace tarnwick
