// SPDX-License-Identifier: MIT
#include "platform/linux/session/SessionInstance.h"

#include "platform/linux/xdg/DesktopNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QTest>
#include <gtest/gtest.h>

#include <vector>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class SessionInstanceTest : public ::testing::Test
{
protected:
    ~SessionInstanceTest() override { QDBusConnection::disconnectFromBus(u"other"_s); }

    /// A request as a launcher sends it.
    void request(const QString& method, const QVariantList& arguments) const
    {
        auto message = QDBusMessage::createMethodCall(desktop_names::BusName, desktop_names::ObjectPath,
                                                      u"org.freedesktop.Application"_s, method);
        message.setArguments(arguments);
        const QDBusPendingCall call = other.asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return call.isFinished(); }));
        EXPECT_FALSE(call.isError()) << call.error().message().toStdString();
    }

    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
};

TEST_F(SessionInstanceTest, name_isHeldByTheFirst_andFreeAfterIt)
{
    const auto taken = [this] {
        return other.interface()->isServiceRegistered(desktop_names::BusName).value();
    };
    {
        const SessionInstance first(bus);
        EXPECT_FALSE(first.anotherIsRunning());
        EXPECT_TRUE(taken());
    }
    EXPECT_FALSE(taken());
}

TEST_F(SessionInstanceTest, second_findsTheFirst_evenOneThatDoesNotAnswer)
{
    SessionInstance first(bus);
    int activations = 0;
    first.setRequested([&](SessionInstance::Request, const FrontHint&) { ++activations; });
    QElapsedTimer since;
    since.start();
    // The first can't answer while this thread waits.
    const SessionInstance second(other);
    EXPECT_TRUE(second.anotherIsRunning());
    EXPECT_LT(since.elapsed(), 5000);
    EXPECT_EQ(activations, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 1; })) << "but it gets the request";
}

TEST_F(SessionInstanceTest, activationToken_isHandedOnToTheFirst)
{
    SessionInstance first(bus);
    int activations = 0;
    first.setRequested([&](SessionInstance::Request, const FrontHint&) { ++activations; });
    qputenv("XDG_ACTIVATION_TOKEN", "of the second");
    const SessionInstance second(other);
    qunsetenv("XDG_ACTIVATION_TOKEN"); // which is the same process here
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 1; }));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "of the second");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    request(u"Activate"_s, {QVariantMap()});
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 2; }));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN")) << "none has come";
}

TEST_F(SessionInstanceTest, requestsBeforeStartUpIsDone_areAnsweredOnceAfterIt)
{
    SessionInstance first(bus);
    request(u"Activate"_s, {QVariantMap()});
    request(u"Activate"_s, {QVariantMap{{u"desktop-startup-id"_s, u"x"_s}}});
    int activations = 0;
    first.setRequested([&](SessionInstance::Request, const FrontHint&) { ++activations; });
    EXPECT_EQ(activations, 0) << "from the event loop, not at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations > 0; }));
    QTest::qWait(20);
    EXPECT_EQ(activations, 1);
}

TEST_F(SessionInstanceTest, request_isPassedOn_orMeansNothing)
{
    using Request = SessionInstance::Request;
    struct Row
    {
        const char* name;
        QString method;
        QVariantList arguments;
        std::vector<Request> requests; // of the standard library, which may compare empty ones
    };
    const QVariantList none;
    const QVariantMap data{{u"desktop-startup-id"_s, u"x"_s}};
    const Row rows[] = {
        {"activate", u"Activate"_s, {data}, {Request::Show}},
        {"files", u"Open"_s, {QStringList{u"file:///x"_s}, data}, {}},
        {"the action", u"ActivateAction"_s, {u"pop-up"_s, none, data}, {Request::PopUp}},
        {"that of a button",
         u"ActivateAction"_s,
         {u"pop-up-by-pointer"_s, none, data},
         {Request::PopUpByPointer}},
        {"the action with a parameter",
         u"ActivateAction"_s,
         {u"pop-up"_s, QVariantList{1}, data},
         {Request::PopUp}},
        {"the search", u"ActivateAction"_s, {u"search"_s, none, data}, {Request::Search}},
        {"another action", u"ActivateAction"_s, {u"pop-down"_s, none, data}, {}},
        {"an action without a name", u"ActivateAction"_s, {QString(), none, data}, {}},
    };
    SessionInstance first(bus);
    std::vector<Request> requests;
    first.setRequested([&](Request made, const FrontHint&) { requests.push_back(made); });
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        requests.clear();
        request(row.method, row.arguments);
        QTest::qWait(20);
        EXPECT_EQ(requests, row.requests);
    }
}

TEST_F(SessionInstanceTest, requestsOfSeveralKinds_beforeStartUpIsDone_comeInOrder)
{
    using Request = SessionInstance::Request;
    SessionInstance first(bus);
    for (int i = 0; i < 2; ++i) {
        request(u"ActivateAction"_s, {u"pop-up"_s, QVariantList(), QVariantMap()});
        request(u"Activate"_s, {QVariantMap()});
    }
    QList<Request> requests;
    first.setRequested([&](Request made, const FrontHint&) { requests.append(made); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return requests.size() >= 2; }));
    QTest::qWait(20);
    EXPECT_EQ(requests, (QList<Request>{Request::PopUp, Request::Show}));
}

TEST_F(SessionInstanceTest, theParameterOfTheAction_isPassedOn_theLastOneOfThoseBeforeStartUpIsDone)
{
    using Request = SessionInstance::Request;
    struct Row
    {
        const char* name;
        QVariantList parameter;
        FrontHint hint;
    };
    const QVariantMap all{{u"x"_s, 10}, {u"y"_s, 20}, {u"pid"_s, 300}, {u"title"_s, u"Notes"_s}};
    const FrontHint hintOfAll{QPoint(10, 20), 300, u"Notes"_s};
    const Row rows[] = {
        {"a map", {all}, hintOfAll},
        {"a map with values that are not simple",
         {QVariantMap{{u"pid"_s, QVariantMap{{u"pid"_s, 1}}}, {u"title"_s, u"Notes"_s}}},
         {{}, {}, u"Notes"_s}},
        {"a number", {1}, {}},
        {"a list of texts", {QStringList{u"pid"_s}}, {}},
        {"a list of values", {QVariantList{all}}, {}},
        {"a value in a value", {QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1))))}, {}},
        {"two maps", {all, all}, {}},
    };
    SessionInstance first(bus);
    const auto ask = [this](const QVariantList& parameter) {
        request(u"ActivateAction"_s, {u"pop-up"_s, parameter, QVariantMap()});
    };
    std::vector<FrontHint> hints;
    const auto listen = [&] {
        first.setRequested([&](Request, const FrontHint& hint) { hints.push_back(hint); });
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        hints.clear();
        first.setRequested({});
        ask({QVariantMap{{u"pid"_s, 7}}});
        ask(row.parameter);
        listen();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !hints.empty(); }));
        EXPECT_EQ(hints, std::vector<FrontHint>{row.hint});
    }
    ask({all});
    ask({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hints.size() >= 3; }));
    EXPECT_EQ(hints.at(1), hintOfAll);
    EXPECT_EQ(hints.at(2), FrontHint()) << "the bare action tells nothing";
}

TEST_F(SessionInstanceTest, withoutABus_thereIsNoOther)
{
    const SessionInstance alone(QDBusConnection(u"never opened"_s));
    EXPECT_FALSE(alone.anotherIsRunning());
}

} // namespace
