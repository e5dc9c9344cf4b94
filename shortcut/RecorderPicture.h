// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/Gradient.h"

#include <QPalette>
#include <QRectF>
#include <QString>

class QPainter;

namespace tarnwick {

/// Everything that can be seen of a recorder at one moment. Rectangles are in the coordinates of the painter.
struct RecorderPicture
{
    QRectF frame;
    QPalette palette;
    Gradient recordingGradient;
    int style = 0;
    bool enabled = true;
    bool focused = false;
    bool rightToLeft = false;
    double recordingShare = 0; ///< 0 is the idle look, 1 the recording look

    QString idleText;
    bool idleTextIsPrompt = false;
    QString removeImageName;
    QRectF removeRect; ///< null without a remove button

    QString recordingText;
    QRectF snapbackRect;
    bool overSnapback = false;
    bool pressedSnapback = false;

    void draw(QPainter& painter) const;

    /// How wide the frame has to be, in points, to show this combination whole beside its remove button, or
    /// the modifiers of it beside the cap while recording.
    [[nodiscard]] static double widthFor(const QString& combination);
};

} // namespace tarnwick
