// SPDX-License-Identifier: MIT
// For Objective-C++ only.
#pragma once

#include <QString>

#import <Foundation/Foundation.h>

namespace tarnwick {

/// Autoreleased.
[[nodiscard]] inline NSString* nsString(const QString& text)
{
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(text.utf16())
                                   length:static_cast<NSUInteger>(text.size())];
}

/// Empty for nil.
[[nodiscard]] inline QString textOfNsString(NSString* string)
{
    QString text(static_cast<qsizetype>([string length]), Qt::Uninitialized);
    [string getCharacters:reinterpret_cast<unichar*>(text.data()) range:NSMakeRange(0, [string length])];
    return text;
}

} // namespace tarnwick
