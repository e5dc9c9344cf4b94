// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace tarnwick {

/// The program's picture: a menu bar from which a menu hangs at the pointer. Drawn, so sharp at every scale.
class AppEmblem final : public QWidget
{
    Q_OBJECT

public:
    explicit AppEmblem(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
