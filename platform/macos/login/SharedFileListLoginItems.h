// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"

namespace tarnwick {

/// The user's login items as a shared file list, and after them those of its successor; that alone where the
/// system has no such list any more. What the shared file list does not take goes to the successor.
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
