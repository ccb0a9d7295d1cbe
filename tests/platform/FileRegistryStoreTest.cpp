#include "platform/linux/FileRegistryStore.h"

#include "core/RegFunctions.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::FileRegistryStore;

struct FileRegistryStoreTest : ::testing::Test {
    QTemporaryDir dir;
    QString fileName() const { return dir.path() + "/Kestrane/Quorl.conf"; }
};

TEST_F(FileRegistryStoreTest, ValuesLastFromOneRunToTheNextAndLeaveNoOtherFiles)
{
    FileRegistryStore{fileName()};
    EXPECT_FALSE(QDir(dir.path() + "/Kestrane").exists()) << "a store never used creates nothing";
    {
        FileRegistryStore store(fileName());
        RegFunctions::Settings settings(store);
        EXPECT_EQ(settings.ReadText("Version"), QString());
        EXPECT_FALSE(QFile::exists(fileName())) << "reading creates no file";
        settings.Write("Character", "/home/ü/chars/Pip, the second.acs");
        settings.Write("Nul", QString::fromUtf8("a\0b", 3));
    }
    FileRegistryStore store(fileName());
    RegFunctions::Settings settings(store);
    EXPECT_EQ(settings.ReadText("character"), "/home/ü/chars/Pip, the second.acs");
    EXPECT_EQ(settings.ReadText("Nul"), "a");
    EXPECT_TRUE(std::holds_alternative<RegFunctions::Empty>(settings.Read("X")));
    EXPECT_EQ(QDir(dir.path() + "/Kestrane").entryList(QDir::Files), QStringList{"Quorl.conf"});
}

TEST_F(FileRegistryStoreTest, UnreadableFileIsKeptAsideAndTheStoreStartsEmpty)
{
    QDir().mkpath(dir.path() + "/Kestrane");
    const QByteArray garbage("\x00\x01\xff\xfe[General]\x00garbage", 25);
    {
        QFile file(fileName());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(garbage);
    }
    FileRegistryStore store(fileName());
    EXPECT_TRUE(QFile::exists(fileName())) << "set aside before the first operation";
    RegFunctions::Settings settings(store);
    EXPECT_EQ(settings.ReadText("Version"), QString());
    QFile kept(store.setAsideFileName());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), garbage);

    settings.Write("Version", "43");
    FileRegistryStore reopened(fileName());
    EXPECT_EQ(RegFunctions::Settings(reopened).ReadText("Version"), "43");
    EXPECT_TRUE(reopened.setAsideFileName().isEmpty());
}
