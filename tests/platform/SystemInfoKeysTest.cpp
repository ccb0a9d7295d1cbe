#include "platform/linux/SystemInfoKeys.h"

#include "fakes/FakePlatform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::SystemInfoKeys;

// Installs stand-ins for the named programs in a folder that becomes the whole PATH.
struct InstalledPrograms {
    explicit InstalledPrograms(const QStringList& programs) : oldPath(qgetenv("PATH"))
    {
        for (const QString& program : programs) {
            QFile file(folder.filePath(program));
            file.open(QIODevice::WriteOnly);
            file.write("#!/bin/sh\n");
            file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        }
        qputenv("PATH", folder.path().toLocal8Bit());
    }
    ~InstalledPrograms() { qputenv("PATH", oldPath); }
    QString path(const QString& program) const { return folder.filePath(program); }

    QTemporaryDir folder;
    QByteArray oldPath;
};

TEST(SystemInfoKeysTest, TheDesktopsOwnToolComesFirst)
{
    InstalledPrograms installed({"hardinfo", "kinfocenter", "gnome-control-center"});
    EXPECT_EQ(SystemInfoKeys::FindSystemInfoTool({"KDE"}), installed.path("kinfocenter"));
    EXPECT_EQ(SystemInfoKeys::FindSystemInfoTool({"ubuntu", "GNOME"}),
              installed.path("gnome-control-center") + " info-overview");
    EXPECT_EQ(SystemInfoKeys::FindSystemInfoTool({"XFCE"}),
              installed.path("gnome-control-center") + " info-overview")
        << "another desktop takes the first tool installed";
}

TEST(SystemInfoKeysTest, TheMachineKeyNamesTheTool)
{
    InstalledPrograms installed({"hardinfo"});
    fakes::FakeStore store;
    SystemInfoKeys keys(store);
    platform::RegistryStore::Handle key = 0;
    ASSERT_EQ(keys.RegOpenKeyA(platform::HKEY_LOCAL_MACHINE,
                               "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", key),
              0);
    std::uint32_t type = 0, length = 0;
    QByteArray data;
    ASSERT_EQ(keys.RegQueryValueExA(key, "PATH", type, &data, length), 0);
    EXPECT_EQ(type, platform::RegistryStore::String);
    EXPECT_EQ(QString::fromUtf8(data), installed.path("hardinfo"));
    keys.RegCloseKey(key);

    InstalledPrograms none({});
    ASSERT_EQ(keys.RegOpenKeyA(platform::HKEY_LOCAL_MACHINE,
                               "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", key),
              0);
    EXPECT_NE(keys.RegQueryValueExA(key, "PATH", type, &data, length), 0)
        << "no tool installed, no value";
}
