// SPDX-License-Identifier: MIT
#include "prefs/AboutPane.h"

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"
#include "foundation/Version.h"
#include "prefs/AppEmblem.h"
#include "prefs/PaneLayout.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwick {

using namespace Qt::StringLiterals;

AboutPane::AboutPane(ActionTarget& target, ActionSender& sender)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PaneMargin, PaneMargin, PaneMargin, PaneMargin);
    column->addWidget(new AppEmblem, 0, Qt::AlignHCenter);
    _addText(*column);
    column->addSpacing(8);
    _addLinks(*column, target, sender);
}

void AboutPane::_addText(QBoxLayout& column)
{
    auto* name = makeTitle(u"Tarnwick"_s);
    auto* version = new QLabel(tr("Version %1").arg(TarnwickVersion));
    // To be copied into a report.
    version->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* purpose = makeHint(tr("The menu bar of the application in front, at the pointer."));
    for (QLabel* label : {name, version, purpose}) {
        label->setAlignment(Qt::AlignHCenter);
        column.addWidget(label);
    }
}

void AboutPane::_addLinks(QBoxLayout& column, ActionTarget& target, ActionSender& sender)
{
    auto* maker = new QPushButton(tr("&Quorlane Home Page"));
    auto* sibling = new QPushButton(tr("O&stravane Home Page"));
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* link : {maker, sibling}) {
        link->setAutoDefault(true); // Return presses it, too
        link->setAccessibleDescription(tr("Opens in the web browser"));
        row->addWidget(link);
    }
    row->addStretch();
    column.addLayout(row);
    connect(maker, &QPushButton::clicked, this, [&sender] {
        Application& application = Application::shared();
        application.sendActionToFrom(u"openQuorlaneWebpage:"_s, application.delegate(), &sender);
    });
    connect(sibling, &QPushButton::clicked, this, [&target, &sender] {
        Application::shared().sendActionToFrom(u"openOstravaneWebpage:"_s, &target, &sender);
    });
}

} // namespace tarnwick

#include "moc_AboutPane.cpp"
