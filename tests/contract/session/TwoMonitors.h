// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QProcess>
#include <QRect>
#include <QScreen>
#include <QString>
#include <QStringList>
#include <QTest>
#include <gtest/gtest.h>

namespace tarnwick {

/// A small monitor at the left, and beside it, somewhat lower, the first one. As long as this exists.
class TwoMonitors
{
public:
    static constexpr QRect Left{0, 0, 480, 800}; ///< pixels of the root
    static constexpr QRect First{480, 100, 800, 600};

    TwoMonitors()
    {
        using namespace Qt::StringLiterals;
        _call({u"--setmonitor"_s, u"left"_s, u"480/120x800/200+0+0"_s, u"screen"_s});
        _call({u"--setmonitor"_s, u"*right"_s, u"800/200x600/150+480+100"_s, u"none"_s});
        const bool seen = QTest::qWaitFor([] { return firstScreen() == First; }, Limit);
        if (!seen && _complaint.isEmpty())
            _complaint = u"the toolkit has not heard of the monitors"_s;
    }
    ~TwoMonitors()
    {
        using namespace Qt::StringLiterals;
        _call({u"--delmonitor"_s, u"right"_s});
        _call({u"--delmonitor"_s, u"left"_s});
        EXPECT_TRUE(QTest::qWaitFor([] { return firstScreen().topLeft().isNull(); }, Limit));
    }
    TwoMonitors(const TwoMonitors&) = delete;
    TwoMonitors& operator=(const TwoMonitors&) = delete;

    /// Empty when they are there.
    [[nodiscard]] QString complaint() const { return _complaint; }

private:
    static constexpr int Limit = 10'000; // ms

    static QRect firstScreen() { return QGuiApplication::primaryScreen()->geometry(); }

    void _call(const QStringList& arguments)
    {
        using namespace Qt::StringLiterals;
        QProcess xrandr;
        xrandr.start(u"xrandr"_s, arguments);
        if (!xrandr.waitForFinished() || xrandr.exitStatus() != QProcess::NormalExit ||
            xrandr.exitCode() != 0)
            _complaint = u"xrandr "_s + arguments.join(u' ') + u": "_s + xrandr.errorString() +
                         QString::fromLocal8Bit(xrandr.readAllStandardError());
    }

    QString _complaint;
};

} // namespace tarnwick
