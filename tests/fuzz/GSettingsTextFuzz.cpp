// SPDX-License-Identifier: MIT
// What the gsettings program prints. What is read is written down again, and must read the same.
#include "platform/linux/hotkeys/GSettingsText.h"
#include "tests/fuzz/Shortcuts.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString& string)
{
    QString text = u"'"_s;
    for (const QChar c : string) {
        if (c == u'\n')
            text += u"\\n"_s;
        else if (c == u'\'' || c == u'\\')
            text += QString(u'\\') + c;
        else
            text += c;
    }
    return text + u'\'';
}

QString written(const QStringList& strings)
{
    if (strings.isEmpty())
        return u"@as []"_s;
    QStringList texts;
    for (const QString& string : strings)
        texts.append(quoted(string));
    return u'[' + texts.join(u", "_s) + u']';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray output(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto settings = gsettings_text::parseListing(output);
    for (const auto& setting : settings) {
        require(!setting.schema.isEmpty() && !setting.schema.contains(u' ') && !setting.key.contains(u' '),
                "a schema and a key are words");
        require(gsettings_text::parseStrings(written(setting.values)) == setting.values,
                "texts that are written read the same");
        for (const QString& value : setting.values) {
            require(value.isValidUtf16(), "a text is a text");
            if (const auto shortcut = DesktopShortcut::ofAccelerator(value))
                requireShortcuts({*shortcut});
        }
    }
    return 0;
}
