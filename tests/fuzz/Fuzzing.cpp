// SPDX-License-Identifier: MIT
#include "tests/fuzz/Fuzzing.h"

#include <cstdio>
#include <cstdlib>

namespace tarnwick {

void require(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", sentence);
    std::abort();
}

quint8 FuzzInput::byte()
{
    if (_rest.isEmpty())
        return 0;
    const auto first = static_cast<quint8>(_rest.front());
    _rest = _rest.sliced(1);
    return first;
}

QByteArrayView FuzzInput::until(char end)
{
    const qsizetype length = _rest.indexOf(end);
    const QByteArrayView taken = length < 0 ? _rest : _rest.first(length);
    _rest = length < 0 ? QByteArrayView() : _rest.sliced(length + 1);
    return taken;
}

} // namespace tarnwick
