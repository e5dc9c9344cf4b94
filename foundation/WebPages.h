// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace tarnwick {

/// The maker's home page.
inline QUrl quorlaneWebpage()
{
    return QUrl(QStringLiteral("https://quorlane.example/"));
}

/// The page of the maker's sibling product.
inline QUrl ostravaneWebpage()
{
    return QUrl(QStringLiteral("https://ostravane.example/"));
}

} // namespace tarnwick
