// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <charconv>
#include <optional>

namespace tarnwick {

// Numbers as texts and back, always as in the C locale: the user's decimal comma never shows.

/// As printf's "%g" with that many significant digits.
[[nodiscard]] QString formatG(double value, int precision = 6);

/// The number without sign that `text` begins with (`format` general or hex, the latter without "0x");
/// nothing when it begins with none. What is too large is infinite, what is too small 0.
[[nodiscard]] std::optional<float> magnitudeFromText(QByteArrayView text, std::chars_format format);

/// The decimal number that `text` begins with, white space before it aside; 0 when there is none. Out of
/// range as above. Reads neither hexadecimal numbers nor "inf" and "nan".
[[nodiscard]] float floatValue(QStringView text);

} // namespace tarnwick
