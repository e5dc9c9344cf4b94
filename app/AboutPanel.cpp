// SPDX-License-Identifier: MIT
#include "app/AboutPanel.h"

#include "foundation/Application.h"
#include "foundation/Version.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace tarnwick {

AboutPanel::AboutPanel(ActionTarget& target) : _target(target)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    // It is opened from a status item or a pop-up: the application in front keeps the keyboard.
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void AboutPanel::_addContents()
{
    setWindowTitle(tr("About Tarnwick"));
    setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    _addText(*layout);
    _addLink(*layout, tr("Quorlane Home Page"), u"openQuorlaneWebpage:"_s);
    _addLink(*layout, tr("Ostravane Home Page"), u"openOstravaneWebpage:"_s);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();
}

void AboutPanel::_addText(QBoxLayout& layout)
{
    auto* name = new QLabel(u"Tarnwick"_s);
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.6);
    name->setFont(large);
    name->setAlignment(Qt::AlignHCenter);
    layout.addWidget(name);

    auto* version = new QLabel(tr("Version %1").arg(TarnwickVersion));
    version->setAlignment(Qt::AlignHCenter);
    // To be copied into a report.
    version->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout.addWidget(version);

    auto* purpose = new QLabel(tr("The menu bar of the application in front, at the pointer."));
    purpose->setAlignment(Qt::AlignHCenter);
    layout.addWidget(purpose);
}

void AboutPanel::_addLink(QBoxLayout& layout, const QString& title, const QString& action)
{
    auto* link = new QPushButton(title);
    link->setAutoDefault(false);
    link->setAccessibleName(title);
    link->setAccessibleDescription(tr("Opens in the web browser"));
    connect(link, &QPushButton::clicked, this,
            [this, action] { Application::shared().sendActionToFrom(action, &_target, nullptr); });
    layout.addWidget(link);
}

void AboutPanel::orderFrontRegardless()
{
    if (!layout())
        _addContents();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
}

} // namespace tarnwick

#include "moc_AboutPanel.cpp"
