// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace tarnwick {

/// A desktop of its own for one test program: X server, window manager, session bus with the accessibility
/// services, and directories that are fresh. Everything in it ends with it, orphans included.
class PrivateSession
{
public:
    PrivateSession();
    ~PrivateSession();
    PrivateSession(const PrivateSession&) = delete;
    PrivateSession& operator=(const PrivateSession&) = delete;

    /// What could not be started; empty when the session stands.
    [[nodiscard]] QString start();
    [[nodiscard]] const QProcessEnvironment& environment() const { return _environment; }

private:
    /// The first line that the program writes to the descriptor that its argument names.
    [[nodiscard]] QByteArray _startAndRead(const QString& program, const QStringList& arguments,
                                           const QString& descriptorArgument);
    QProcess& _start(const QString& program, const QStringList& arguments);
    void _makeDirectories();
    /// The toolkit would start the machine's portal, and a test could play none.
    static void _leaveOutPortal(const QString& services);

    QTemporaryDir _directory;
    QProcessEnvironment _environment;
    std::vector<std::unique_ptr<QProcess>> _programs;
};

} // namespace tarnwick
