// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QBoxLayout;

namespace tarnwick {

class ActionTarget;

/// The window that tells what the program is: its name, its version, and where to read more. Escape closes
/// it. It gets its contents and its name when it is shown for the first time: they make the toolkit load its
/// fonts and ask the buses for screen readers, which the start need not wait for. GUI thread only.
class AboutPanel : public QDialog
{
    Q_OBJECT

public:
    /// The links perform "openQuorlaneWebpage:" and "openOstravaneWebpage:" on `target`, which is not owned.
    explicit AboutPanel(ActionTarget& target);

    /// Shows the panel in front of all windows and leaves the active application as it is.
    void orderFrontRegardless();

private:
    void _addContents();
    void _addText(QBoxLayout& layout);
    void _addLink(QBoxLayout& layout, const QString& title, const QString& action);

    ActionTarget& _target;
};

} // namespace tarnwick
