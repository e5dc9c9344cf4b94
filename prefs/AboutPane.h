// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QBoxLayout;

namespace tarnwick {

class ActionSender;
class ActionTarget;

/// What the program is, and where to read more.
class AboutPane final : public QWidget
{
    Q_OBJECT

public:
    /// The links send "openOstravaneWebpage:" to `target`, which is not owned, and "openQuorlaneWebpage:" to
    /// the application's delegate.
    AboutPane(ActionTarget& target, ActionSender& sender);

private:
    void _addText(QBoxLayout& column);
    void _addLinks(QBoxLayout& column, ActionTarget& target, ActionSender& sender);
};

} // namespace tarnwick
