// SPDX-License-Identifier: MIT
// A recorder's archive with values by key: any bytes.
#include "tests/fuzz/RecorderArchive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return tarnwick::checkRecorder(data, size, tarnwick::Archive::Form::Keyed);
}
