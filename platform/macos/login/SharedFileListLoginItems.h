// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"

namespace tarnwick {

/// The user's login items as a shared file list; where the system has no such list any more, its successor.
class SharedFileListLoginItems final : public LoginItems
{
public:
    /// `successor` may be null.
    explicit SharedFileListLoginItems(std::unique_ptr<LoginItems> successor = nullptr);

    [[nodiscard]] std::unique_ptr<List> createSessionLoginItems() override;

private:
    std::unique_ptr<LoginItems> _successor;
};

} // namespace tarnwick
