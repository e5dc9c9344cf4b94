// SPDX-License-Identifier: MIT
// The property of any program that calls itself the desktop's settings program, and the look that comes of
// it.
#include "platform/linux/look/LookSources.h"
#include "platform/linux/look/XSettingsDecode.h"
#include "tests/fuzz/Looks.h"

using namespace tarnwick;

namespace {

constexpr qsizetype Header = 12;
constexpr qsizetype ShortestSetting = 12;

void check(const XSettingValues& values, const QByteArray& contents)
{
    require(values.size() <= (contents.size() - Header) / ShortestSetting, "each setting takes its room");
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const int type = value->typeId();
        require(type == QMetaType::Int || type == QMetaType::QString, "a setting is a number or a text");
        require(value.key().isValidUtf16() && value->toString().isValidUtf16(), "a text is a text");
    }
    requireLook(lookOfXSettings(values));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto values = decodeXSettings(contents);
    if (!values)
        return 0;
    check(*values, contents);
    require(decodeXSettings(contents + "more") == values, "what stands behind the last setting is not read");
    return 0;
}
