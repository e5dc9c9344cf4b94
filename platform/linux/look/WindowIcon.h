// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QObject>

namespace tarnwick {

/// Gives the program's icon to its windows that panels and switchers list: that of the desktop's theme, or
/// the one that is built in. It is read when the first of these windows is shown. Menus stay without one,
/// which would cost time whenever one opens.
class WindowIcon final : public QObject
{
public:
    /// To be installed as an event filter of the application. `name`: that of the icon in a theme.
    explicit WindowIcon(QString name);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString _name;
    QIcon _icon; ///< null before it is needed
};

} // namespace tarnwick
