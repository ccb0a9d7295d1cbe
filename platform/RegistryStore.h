#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace platform
{

// The per-user settings store, with the operations of a registry: open or create a key,
// query and set a value, close. Value names are matched without regard to case. A handle
// of 0 stands for "no key": queries on it fail and closing it is harmless.
class RegistryStore
{
public:
    using Handle = std::uint32_t;
    enum ValueType : std::uint32_t { None = 0, String = 1, Binary = 3, Dword = 4 };
    static constexpr long Success = 0;
    static constexpr long NotFound = 2;

    virtual ~RegistryStore() = default;

    // Opens an existing key; gives 0 when it is missing and creates nothing.
    virtual long RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key) = 0;
    // Opens the key, creating it first when it is missing.
    virtual long RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key) = 0;
    // With data null: gives type and length in bytes. With data: copies the value too.
    virtual long RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type,
                                  QByteArray* data, std::uint32_t& length) = 0;
    virtual long RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                                const QByteArray& data) = 0;
    virtual long RegCloseKey(Handle key) = 0;
};

constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001u;
constexpr std::uint32_t HKEY_LOCAL_MACHINE = 0x80000002u;

} // namespace platform
