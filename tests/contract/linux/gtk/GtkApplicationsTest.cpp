// SPDX-License-Identifier: MIT
// Programs of GTK on a session bus of its own, found by the process that they run in: that of the test.
#include "platform/linux/gtk/GtkApplications.h"

#include "tests/FairTimer.h"
#include "tests/contract/session/BusDaemon.h"
#include "tests/contract/session/ScriptedApplication.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Application = "<interface name='org.gtk.Application'/><interface name='org.gtk.Actions'/>";
const QByteArray Menus = "<interface name='org.gtk.Menus'/>";

QByteArray nodes(const QByteArrayList& names)
{
    QByteArray text;
    for (const QByteArray& name : names)
        text += "<node name='" + name + "'/>";
    return text;
}

class GtkApplicationsTest : public ::testing::Test
{
protected:
    GtkApplicationsTest()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address());
        start();
    }
    ~GtkApplicationsTest() override
    {
        program.reset(); // its thread uses what the other members hold
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

    void start()
    {
        program = std::make_unique<ScriptedApplication>(daemon.address(), "",
                                                        QMap<QByteArray, ScriptedApplication::Object>());
        program->setInterceptor([this](sd_bus_message* call) { return _receive(call); });
    }
    /// What is inside the description of each object from now on, by path. One that is not named is none.
    void publish(const QMap<QByteArray, QByteArray>& objects)
    {
        const std::lock_guard lock(mutex);
        _objects = objects;
    }
    void publishEditor()
    {
        publish({{"/", nodes({"org"})},
                 {"/org", nodes({"example", "other"})},
                 {"/org/other", nodes({"deeper"})},
                 {"/org/example", nodes({"Editor"})},
                 {"/org/example/Editor", Application + nodes({"menus", "window"})},
                 {"/org/example/Editor/menus/menubar", Menus},
                 {"/org/example/Editor/window", nodes({"10", "9", "x", "-1", "1"})}});
    }
    [[nodiscard]] int looks() const { return program->count(u"Introspect"_s); }

    const qint64 process = QCoreApplication::applicationPid();
    BusDaemon daemon;
    std::mutex mutex;
    bool silent = false; ///< guarded by the mutex
    std::unique_ptr<ScriptedApplication> program;
    SessionBus bus;
    ReadingBudget budget;
    GtkApplications applications{bus, budget};

private:
    bool _receive(sd_bus_message* call)
    {
        const std::lock_guard lock(mutex);
        if (silent || QByteArrayView(sd_bus_message_get_member(call)) != "Introspect")
            return silent;
        const auto object = _objects.constFind(sd_bus_message_get_path(call));
        if (object == _objects.cend())
            return false;
        sd_bus_reply_method_return(call, "s", ("<node>" + *object + "</node>").constData());
        return true;
    }

    QMap<QByteArray, QByteArray> _objects; ///< guarded by the mutex
};

} // namespace

TEST_F(GtkApplicationsTest, aProcess_isFoundWithItsBarAndItsWindowsInTheirOrder)
{
    publishEditor();
    const auto found = applications.of(process);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->service, program->service());
    EXPECT_EQ(found->path, "/org/example/Editor");
    EXPECT_TRUE(found->exportsMenuBar);
    EXPECT_EQ(found->windows, (QList<quint32>{1, 9, 10}));
    EXPECT_EQ(found->menuBarPath(), "/org/example/Editor/menus/menubar");
    EXPECT_EQ(found->windowPath(9), "/org/example/Editor/window/9");
    EXPECT_FALSE(applications.of(1)) << "another process";
}

TEST_F(GtkApplicationsTest, whatIsKnown_isNotSearchedAgain_butIsAsItIsNow)
{
    publishEditor();
    ASSERT_TRUE(applications.of(process));
    publish({{"/org/example/Editor", Application}});
    program->forgetCalls();
    const auto found = applications.of(process);
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->exportsMenuBar);
    EXPECT_TRUE(found->windows.isEmpty());
    EXPECT_EQ(looks(), 3);
}

TEST_F(GtkApplicationsTest, aProgramThatHasGone_isLookedForAgain)
{
    publishEditor();
    ASSERT_TRUE(applications.of(process));
    program.reset();
    EXPECT_FALSE(applications.of(process));
    start();
    const auto found = applications.of(process);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->service, program->service());
}

TEST_F(GtkApplicationsTest, aProcessWithoutOne_isNotAskedTimeAndAgain)
{
    publish({{"/", nodes({"org"})}, {"/org", ""}});
    EXPECT_FALSE(applications.of(process));
    EXPECT_EQ(looks(), 2);
    publishEditor();
    EXPECT_FALSE(applications.of(process));
    EXPECT_EQ(looks(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return applications.of(process).has_value(); }, 20'000))
        << "it may have come to the bus later";
}

TEST_F(GtkApplicationsTest, objectsWithoutEnd_areNotFollowed)
{
    QMap<QByteArray, QByteArray> objects{{"/", nodes({"a", "b"})}};
    for (int level = 0; level < 8; ++level)
        for (const QByteArray& path : objects.keys())
            for (const char* name : {"a", "b"})
                objects.insert(path == "/" ? path + name : path + '/' + name, nodes({"a", "b"}));
    publish(objects);
    EXPECT_FALSE(applications.of(process));
    EXPECT_GT(looks(), 30);
    EXPECT_LE(looks(), 100);
}

TEST_F(GtkApplicationsTest, aProgramThatDoesNotAnswer_isNotWaitedForLongerThanForAnyReading)
{
    publishEditor();
    {
        const std::lock_guard lock(mutex);
        silent = true;
    }
    FairTimer time;
    time.start();
    EXPECT_FALSE(applications.of(process));
    EXPECT_LE(time.fairElapsed(), 1'000);
}
