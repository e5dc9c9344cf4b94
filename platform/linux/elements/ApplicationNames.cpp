// SPDX-License-Identifier: MIT
#include "platform/linux/elements/ApplicationNames.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QByteArray processFile(qint64 processIdentifier, const char* name)
{
    QFile file(u"/proc/%1/%2"_s.arg(processIdentifier).arg(QLatin1StringView(name)));
    return file.open(QIODevice::ReadOnly) ? file.read(qint64{64} * 1024) : QByteArray();
}

/// Field 22 of the process' statistics; the program's name before it may hold blanks and brackets.
QByteArray startTimeOf(qint64 processIdentifier)
{
    const QByteArray statistics = processFile(processIdentifier, "stat");
    return statistics.mid(statistics.lastIndexOf(')') + 2).split(' ').value(19);
}

/// File names of the program and, for an interpreter, of what it runs.
QStringList programsOf(qint64 processIdentifier)
{
    QStringList programs;
    const QList<QByteArray> arguments = processFile(processIdentifier, "cmdline").split('\0');
    for (const QByteArray& argument : arguments.mid(0, 2))
        if (!argument.isEmpty() && !argument.startsWith('-'))
            programs.append(QFileInfo(QFile::decodeName(argument)).fileName());
    return programs;
}

} // namespace

ApplicationNames::ApplicationNames(AtspiBus& bus, AtspiApplications& applications, X11Windows& windows,
                                   ReadingBudget& budget)
    : _bus(bus), _applications(applications), _windows(windows), _budget(budget)
{
}

QString ApplicationNames::of(qint64 processIdentifier)
{
    const QByteArray startTime = startTimeOf(processIdentifier);
    const auto known = _known.constFind(processIdentifier);
    if (known != _known.cend() && known->startTime == startTime)
        return known->name;

    QString name = _entryName(processIdentifier);
    if (name.isEmpty())
        name = _accessibleName(processIdentifier);
    if (name.isEmpty()) // it may yet come to the bus: ask again next time
        return QString::fromLocal8Bit(processFile(processIdentifier, "comm")).trimmed();
    if (_known.size() >= 1000)
        _known.clear();
    _known.insert(processIdentifier, {startTime, name});
    return name;
}

QString ApplicationNames::_entryName(qint64 processIdentifier)
{
    if (processIdentifier == QCoreApplication::applicationPid())
        return QCoreApplication::applicationName();
    QStringList names;
    for (const xcb_window_t window : _windows.windowsOf(processIdentifier))
        names.append(_windows.applicationNames(window));
    for (const QString& name : std::as_const(names))
        if (QString found = _entries.nameForWindowClass(name); !found.isEmpty())
            return found;
    for (const QString& program : programsOf(processIdentifier))
        if (QString found = _entries.nameForProgram(program); !found.isEmpty())
            return found;
    return {};
}

QString ApplicationNames::_accessibleName(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    for (const BusReference& root : _applications.rootsOf(processIdentifier, reading.deadline())) {
        const auto name = _bus.facts(root, {AtspiQuestion::Name}, reading.deadline()).name;
        if (name && !name->trimmed().isEmpty())
            return name->trimmed();
    }
    return {};
}

} // namespace tarnwick
