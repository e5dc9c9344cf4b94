// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPalette>
#include <QString>

#include <functional>

namespace tarnwick {

/// One picture of a recorder, or of one of its small images: what makes it and under which name it is kept.
struct RecorderScene
{
    QString name;
    std::function<QImage()> draw;
};

/// A desktop of light and one of dark colours, the same on every machine.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

/// Every state in both styles on both desktops at scale 2; what is sharp at one scale and not at another at
/// the scales 1, 1.5 and 3 too; both directions of writing. The ports must be set.
[[nodiscard]] QList<RecorderScene> recorderScenes();

} // namespace tarnwick
