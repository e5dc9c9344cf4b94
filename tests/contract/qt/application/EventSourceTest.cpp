// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtEventSource.h"
#include "tests/contract/foundation/EventSourceContract.h"
#include "tests/fakes/FakeEventSource.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <memory>

using namespace tarnwick;

namespace {

TEST(EventSource, fake_keepsTheContract)
{
    FakeEventSource source;
    EventSourceContract contract({.source = source,
                                  .come =
                                      [&source](const QList<Event::Type>& types) {
                                          for (const Event::Type type : types) {
                                              Event event;
                                              event.type = type;
                                              source.events.append(event);
                                          }
                                      },
                                  .windowGoes = [] {}});
    contract.run();
}

void send(QWidget& window, Event::Type type)
{
    const bool right = type == Event::Type::RightMouseDown || type == Event::Type::RightMouseUp;
    const bool down = type == Event::Type::LeftMouseDown || type == Event::Type::RightMouseDown;
    const auto button = right ? Qt::RightButton : Qt::LeftButton;
    if (down)
        QTest::mousePress(&window, button);
    else
        QTest::mouseRelease(&window, button);
}

TEST(EventSource, toolkits_keepsTheContract)
{
    QtEventSource source(QtEventConverter({
        [](const QKeyEvent&) { return std::optional<quint16>(6); },
        [](quint16, bool) { return QString(); },
    }));
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EventSourceContract contract(
        {.source = source,
         .come =
             [&window](const QList<Event::Type>& types) {
                 QTimer::singleShot(0, window.get(), [&window, types] {
                     for (const Event::Type type : types)
                         send(*window, type);
                 });
             },
         .windowGoes = [&window] { QTimer::singleShot(0, qApp, [&window] { window.reset(); }); }});
    contract.run();
}

} // namespace
