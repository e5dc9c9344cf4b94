// SPDX-License-Identifier: MIT
#include "platform/macos/tray/TemplateImage.h"

#include <QColor>

namespace tarnwick {

QImage templateImage(const QImage& image, Ink ink)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const int light = qGray(line[x]);
            const int share = ink == Ink::Light ? light : 255 - light;
            line[x] = qRgba(0, 0, 0, qAlpha(line[x]) * share / 255);
        }
    }
    return result;
}

} // namespace tarnwick
