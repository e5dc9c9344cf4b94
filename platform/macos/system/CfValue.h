// SPDX-License-Identifier: MIT
#pragma once

#include "platform/macos/system/CfOwned.h"

#include <QList>
#include <QVariant>

#include <functional>
#include <vector>

namespace tarnwick {

/// Texts, booleans, numbers, lists and dictionaries between Qt and Core Foundation. Signed 64 bits hold every
/// whole number: one of unsigned 64 bits above them goes over with the same bits and comes back negative. An
/// object of another kind reads as the UTF-8 bytes of its description, so that it is neither a text nor a
/// number.
///
/// `other` is asked first for each object, those inside lists included; an invalid value leaves it to this
/// function.
[[nodiscard]] QVariant variantOf(CFTypeRef object, const std::function<QVariant(CFTypeRef)>& other = {});

/// Null for a value of another type, and for a list or dictionary that holds one.
[[nodiscard]] CfOwned<CFTypeRef> cfValue(const QVariant& value);

/// A list that holds the objects too.
[[nodiscard]] CfOwned<CFArrayRef> cfArray(const std::vector<CfOwned<CFTypeRef>>& objects);

} // namespace tarnwick
