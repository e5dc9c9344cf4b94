// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace tarnwick {

/// A fixture program with the menu of a file in tests/data, running in the session of the test. It ends with
/// this.
class FixtureProgram
{
public:
    /// Whether it could be built where the tests were built.
    [[nodiscard]] static bool exists(const QString& toolkit)
    {
        return QFile::exists(QStringLiteral(TARNWICK_FIXTURES "/menu_fixture_") + toolkit);
    }

    explicit FixtureProgram(const QString& toolkit, const QStringList& options = {},
                            const QString& menu = QStringLiteral("editor"))
    {
        using namespace Qt::StringLiterals;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"QT_QPA_PLATFORM"_s);
        _process.setProcessEnvironment(environment);
        _process.setProcessChannelMode(QProcess::ForwardedChannels);
        _log = _directory.filePath(u"log"_s);
        _process.start(
            QStringLiteral(TARNWICK_FIXTURES "/menu_fixture_") + toolkit,
            QStringList{QStringLiteral(TARNWICK_TEST_DATA "/%1.menu").arg(menu), u"--log"_s, _log} + options);
        _process.waitForStarted();
    }
    ~FixtureProgram()
    {
        _process.kill();
        _process.waitForFinished();
    }
    FixtureProgram(const FixtureProgram&) = delete;
    FixtureProgram& operator=(const FixtureProgram&) = delete;

    [[nodiscard]] qint64 processIdentifier() const { return _process.processId(); }
    [[nodiscard]] bool isRunning() const { return _process.state() == QProcess::Running; }

    /// What followed `event` in the log, in order.
    [[nodiscard]] QStringList logged(const QString& event) const
    {
        QFile file(_log);
        QStringList found;
        if (file.open(QIODevice::ReadOnly))
            for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
                if (line.startsWith(event + u' '))
                    found.append(line.mid(event.size() + 1));
        return found;
    }

    /// The last titles of the entries chosen so far, once there are `count` or it has taken too long.
    [[nodiscard]] QStringList chosen(qsizetype count) const
    {
        using namespace Qt::StringLiterals;
        const QString event = u"chosen"_s;
        if (!QTest::qWaitFor([&] { return logged(event).size() >= count; }, 5000))
            return {};
        QTest::qWait(20); // a second one would have come by now
        QStringList titles;
        for (const QString& path : logged(event))
            titles.append(path.section(u" > "_s, -1));
        return titles;
    }

private:
    QTemporaryDir _directory;
    QString _log;
    QProcess _process;
};

} // namespace tarnwick
