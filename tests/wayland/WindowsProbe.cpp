// SPDX-License-Identifier: MIT
// Writes which window is the active one, by the word of the compositor, at the start and at each change:
// "active", a number that stands for the window, the process and the title, where they are told. A line with
// such a number on the standard input makes that window the active one.
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/Toplevels.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

void tell(const Toplevels& toplevels)
{
    const auto window = toplevels.active();
    const FrontHint hint = toplevels.about(window);
    const QString line = u"active %1 %2 %3"_s.arg(window)
                             .arg(hint.processIdentifier.value_or(0))
                             .arg(hint.title.value_or(QString()));
    std::puts(qPrintable(line.trimmed()));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::shared_ptr<CompositorConnection> connection = CompositorConnection::open();
    if (!connection)
        return EXIT_FAILURE;
    connection->follow();
    const auto toplevels = Toplevels::open(connection);
    QObject::connect(toplevels.get(), &Toplevels::activeChanged, [&] { tell(*toplevels); });
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly | QIODevice::Unbuffered))
        return EXIT_FAILURE;
    QSocketNotifier asked(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&asked, &QSocketNotifier::activated, [&] {
        const QByteArray line = input.readLine();
        if (line.isEmpty())
            QCoreApplication::quit();
        else
            toplevels->activate(line.trimmed().toULongLong());
    });
    tell(*toplevels);
    return QCoreApplication::exec();
}
