// SPDX-License-Identifier: MIT
// A recorder's archive with values by key: any bytes.
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/RecorderArchive.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    prepareRecorder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Archive archive =
        Archive::fromData(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (!archive.allowsKeyedCoding())
        return -1; // the other target's
    checkRecorder(archive);
    return 0;
}
