#pragma once

#include "platform/RegistryStore.h"

#include <QString>
#include <cstdint>
#include <variant>

// The settings layer: every setting is a string value under one key of the current user.
namespace RegFunctions
{

inline const QString SettingsKey = QStringLiteral("Software\\Kestrane\\Quorl");

// A read result: Empty, a string or a 16-bit integer.
struct Empty {
};
using KeyValue = std::variant<Empty, QString, std::int16_t>;

QString ToString(const KeyValue& value);

KeyValue QueryKeyValue(platform::RegistryStore& store, platform::RegistryStore::Handle key,
                       const QString& name);
KeyValue ReadKeyValue(platform::RegistryStore& store, std::uint32_t hive, const QString& path,
                      const QString& name);
QString TrimAtNull(const QString& text);
void WriteKeyValue(platform::RegistryStore& store, std::uint32_t hive, const QString& path,
                   const QString& name, const QString& value);
QString GetSetting(platform::RegistryStore& store, std::uint32_t hive, const QString& path,
                   const QString& name, const QString& defaultValue);

// The program's own key, for the callers that never name another.
class Settings
{
public:
    explicit Settings(platform::RegistryStore& store) : store_(store) {}
    KeyValue Read(const QString& name) const;
    QString ReadText(const QString& name) const { return ToString(Read(name)); }
    void Write(const QString& name, const QString& value) const;
    QString Get(const QString& name, const QString& defaultValue) const;

private:
    platform::RegistryStore& store_;
};

} // namespace RegFunctions
