// SPDX-License-Identifier: MIT
#include "tests/contract/session/PrivateSession.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int StartLimit = 20'000; // ms

QByteArray readLine(int descriptor)
{
    QByteArray line;
    const QDeadlineTimer limit(StartLimit);
    char character = 0;
    pollfd source{descriptor, POLLIN, 0};
    while (!line.endsWith('\n') && poll(&source, 1, static_cast<int>(limit.remainingTime())) > 0 &&
           read(descriptor, &character, 1) == 1)
        line.append(character);
    return line.trimmed();
}

QList<pid_t> childProcesses()
{
    QFile file(u"/proc/self/task/%1/children"_s.arg(getpid()));
    QList<pid_t> children;
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& number : file.readAll().simplified().split(' '))
            if (!number.isEmpty())
                children.append(number.toInt());
    return children;
}

} // namespace

PrivateSession::PrivateSession() : _directory(QDir::tempPath() + u"/twXXXXXX"_s)
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

PrivateSession::~PrivateSession()
{
    while (!_programs.empty()) {
        _programs.back()->terminate();
        _programs.back()->waitForFinished(2000);
        _programs.pop_back();
    }
    const QDeadlineTimer limit(3000);
    while (!childProcesses().isEmpty() && !limit.hasExpired()) {
        for (const pid_t child : childProcesses())
            kill(child, SIGKILL);
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
        usleep(10'000);
    }
}

void PrivateSession::_makeDirectories()
{
    _environment = QProcessEnvironment::systemEnvironment();
    for (const QString& foreign :
         {u"AT_SPI_BUS_ADDRESS"_s, u"DBUS_SESSION_BUS_ADDRESS"_s, u"GTK_MODULES"_s, u"NO_AT_BRIDGE"_s,
          u"QT_ACCESSIBILITY"_s, u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"QT_QPA_PLATFORM"_s,
          u"WAYLAND_DISPLAY"_s, u"XAUTHORITY"_s, u"XDG_CURRENT_DESKTOP"_s})
        _environment.remove(foreign);
    const QString home = _directory.filePath(u"home"_s);
    const QString runtime = _directory.filePath(u"run"_s);
    for (const QString& directory : {home, runtime}) {
        QDir().mkdir(directory);
        QFile::setPermissions(directory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    _environment.insert(u"HOME"_s, home);
    _environment.insert(u"XDG_RUNTIME_DIR"_s, runtime);
    _environment.insert(u"XDG_CONFIG_HOME"_s, home + u"/.config"_s);
    _environment.insert(u"XDG_DATA_HOME"_s, home + u"/.local/share"_s);
    _environment.insert(u"XDG_CACHE_HOME"_s, home + u"/.cache"_s);
    _environment.insert(u"XDG_SESSION_TYPE"_s, u"x11"_s);
    _environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    _leaveOutPortal(home + u"/.local/share/dbus-1/services"_s);
}

void PrivateSession::_leaveOutPortal(const QString& services)
{
    QDir().mkpath(services);
    QFile file(services + u"/org.freedesktop.portal.Desktop.service"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("[D-BUS Service]\nName=org.freedesktop.portal.Desktop\nExec=/bin/false\n");
}

QProcess& PrivateSession::_start(const QString& program, const QStringList& arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(_environment);
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process->start(program, arguments);
    process->waitForStarted();
    _programs.push_back(std::move(process));
    return *_programs.back();
}

QByteArray PrivateSession::_startAndRead(const QString& program, const QStringList& arguments,
                                         const QString& descriptorArgument)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    _start(program, arguments + descriptorArgument.arg(ends[1]).split(u' '));
    close(ends[1]);
    const QByteArray line = readLine(ends[0]);
    close(ends[0]);
    return line;
}

QString PrivateSession::start()
{
    for (const QString& tool : {u"Xvfb"_s, u"openbox"_s, u"dbus-daemon"_s, u"xdotool"_s})
        if (QStandardPaths::findExecutable(tool).isEmpty())
            return tool;
    _makeDirectories();
    const QByteArray display = _startAndRead(
        u"Xvfb"_s, {u"-screen"_s, u"0"_s, u"1280x800x24"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s},
        u"-displayfd %1"_s);
    if (display.isEmpty())
        return u"Xvfb"_s;
    _environment.insert(u"DISPLAY"_s, u":"_s + QString::fromLatin1(display));
    const QByteArray address = _startAndRead(
        u"dbus-daemon"_s,
        {u"--session"_s, u"--nofork"_s, u"--address=unix:dir="_s + _environment.value(u"XDG_RUNTIME_DIR"_s)},
        u"--print-address=%1"_s);
    if (address.isEmpty())
        return u"dbus-daemon"_s;
    _environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromLatin1(address));
    _start(u"openbox"_s, {u"--sm-disable"_s});
    return {};
}

} // namespace tarnwick
