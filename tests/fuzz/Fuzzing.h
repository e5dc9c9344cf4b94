// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

namespace tarnwick {

/// Ends the program, as a sanitizer does, when what `sentence` says does not hold of the input that is being
/// tried.
void require(bool holds, const char* sentence);

/// One input, taken apart from its beginning on. What is asked for past its end is 0 or empty.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : _rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
    {
    }

    [[nodiscard]] bool atEnd() const { return _rest.isEmpty(); }
    [[nodiscard]] QByteArrayView rest() const { return _rest; }

    [[nodiscard]] quint8 byte();
    /// Below `count`, which is at most 256.
    [[nodiscard]] int choice(int count) { return byte() % count; }
    [[nodiscard]] bool flag() { return (byte() & 1U) != 0; }
    /// Up to the next byte of this kind, which is taken, too, or to the end.
    [[nodiscard]] QByteArrayView until(char end);

private:
    QByteArrayView _rest;
};

} // namespace tarnwick
