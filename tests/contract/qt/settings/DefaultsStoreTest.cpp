// SPDX-License-Identifier: MIT
#include "platform/qt/settings/QtDefaultsStore.h"
#include "shortcut/Archive.h"
#include "shortcut/SRRecorderCell.h"
#include "tests/contract/foundation/DefaultsStoreContract.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QTemporaryDir>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

TEST(DefaultsStore, fake_keepsTheContract)
{
    FakeDefaultsStore* last = nullptr;
    defaultsStoreContract([&] {
        auto store = std::make_unique<FakeDefaultsStore>();
        if (last)
            store->values = last->values;
        last = store.get();
        return store;
    });
}

TEST(DefaultsStore, file_keepsTheContract)
{
    const QTemporaryDir folder;
    defaultsStoreContract([&] {
        return std::make_unique<QtDefaultsStore>(folder.filePath(QStringLiteral("Quorlane/Tarnwick.conf")));
    });
}

using NamedRecorder = ShortcutFixture;

TEST_F(NamedRecorder, hasItsCombinationInTheFile_afterARestart)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Tarnwick.conf"_s);
    SRRecorderCell cell;
    cell.setAutosaveName(u"trigger"_s);
    Archive archive(Archive::Form::Keyed);
    cell.encodeWithCoder(archive);
    {
        QtDefaultsStore file(path);
        DefaultsStore::setShared(&file);
        cell.setKeyCombo({ControlKeyMask | CommandKeyMask, 7});
    }
    QtDefaultsStore file(path);
    DefaultsStore::setShared(&file);
    EXPECT_EQ(SRRecorderCell(archive).keyCombo(), (KeyCombo{ControlKeyMask | CommandKeyMask, 7}));
}

} // namespace
