// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fixtures/MenuText.h"

#include <QString>

#include <vector>

namespace tarnwick {

/// Menu bars written down as text, read as the fixture programs read them; tests/data/README.md has the
/// format.
class MenuFile
{
public:
    [[nodiscard]] static std::vector<fixture::MenuText> parse(const QString& text);
    /// The menu bar in tests/data with this name, without ".menu". Throws std::runtime_error when there is
    /// none.
    [[nodiscard]] static std::vector<fixture::MenuText> read(const QString& name);
};

} // namespace tarnwick
