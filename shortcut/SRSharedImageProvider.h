// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/SharedImage.h"

#include <QSizeF>
#include <QString>

#include <memory>

class QPainter;

namespace tarnwick {

/// The images of the recorder's two small buttons: "SRRemoveShortcut", "SRRemoveShortcutRollover",
/// "SRRemoveShortcutPressed" and "SRSnapback". GUI thread only.
class SRSharedImageProvider
{
public:
    /// The one image of that name, made at the first request and kept; null for any other name.
    [[nodiscard]] static std::shared_ptr<const SharedImage> supportingImageWithName(const QString& name);

private:
    static QSizeF _sizeSRRemoveShortcut();
    static QSizeF _sizeSRRemoveShortcutRollover();
    static QSizeF _sizeSRRemoveShortcutPressed();
    static QSizeF _sizeSRSnapback();
    static void _drawSRRemoveShortcut(QPainter& painter, const QSizeF& size);
    static void _drawSRRemoveShortcutRollover(QPainter& painter, const QSizeF& size);
    static void _drawSRRemoveShortcutPressed(QPainter& painter, const QSizeF& size);
    static void _drawARemoveShortcutBoxUsingRepOpacity(QPainter& painter, const QSizeF& size, double opacity);
    static void _drawSRSnapback(QPainter& painter, const QSizeF& size);
};

} // namespace tarnwick
