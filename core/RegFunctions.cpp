#include "core/RegFunctions.h"

#include <QtEndian>

using platform::RegistryStore;

namespace RegFunctions
{

QString ToString(const KeyValue& value)
{
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const auto* number = std::get_if<std::int16_t>(&value))
        return QString::number(*number);
    return {};
}

KeyValue QueryKeyValue(RegistryStore& store, RegistryStore::Handle key, const QString& name)
{
    std::uint32_t type = 0;
    std::uint32_t length = 0;
    if (store.RegQueryValueExA(key, name, type, nullptr, length) != RegistryStore::Success)
        return Empty{};
    QByteArray data(int(length), ' ');
    if (type == RegistryStore::String) {
        if (store.RegQueryValueExA(key, name, type, &data, length) != RegistryStore::Success)
            return Empty{};
        return TrimAtNull(QString::fromUtf8(data));
    }
    if (type == RegistryStore::Binary) {
        if (store.RegQueryValueExA(key, name, type, &data, length) != RegistryStore::Success)
            return Empty{};
        data.append(2, '\0');
        return qFromLittleEndian<std::int16_t>(data.constData());
    }
    return Empty{};
}

KeyValue ReadKeyValue(RegistryStore& store, std::uint32_t hive, const QString& path,
                      const QString& name)
{
    RegistryStore::Handle key = 0;
    store.RegOpenKeyA(hive, path, key);
    KeyValue value = QueryKeyValue(store, key, name);
    store.RegCloseKey(key);
    return value;
}

QString TrimAtNull(const QString& text)
{
    const auto nul = text.indexOf(QChar(0));
    return nul < 0 ? text : text.left(nul);
}

void WriteKeyValue(RegistryStore& store, std::uint32_t hive, const QString& path,
                   const QString& name, const QString& value)
{
    RegistryStore::Handle key = 0;
    store.RegCreateKeyA(hive, path, key);
    store.RegSetValueExA(key, name, RegistryStore::String, value.toUtf8());
    store.RegCloseKey(key);
}

QString GetSetting(RegistryStore& store, std::uint32_t hive, const QString& path,
                   const QString& name, const QString& defaultValue)
{
    const QString value = ToString(ReadKeyValue(store, hive, path, name));
    if (!value.isEmpty())
        return value;
    WriteKeyValue(store, hive, path, name, defaultValue);
    return defaultValue;
}

KeyValue Settings::Read(const QString& name) const
{
    return ReadKeyValue(store_, platform::HKEY_CURRENT_USER, SettingsKey, name);
}

void Settings::Write(const QString& name, const QString& value) const
{
    WriteKeyValue(store_, platform::HKEY_CURRENT_USER, SettingsKey, name, value);
}

QString Settings::Get(const QString& name, const QString& defaultValue) const
{
    return GetSetting(store_, platform::HKEY_CURRENT_USER, SettingsKey, name, defaultValue);
}

} // namespace RegFunctions
