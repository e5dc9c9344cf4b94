// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtApplication.h"
#include "tests/contract/foundation/ApplicationContract.h"
#include "tests/fakes/FakeApplication.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace tarnwick;

namespace {

TEST(Application, fake_keepsTheContract)
{
    FakeApplication application;
    ApplicationContract contract(application, [&application](Event::Type type) {
        application.event = Event();
        application.event->type = type;
    });
    contract.run();
}

TEST(Application, toolkits_keepsTheContract)
{
    QtApplication application(QtEventConverter({
        [](const QKeyEvent&) { return std::optional<quint16>(6); },
        [](quint16, bool) { return QString(); },
    }));
    QWidget window;
    window.show();
    ApplicationContract contract(application, [&window](Event::Type type) {
        if (type == Event::Type::LeftMouseDown)
            QTest::mousePress(&window, Qt::LeftButton);
        else
            QTest::mouseRelease(&window, Qt::LeftButton);
    });
    contract.run();
    // The toolkit's loops run again from the start of the next one of the program only.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
}

} // namespace
