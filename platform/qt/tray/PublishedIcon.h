// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

/// An icon with a menu that a host of status items shows, until its end.
class PublishedIcon
{
public:
    PublishedIcon() = default;
    virtual ~PublishedIcon() = default;
    PublishedIcon(const PublishedIcon&) = delete;
    PublishedIcon& operator=(const PublishedIcon&) = delete;

    virtual void setIcon(const QIcon& icon) = 0;
};

} // namespace tarnwick
