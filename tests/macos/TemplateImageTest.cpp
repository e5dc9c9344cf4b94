// SPDX-License-Identifier: MIT
#include "platform/macos/tray/TemplateImage.h"

#include <gtest/gtest.h>

namespace tarnwick {

TEST(TemplateImage, ink_isBlackAndTheRestIsTransparent)
{
    struct Row
    {
        const char* pixel;
        QRgb from;
        QRgb darkInk;
        QRgb lightInk;
    };
    const Row rows[] = {
        {"black", qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 0)},
        {"white", qRgba(255, 255, 255, 255), qRgba(0, 0, 0, 0), qRgba(0, 0, 0, 255)},
        {"half transparent black", qRgba(0, 0, 0, 128), qRgba(0, 0, 0, 128), qRgba(0, 0, 0, 0)},
        {"transparent", qRgba(0, 0, 0, 0), qRgba(0, 0, 0, 0), qRgba(0, 0, 0, 0)},
        {"grey", qRgba(128, 128, 128, 255), qRgba(0, 0, 0, 127), qRgba(0, 0, 0, 128)},
    };
    for (const Row& row : rows) {
        QImage image(1, 1, QImage::Format_ARGB32);
        image.setPixel(0, 0, row.from);
        EXPECT_EQ(templateImage(image, Ink::Dark).pixel(0, 0), row.darkInk) << row.pixel;
        EXPECT_EQ(templateImage(image, Ink::Light).pixel(0, 0), row.lightInk) << row.pixel;
    }
}

TEST(TemplateImage, nullImage_staysNull)
{
    EXPECT_TRUE(templateImage(QImage(), Ink::Dark).isNull());
}

} // namespace tarnwick
