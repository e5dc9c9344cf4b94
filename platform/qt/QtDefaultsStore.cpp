// SPDX-License-Identifier: MIT
#include "platform/qt/QtDefaultsStore.h"

#include "platform/qt/SettingsText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qint64 LargestFile = 4LL * 1024 * 1024;
constexpr auto OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

/// Makes the missing folders of `path`, each for the user only. False when one could not be made.
bool makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.exists())
        return folder.isDir();
    return makeFolder(folder.path()) && QDir().mkdir(path, OwnerOnly | QFile::ExeOwner);
}

/// Qt's own format can hold whole objects in a value, and making one from garbage can end the program.
QSettings::Format textFormat()
{
    static const QSettings::Format format = QSettings::registerFormat(
        u"conf"_s,
        [](QIODevice& file, QSettings::SettingsMap& settings) {
            settings = settings_text::parse(file.read(LargestFile));
            return true;
        },
        [](QIODevice& file, const QSettings::SettingsMap& settings) {
            const QByteArray text = settings_text::write(settings);
            return file.write(text) == text.size();
        });
    return format;
}

bool isStructured(const QVariant& value)
{
    const int type = value.typeId();
    return type == QMetaType::QVariantMap || type == QMetaType::QVariantList;
}

QString jsonText(const QVariant& value)
{
    return QString::fromUtf8(QJsonDocument::fromVariant(value).toJson(QJsonDocument::Compact));
}

/// The dictionary or list that `text` is the JSON text of; invalid when it is just a text.
QVariant structureOf(const QString& text)
{
    if (!text.startsWith(u'{') && !text.startsWith(u'['))
        return {};
    return QJsonDocument::fromJson(text.toUtf8()).toVariant();
}

} // namespace

QtDefaultsStore::QtDefaultsStore(const QString& path) : _settings(path, textFormat())
{
    _keepPrivate();
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
    if (key.isEmpty())
        return std::nullopt;
    const QVariant stored = _settings.value(key);
    if (!stored.isValid())
        return std::nullopt;
    const QVariant structure = structureOf(stored.toString());
    return structure.isValid() ? structure : stored;
}

void QtDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    if (key.isEmpty())
        return;
    makeFolder(QFileInfo(_settings.fileName()).path());
    _settings.setValue(key, isStructured(value) ? jsonText(value) : value.toString());
}

void QtDefaultsStore::removeValue(const QString& key)
{
    if (!key.isEmpty())
        _settings.remove(key);
}

void QtDefaultsStore::synchronize()
{
    _settings.sync();
    _keepPrivate();
}

void QtDefaultsStore::_keepPrivate() const
{
    QFile file(_settings.fileName());
    if (file.exists() && (file.permissions() & ~(OwnerOnly | QFile::ReadUser | QFile::WriteUser)))
        file.setPermissions(OwnerOnly);
}

} // namespace tarnwick
