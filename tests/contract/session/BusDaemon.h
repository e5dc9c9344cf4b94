// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <sys/prctl.h>

namespace tarnwick {

/// A message bus of its own, taken for the accessibility bus by what reads menus in this process.
class BusDaemon
{
public:
    BusDaemon()
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
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address=1"),
                        QStringLiteral("--address=") + QString::fromLocal8Bit(address())});
        _process.waitForReadyRead(5000);
    }
    void stop()
    {
        _process.kill();
        _process.waitForFinished();
    }

private:
    QTemporaryDir _directory;
    QProcess _process;
};

} // namespace tarnwick
