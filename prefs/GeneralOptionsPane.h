// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace tarnwick {

class ActionTarget;
class ActionSender;

/// How the program starts and shows itself, and what its menu holds.
class GeneralOptionsPane final : public QWidget
{
    Q_OBJECT

public:
    /// Sends "startAtLogin:", "resetButton:" and "quitFennrick:" to `target`, which is not owned. The check
    /// boxes that have an effect only where menu bars begin with a menu of the system are there only then.
    GeneralOptionsPane(ActionTarget& target, ActionSender& sender, bool menuBarsHaveSystemMenu);

    [[nodiscard]] QCheckBox* launchCheckBox() const { return _launchCheckBox; }

private:
    void _addProgramOptions(QVBoxLayout& column);
    void _addMenuOptions(QVBoxLayout& column, bool menuBarsHaveSystemMenu);
    void _addFontSize(QVBoxLayout& column);
    void _addButtons(QVBoxLayout& column);
    QCheckBox* _addCheckBox(QVBoxLayout& column, const QString& text, const QString& key,
                            std::function<void()> switched = {});
    QPushButton* _makeButton(const QString& text, const QString& action);
    void _send(const QString& action);

    ActionTarget& _target;
    ActionSender& _sender;
    QCheckBox* _launchCheckBox = nullptr;
};

} // namespace tarnwick
