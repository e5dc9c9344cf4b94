// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

namespace tarnwick {

/// The program's arguments with those that Tarnwick gives to Qt put in front: X11 as the platform, and no
/// grabs by Qt, which would take the focus from the application whose menu is shown. A user who asks for
/// another platform (with "-platform", or for an off-screen one with QT_QPA_PLATFORM) keeps it.
class QtArguments
{
public:
    /// `platform`: the one for Qt where the user asks for none.
    QtArguments(int argc, char** argv, const QByteArray& platform = "xcb");
    QtArguments(const QtArguments&) = delete;
    QtArguments& operator=(const QtArguments&) = delete;

    /// For QApplication, which keeps both.
    [[nodiscard]] int& argc() { return _argc; }
    [[nodiscard]] char** argv() { return _argv.data(); }

    /// Whether Qt will run on X11.
    [[nodiscard]] bool namesX11() const { return _texts.contains("xcb"); }

private:
    QList<QByteArray> _texts;
    QList<char*> _argv;
    int _argc = 0;
};

} // namespace tarnwick
