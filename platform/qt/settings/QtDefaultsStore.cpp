// SPDX-License-Identifier: MIT
#include "platform/qt/settings/QtDefaultsStore.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

// Enough for another program to finish; one that hangs must not make this one hang, too.
constexpr std::chrono::milliseconds Patience(200);
// Within the event loop there is another time.
constexpr std::chrono::milliseconds Later(250);

} // namespace

QtDefaultsStore::QtDefaultsStore(const QString& path)
    : _file(path), _settings(_file.read().value_or(QSettings::SettingsMap()))
{
    _file.keepPrivate();
    _pending.setSingleShot(true);
    _pending.callOnTimeout(&_pending, [this] { _write({}); });
}

QtDefaultsStore::~QtDefaultsStore()
{
    QtDefaultsStore::synchronize();
}

QString QtDefaultsStore::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/Quorlane/Tarnwick.conf"_s;
}

std::optional<QVariant> QtDefaultsStore::value(const QString& key) const
{
    const auto stored = _settings.constFind(key);
    if (key.isEmpty() || stored == _settings.cend())
        return std::nullopt;
    return *stored;
}

void QtDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    if (key.isEmpty())
        return;
    _settings.insert(key, value.toString());
    _changed.insert(key);
    _pending.start(0);
}

void QtDefaultsStore::removeValue(const QString& key)
{
    if (_settings.remove(key) == 0)
        return;
    _changed.insert(key);
    _pending.start(0);
}

void QtDefaultsStore::synchronize()
{
    _write(Patience);
}

void QtDefaultsStore::_write(std::chrono::milliseconds patience)
{
    _pending.stop();
    if (_changed.isEmpty())
        return;
    QSettings::SettingsMap written;
    const auto change = [this, &written](QSettings::SettingsMap& settings) {
        for (const QString& key : std::as_const(_changed)) {
            if (const auto value = _settings.constFind(key); value != _settings.cend())
                settings.insert(key, *value);
            else
                settings.remove(key);
        }
        written = settings;
    };
    switch (_file.update(change, patience)) {
    case SettingsFile::Outcome::Written:
        _settings = written;
        _changed.clear();
        break;
    case SettingsFile::Outcome::Busy:
        _pending.start(Later);
        break;
    case SettingsFile::Outcome::Refused:
        break;
    }
}

} // namespace tarnwick
