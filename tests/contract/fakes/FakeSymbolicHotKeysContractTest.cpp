// SPDX-License-Identifier: MIT
#include "tests/contract/shortcut/SymbolicHotKeysContract.h"
#include "tests/fakes/FakeSymbolicHotKeys.h"

using namespace tarnwick;

TEST(FakeSymbolicHotKeys, keepsThePromisesOfSymbolicHotKeys)
{
    FakeSymbolicHotKeys hotKeys;
    SymbolicHotKeysContract contract({.hotKeys = hotKeys,
                                      .setDesktops =
                                          [&hotKeys](const SymbolicHotKeysContract::Shortcuts& shortcuts) {
                                              hotKeys.hotKeys.clear();
                                              for (const auto& [code, modifiers] : shortcuts)
                                                  hotKeys.hotKeys.append({true, static_cast<qint16>(code),
                                                                          static_cast<qint32>(modifiers)});
                                          },
                                      .makeUnreadable = [&hotKeys] { hotKeys.unreadable = true; },
                                      .switchedOff = [&hotKeys] { return !hotKeys.pushed.isEmpty(); }});
    contract.run();
}
