// SPDX-License-Identifier: MIT
#include "platform/linux/session/QtArguments.h"

#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

QList<QByteArray> argumentsFor(QList<QByteArray> given, const char* platform)
{
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    qputenv("QT_QPA_PLATFORM", platform);
    QList<char*> pointers;
    for (QByteArray& text : given)
        pointers.append(text.data());
    QtArguments arguments(int(pointers.size()), pointers.data());
    qputenv("QT_QPA_PLATFORM", before);
    QList<QByteArray> result;
    for (int i = 0; i < arguments.argc(); ++i)
        result.append(arguments.argv()[i]);
    EXPECT_EQ(arguments.argv()[arguments.argc()], nullptr);
    return result;
}

TEST(QtArguments, platform_isX11WithoutGrabs_unlessAnotherIsAskedFor)
{
    using List = QList<QByteArray>;
    EXPECT_EQ(argumentsFor({"tarnwick"}, ""), (List{"tarnwick", "-nograb", "-platform", "xcb"}));
    EXPECT_EQ(argumentsFor({"tarnwick", "x"}, "wayland"),
              (List{"tarnwick", "-nograb", "-platform", "xcb", "x"}));
    EXPECT_EQ(argumentsFor({"tarnwick"}, "offscreen"), (List{"tarnwick", "-nograb"}));
    EXPECT_EQ(argumentsFor({"tarnwick", "-platform", "offscreen"}, ""),
              (List{"tarnwick", "-nograb", "-platform", "offscreen"}));
    EXPECT_EQ(argumentsFor({}, "offscreen"), (List{"-nograb"}));
}

} // namespace
