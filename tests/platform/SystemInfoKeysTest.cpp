#include "platform/linux/SystemInfoKeys.h"

#include "core/RegFunctions.h"
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
    const auto tool = [&] {
        return RegFunctions::ReadKeyValue(keys, platform::HKEY_LOCAL_MACHINE,
                                          "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH");
    };
    EXPECT_EQ(std::get<QString>(tool()), installed.path("hardinfo"));
    InstalledPrograms none({});
    EXPECT_TRUE(std::holds_alternative<RegFunctions::Empty>(tool())) << "no tool installed";
}
