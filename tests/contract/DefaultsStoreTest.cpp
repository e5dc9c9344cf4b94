// SPDX-License-Identifier: MIT
#include "platform/qt/QtDefaultsStore.h"
#include "tests/contract/DefaultsStoreContract.h"
#include "tests/fakes/FakeDefaultsStore.h"

#include <QTemporaryDir>

using namespace tarnwick;

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

} // namespace
