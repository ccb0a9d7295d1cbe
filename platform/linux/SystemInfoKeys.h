#pragma once

#include "platform/RegistryStore.h"

#include <QStringList>

namespace platform
{

// The settings store, with the machine-wide key that names the system information tool
// answered from this desktop: the value PATH of "SOFTWARE\Microsoft\Shared Tools\MSINFO"
// under HKEY_LOCAL_MACHINE is the command line of the first installed tool, the desktop's own
// first. Everything else goes to the store behind it.
class SystemInfoKeys : public RegistryStore
{
public:
    explicit SystemInfoKeys(RegistryStore& store);

    long RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type, QByteArray* data,
                          std::uint32_t& length) override;
    long RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                        const QByteArray& data) override;
    long RegCloseKey(Handle key) override;

    // The tool's command line, or empty when none of the known tools is installed.
    // desktops: the names in $XDG_CURRENT_DESKTOP.
    static QString FindSystemInfoTool(const QStringList& desktops);

private:
    RegistryStore& store_;
};

} // namespace platform
