#include "platform/linux/SystemInfoKeys.h"

#include <QStandardPaths>

namespace platform
{

namespace
{

const QString ToolKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString ToolValue = QStringLiteral("PATH");
// Far above the handles a store gives out.
constexpr RegistryStore::Handle ToolKeyHandle = 0xFFFF0001u;

struct Tool {
    QString desktop; // the desktop whose own tool it is
    QString program;
    QString arguments;
};

// The desktops' own "about this computer" pages, then the stand-alone tools.
const Tool Tools[] = {
    {QStringLiteral("GNOME"), QStringLiteral("gnome-control-center"),
     QStringLiteral(" info-overview")},
    {QStringLiteral("KDE"), QStringLiteral("kinfocenter"), QString()},
    {QStringLiteral("X-Cinnamon"), QStringLiteral("cinnamon-settings"), QStringLiteral(" info")},
    {QStringLiteral("MATE"), QStringLiteral("mate-system-monitor"), QString()},
    {QString(), QStringLiteral("hardinfo"), QString()},
};

} // namespace

SystemInfoKeys::SystemInfoKeys(RegistryStore& store) : store_(store) {}

QString SystemInfoKeys::FindSystemInfoTool(const QStringList& desktops)
{
    auto found = [](const Tool& tool) {
        const QString path = QStandardPaths::findExecutable(tool.program);
        return path.isEmpty() ? QString() : path + tool.arguments;
    };
    for (const Tool& tool : Tools)
        if (desktops.contains(tool.desktop, Qt::CaseInsensitive))
            if (const QString command = found(tool); !command.isEmpty())
                return command;
    for (const Tool& tool : Tools)
        if (const QString command = found(tool); !command.isEmpty())
            return command;
    return {};
}

long SystemInfoKeys::RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key)
{
    if (hive == HKEY_LOCAL_MACHINE && path.compare(ToolKey, Qt::CaseInsensitive) == 0) {
        key = ToolKeyHandle;
        return Success;
    }
    return store_.RegOpenKeyA(hive, path, key);
}

long SystemInfoKeys::RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key)
{
    return store_.RegCreateKeyA(hive, path, key);
}

long SystemInfoKeys::RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type,
                                      QByteArray* data, std::uint32_t& length)
{
    if (key != ToolKeyHandle)
        return store_.RegQueryValueExA(key, name, type, data, length);
    if (name.compare(ToolValue, Qt::CaseInsensitive) != 0)
        return NotFound;
    const QString tool = FindSystemInfoTool(
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts));
    if (tool.isEmpty())
        return NotFound;
    const QByteArray bytes = tool.toUtf8();
    type = String;
    length = std::uint32_t(bytes.size());
    if (data)
        *data = bytes;
    return Success;
}

long SystemInfoKeys::RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                                    const QByteArray& data)
{
    return key == ToolKeyHandle ? NotFound : store_.RegSetValueExA(key, name, type, data);
}

long SystemInfoKeys::RegCloseKey(Handle key)
{
    return key == ToolKeyHandle ? Success : store_.RegCloseKey(key);
}

} // namespace platform
