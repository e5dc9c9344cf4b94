// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/MenuKeys.h"

#include <QObject>

class QKeyEvent;

namespace tarnwick {

/// Keys that come to a window of ours because it has the keyboard, made keys for the menu. The toolkit sees
/// none of them meanwhile. GUI thread only.
class FocusKeyFeed final : public QObject
{
    Q_OBJECT

public:
    /// `keys` must outlive this.
    explicit FocusKeyFeed(MenuKeys& keys) : _keys(keys) {}
    ~FocusKeyFeed() override { end(); }

    void begin();
    void end();

    /// What the key is to a menu. The modifiers that it came with say nothing: they may be down since the
    /// start.
    [[nodiscard]] static MenuKeys::Press pressOf(const QKeyEvent& event);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MenuKeys& _keys;
};

} // namespace tarnwick
