#include "platform/linux/FileRegistryStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QStringDecoder>

Q_LOGGING_CATEGORY(lcStore, "quorl.store", QtWarningMsg)

namespace platform
{

namespace
{

// Settings are text; a file with NUL bytes or broken UTF-8 was not written by this store.
bool looksLikeSettingsText(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray bytes = file.readAll();
    if (bytes.contains('\0'))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    (void)decoder.decode(bytes);
    return !decoder.hasError();
}

QString hiveName(std::uint32_t hive)
{
    return hive == HKEY_CURRENT_USER ? QStringLiteral("HKEY_CURRENT_USER")
                                     : QStringLiteral("HIVE_%1").arg(hive, 8, 16, QLatin1Char('0'));
}

} // namespace

FileRegistryStore::FileRegistryStore(const QString& fileName) : fileName_(fileName) {}

QSettings& FileRegistryStore::settings()
{
    if (settings_)
        return *settings_;
    QDir().mkpath(QFileInfo(fileName_).absolutePath());
    settings_ = std::make_unique<QSettings>(fileName_, QSettings::IniFormat);
    if (QFileInfo::exists(fileName_) &&
        (settings_->status() != QSettings::NoError || !looksLikeSettingsText(fileName_))) {
        settings_.reset();
        setAside_ = fileName_ + QStringLiteral(".unreadable-") +
                    QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
        if (!QFile::rename(fileName_, setAside_))
            setAside_.clear();
        qCWarning(lcStore) << "settings file" << fileName_ << "could not be read; kept as"
                           << setAside_;
        settings_ = std::make_unique<QSettings>(fileName_, QSettings::IniFormat);
    }
    return *settings_;
}

FileRegistryStore::~FileRegistryStore() = default;

QString FileRegistryStore::defaultFileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Kestrane/Quorl.conf");
}

QString FileRegistryStore::groupOf(std::uint32_t hive, const QString& path) const
{
    // The file already names the program, so its own key's values stand at the top level.
    if (hive == HKEY_CURRENT_USER &&
        path.compare(QStringLiteral("Software\\Kestrane\\Quorl"), Qt::CaseInsensitive) == 0)
        return {};
    QString group = path;
    group.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return hiveName(hive) + QLatin1Char('/') + group;
}

QString FileRegistryStore::valueKey(const QString& group, const QString& name)
{
    return group.isEmpty() ? name : group + QLatin1Char('/') + name;
}

bool FileRegistryStore::groupExists(const QString& group)
{
    settings().beginGroup(group);
    const bool exists = !settings().childKeys().isEmpty() || !settings().childGroups().isEmpty();
    settings().endGroup();
    return exists;
}

QString FileRegistryStore::storedName(const QString& group, const QString& name)
{
    settings().beginGroup(group);
    const QStringList keys = settings().childKeys();
    settings().endGroup();
    for (const QString& key : keys)
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return key;
    return {};
}

RegistryStore::Handle FileRegistryStore::newHandle(const QString& group)
{
    const Handle handle = next_++;
    open_[handle] = group;
    return handle;
}

long FileRegistryStore::RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key)
{
    const QString group = groupOf(hive, path);
    key = groupExists(group) ? newHandle(group) : 0;
    return key ? Success : NotFound;
}

long FileRegistryStore::RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key)
{
    key = newHandle(groupOf(hive, path));
    return Success;
}

long FileRegistryStore::RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type,
                                         QByteArray* data, std::uint32_t& length)
{
    const auto it = open_.find(key);
    if (it == open_.end())
        return NotFound;
    const QString stored = storedName(it->second, name);
    if (stored.isEmpty())
        return NotFound;
    const QVariant value = settings().value(valueKey(it->second, stored));
    QByteArray bytes;
    if (value.typeId() == QMetaType::QByteArray) {
        type = Binary;
        bytes = value.toByteArray();
    } else {
        type = String;
        bytes = value.toString().toUtf8();
    }
    length = std::uint32_t(bytes.size());
    if (data)
        *data = bytes;
    return Success;
}

long FileRegistryStore::RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                                       const QByteArray& data)
{
    const auto it = open_.find(key);
    if (it == open_.end())
        return NotFound;
    QString stored = storedName(it->second, name);
    if (stored.isEmpty())
        stored = name;
    const QString fullName = valueKey(it->second, stored);
    if (type == Binary)
        settings().setValue(fullName, data);
    else
        settings().setValue(fullName, QString::fromUtf8(data));
    settings().sync();
    if (settings().status() != QSettings::NoError) {
        qCWarning(lcStore) << "could not write the settings file" << fileName_;
        return 1;
    }
    return Success;
}

long FileRegistryStore::RegCloseKey(Handle key)
{
    open_.erase(key);
    return Success;
}

} // namespace platform
