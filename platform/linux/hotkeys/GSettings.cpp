// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GSettings.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// A running command. One that is still running in the end is killed, and its end is not waited for.
class Command
{
public:
    Command(const QString& program, const QStringList& arguments) : _process(std::make_unique<QProcess>())
    {
        _process->setStandardErrorFile(QProcess::nullDevice());
        _process->setStandardInputFile(QProcess::nullDevice());
        _process->start(program, arguments, QIODevice::ReadOnly);
    }
    ~Command()
    {
        if (_process->state() == QProcess::NotRunning)
            return;
        QObject::connect(_process.get(), &QProcess::finished, _process.get(), &QObject::deleteLater);
        _process->kill();
        _process.release()->setParent(QCoreApplication::instance());
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// Its whole output; null when it fails or is late.
    [[nodiscard]] QByteArray output(std::chrono::milliseconds limit)
    {
        if (!_process->waitForFinished(int(limit.count())) ||
            _process->exitStatus() != QProcess::NormalExit || _process->exitCode() != 0)
            return {};
        const QByteArray text = _process->readAllStandardOutput();
        return text.isNull() ? QByteArray("") : text;
    }

private:
    std::unique_ptr<QProcess> _process;
};

} // namespace

GSettings::GSettings(std::chrono::milliseconds limit) : _limit(limit)
{
    _since.start();
}

std::optional<QList<gsettings_text::Setting>> GSettings::read(const QStringList& schemas)
{
    if (!_installed) {
        const auto lists = _outputs(u"gsettings"_s, {{u"list-schemas"_s}, {u"list-relocatable-schemas"_s}});
        if (lists.at(0).isNull() || lists.at(1).isNull())
            return std::nullopt;
        _installed = QString::fromUtf8(lists.at(0) + '\n' + lists.at(1)).split(u'\n', Qt::SkipEmptyParts);
    }
    QList<QStringList> questions;
    for (const QString& schema : schemas) {
        if (_installed->contains(schema.section(u':', 0, 0)))
            questions.append({u"list-recursively"_s, schema});
    }
    QList<gsettings_text::Setting> settings;
    const auto answers = _outputs(u"gsettings"_s, questions);
    for (const QByteArray& answer : answers) {
        if (answer.isNull())
            return std::nullopt;
        settings.append(gsettings_text::parseListing(answer));
    }
    return settings;
}

QStringList GSettings::folders(const QString& path)
{
    const auto output = _outputs(u"dconf"_s, {{u"list"_s, path}}).constFirst();
    QStringList names = QString::fromUtf8(output).split(u'\n', Qt::SkipEmptyParts);
    names.removeIf([](const QString& name) { return !name.endsWith(u'/'); });
    return names;
}

QList<QByteArray> GSettings::_outputs(const QString& program, const QList<QStringList>& arguments)
{
    const QString path = QStandardPaths::findExecutable(program);
    std::vector<std::unique_ptr<Command>> commands;
    if (!path.isEmpty()) {
        for (const QStringList& each : arguments)
            commands.push_back(std::make_unique<Command>(path, each));
    }
    QList<QByteArray> outputs(arguments.size());
    for (std::size_t i = 0; i < commands.size(); ++i) {
        const auto left = _limit - std::chrono::milliseconds(_since.elapsed());
        outputs[qsizetype(i)] = commands[i]->output(std::max(left, std::chrono::milliseconds(0)));
    }
    return outputs;
}

} // namespace tarnwick
