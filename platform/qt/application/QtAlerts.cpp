// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtAlerts.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

#include <utility>

namespace tarnwick {

namespace {

constexpr const char* ReturnCodeProperty = "returnCode";

QMessageBox::Icon iconOf(Alert::Style style)
{
    switch (style) {
    case Alert::Style::Informational:
        return QMessageBox::Information;
    case Alert::Style::Critical:
        return QMessageBox::Critical;
    case Alert::Style::Warning:
        break;
    }
    return QMessageBox::Warning;
}

QString literal(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

void addButtons(QMessageBox& box, const QStringList& titles)
{
    for (qsizetype i = 0; i < titles.size(); ++i) {
        // Those of one role stand in their order; the desktop's style decides on which side it begins.
        auto* button =
            box.addButton(literal(titles.at(i)), i == 0 ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
        button->setProperty(ReturnCodeProperty, Alert::FirstButtonReturn + int(i));
        if (i == 0)
            box.setDefaultButton(button);
        if (i == (titles.size() > 1 ? 1 : 0))
            box.setEscapeButton(button);
    }
}

/// A label begins where its text does: one in English would stay at the left of an alert that runs from right
/// to left.
void alignTexts(const QMessageBox& box)
{
    const auto leading = QStyle::visualAlignment(box.layoutDirection(), Qt::AlignLeading);
    const auto labels = box.findChildren<QLabel*>();
    for (QLabel* label : labels) {
        if (!label->text().isEmpty()) // the icon is one, too
            label->setAlignment(leading | Qt::AlignAbsolute | (label->alignment() & Qt::AlignVertical_Mask));
    }
}

void present(QMessageBox& box, const Alert& alert)
{
    box.setWindowTitle(QGuiApplication::applicationDisplayName());
    box.setIcon(iconOf(alert.style));
    box.setTextFormat(Qt::PlainText);
    box.setText(alert.messageText);
    box.setInformativeText(alert.informativeText);
    alignTexts(box);
    addButtons(box, alert.buttonTitles);
}

int returnCodeOf(const QMessageBox& box)
{
    if (const QAbstractButton* clicked = box.clickedButton())
        return clicked->property(ReturnCodeProperty).toInt();
    return box.buttons().size() > 1 ? Alert::SecondButtonReturn : Alert::FirstButtonReturn;
}

} // namespace

int QtAlerts::runModal(const Alert& alert)
{
    QMessageBox box;
    present(box, alert);
    // Tarnwick is not the active application: without this the alert may come up behind the others.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    box.raise();
    box.activateWindow();
    box.exec();
    return returnCodeOf(box);
}

void QtAlerts::beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                        std::function<void(int returnCode)> didEnd)
{
    auto* box = new QMessageBox(window); // goes with the window, or when it is closed
    box->setAttribute(Qt::WA_DeleteOnClose);
    present(*box, alert);
    box->setWindowModality(Qt::WindowModal);
    QObject::connect(box, &QDialog::finished, window, [box, didEnd = std::move(didEnd)] {
        if (didEnd)
            didEnd(returnCodeOf(*box));
    });
    box->open();
}

} // namespace tarnwick
