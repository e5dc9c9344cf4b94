// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <sys/prctl.h>

namespace tarnwick {

/// A message bus of its own, taken for the accessibility bus by what reads menus in this process.
class BusDaemon
{
public:
    /// Whether it starts the services that are installed, when they are asked for.
    enum class Services { Installed, None };

    explicit BusDaemon(Services services = Services::Installed) : _services(services)
    {
        qputenv("AT_SPI_BUS_ADDRESS", address());
        start();
    }
    ~BusDaemon()
    {
        stop();
        qunsetenv("AT_SPI_BUS_ADDRESS");
    }
    BusDaemon(const BusDaemon&) = delete;
    BusDaemon& operator=(const BusDaemon&) = delete;

    [[nodiscard]] QByteArray address() const { return "unix:path=" + path(); }
    [[nodiscard]] QByteArray path() const { return _directory.filePath(QStringLiteral("bus")).toLocal8Bit(); }
    void start()
    {
        _process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        _process.start(QStringLiteral("dbus-daemon"),
                       {_configuration(), QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                        QStringLiteral("--address=") + QString::fromLocal8Bit(address())});
        _process.waitForReadyRead(5000);
    }
    void stop()
    {
        _process.kill();
        _process.waitForFinished();
    }

private:
    [[nodiscard]] QString _configuration() const
    {
        if (_services == Services::Installed)
            return QStringLiteral("--session");
        const QString path = _directory.filePath(QStringLiteral("bus.conf"));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(
                "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><policy context=\"default\">"
                "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                "<allow own=\"*\"/></policy></busconfig>");
        return QStringLiteral("--config-file=") + path;
    }

    Services _services;
    QTemporaryDir _directory;
    QProcess _process;
};

} // namespace tarnwick
