// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class QScreen;
class QWidget;

namespace tarnwick {

class PointerNudge;

/// The ground that a menu stands on: on each screen a surface over everything that shows nothing, through
/// which the place of the pointer is known and a click beside the menu is noticed, which reaches nobody else.
/// Needs the protocol for layers. Places are the toolkit's. GUI thread only.
class MenuStage final : public QObject
{
    Q_OBJECT

public:
    /// `nudge` must outlive this.
    explicit MenuStage(PointerNudge& nudge);
    ~MenuStage() override;

    /// On all screens that there are, unless it is shown already. `entered` follows where the pointer is on
    /// one of them. The keyboard stays with the window that has it.
    void show();
    void hide();
    /// From that window, until hide(), by the surface on the screen of the pointer's place: not every
    /// compositor gives it back to a window on another one. Without a place nothing happens where there are
    /// several screens.
    void takeKeyboard(std::optional<QPoint> place);

    /// Where the pointer came in since show().
    [[nodiscard]] std::optional<QPoint> pointer() const { return _pointer; }
    /// The surface on the screen of that place, or on the first one. Null while nothing is shown.
    [[nodiscard]] QWidget* groundAt(QPoint place) const;

Q_SIGNALS:
    void entered();
    void pressed();
    /// The compositor has taken a surface away, or a screen has gone or become another one, or something has
    /// come over all of them, as a locked screen does: the pointer is above none any more.
    void lost();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Ground;

    [[nodiscard]] Ground* _groundAt(QPoint place) const;
    void _follow(const QScreen& screen);
    void _screensChanged();

    PointerNudge& _nudge;
    std::vector<std::unique_ptr<Ground>> _grounds;
    std::optional<QPoint> _pointer;
    QTimer _left; ///< runs since the pointer has left a window of ours and come to no other one
    bool _shown = false;
    bool _stale = false; ///< the screens are others by now
};

} // namespace tarnwick
