// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// Reads a text field by field as sscanf does in the C locale, whatever the user's. The first field that does
/// not match ends the scan: it and every later one are 0. Views the text.
class CScanner
{
public:
    explicit CScanner(QByteArrayView text) : _rest(text) {}

    /// The same bytes; a blank matches any amount of white space, none included.
    CScanner& literal(QByteArrayView pattern);

    /// "%g" into single precision: white space, then a decimal or hexadecimal number, "inf", "infinity" or
    /// "nan" in any case. What is too large is infinite, what is too small 0. An exponent that lacks its
    /// digits is taken and has no effect.
    [[nodiscard]] float g();

    /// "%ld": white space, then a decimal integer, kept within 64 bits.
    [[nodiscard]] qint64 ld();

private:
    [[nodiscard]] std::optional<float> _takeMagnitude();
    [[nodiscard]] std::optional<float> _takeInfinity();
    [[nodiscard]] QByteArrayView _takeNumber(bool (*isDigitOfBase)(char), char exponentMark);
    bool _take(char byte);
    [[nodiscard]] bool _takeWord(QByteArrayView word);
    [[nodiscard]] bool _takeSign();
    [[nodiscard]] qsizetype _countDigits() const;
    void _skipWhiteSpace();

    QByteArrayView _rest;
    bool _matching = true;
};

} // namespace tarnwick
