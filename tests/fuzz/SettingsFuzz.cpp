// SPDX-License-Identifier: MIT
// Settings files that anybody may have written.
#include "foundation/DefaultsStore.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "platform/qt/settings/SettingsText.h"
#include "tests/fuzz/Fuzzing.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// The settings of one text, read only.
class ParsedStore final : public DefaultsStore
{
public:
    QSettings::SettingsMap settings;

    [[nodiscard]] std::optional<QVariant> value(const QString& key) const override
    {
        const auto setting = settings.constFind(key);
        return setting == settings.cend() ? std::nullopt : std::optional(*setting);
    }
    void setValue(const QString& key, const QVariant& value) override { settings.insert(key, value); }
    void removeValue(const QString& key) override { settings.remove(key); }
    void synchronize() override {}
};

ParsedStore& store()
{
    static ParsedStore parsed;
    return parsed;
}

const DefaultsTable& table()
{
    static const DefaultsTable rows{
        {TWEnableHotKeyKey, true},
        {TWTriggerModifiersKey, QVariant::fromValue(quint64{0x80000})},
        {TWFontSizeSmallKey, 11},
        {TWTriggerKey, u"\u2325Z"_s},
    };
    return rows;
}

void checkTexts(const QSettings::SettingsMap& settings)
{
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting) {
        require(setting->typeId() == QMetaType::QString, "what a file holds are texts");
        require(setting->toString().isValidUtf16() && setting.key().isValidUtf16(), "the texts are texts");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    DefaultsStore::setShared(&store());
    UserDefaults::standardUserDefaults().registerDefaults(table());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QSettings::SettingsMap settings = settings_text::parse(contents);
    checkTexts(settings);
    require(settings_text::parse(settings_text::write(settings)) == settings,
            "settings that are written read the same");

    store().settings = settings;
    const UserDefaults& defaults = UserDefaults::standardUserDefaults();
    for (const auto& [key, value] : table())
        require(defaults.objectForKey(key).typeId() == value.typeId(), "a setting has the type of its row");
    if (const auto dictionary = defaults.dictionaryForKey(u"ShortcutRecorder trigger"_s)) {
        UserDefaults::standardUserDefaults().storeObjectForKey(*dictionary, u"ShortcutRecorder trigger"_s);
        require(defaults.dictionaryForKey(u"ShortcutRecorder trigger"_s) == dictionary,
                "a dictionary that is written reads the same");
    }
    return 0;
}
