#include "platform/linux/FileRegistryStore.h"

#include "core/RegFunctions.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::FileRegistryStore;

namespace
{

struct FileRegistryStoreTest : ::testing::Test {
    QTemporaryDir dir;
    QString fileName() const { return dir.path() + QStringLiteral("/Kestrane/Quorl.conf"); }
};

TEST_F(FileRegistryStoreTest, ValuesLastFromOneRunToTheNext)
{
    {
        FileRegistryStore store(fileName());
        RegFunctions::Settings settings(store);
        settings.Write(QStringLiteral("Character"),
                       QStringLiteral("/home/ü/chars/Pip, the second.acs"));
        settings.Write(QStringLiteral("ShutDown"), QStringLiteral("0"));
        settings.Write(QStringLiteral("Nul"), QString::fromUtf8("a\0b", 3));
    }
    FileRegistryStore store(fileName());
    RegFunctions::Settings settings(store);
    EXPECT_EQ(settings.ReadText(QStringLiteral("character")),
              QStringLiteral("/home/ü/chars/Pip, the second.acs"));
    EXPECT_EQ(settings.ReadText(QStringLiteral("Shutdown")), QStringLiteral("0"));
    EXPECT_EQ(settings.ReadText(QStringLiteral("Nul")), QStringLiteral("a"));
    EXPECT_TRUE(std::holds_alternative<RegFunctions::Empty>(settings.Read(QStringLiteral("X"))));
}

TEST_F(FileRegistryStoreTest, ReadingCreatesNoFile)
{
    FileRegistryStore store(fileName());
    RegFunctions::Settings settings(store);
    EXPECT_EQ(settings.ReadText(QStringLiteral("Version")), QString());
    EXPECT_FALSE(QFile::exists(fileName()));
}

TEST_F(FileRegistryStoreTest, WritesLeaveNoTemporaryFilesBehind)
{
    FileRegistryStore store(fileName());
    RegFunctions::Settings settings(store);
    for (int i = 0; i < 20; ++i)
        settings.Write(QStringLiteral("Value%1").arg(i), QString::number(i));
    const QStringList files = QDir(dir.path() + QStringLiteral("/Kestrane")).entryList(QDir::Files);
    EXPECT_EQ(files, QStringList{QStringLiteral("Quorl.conf")});
}

TEST_F(FileRegistryStoreTest, AStoreThatIsNeverUsedCreatesNothing)
{
    {
        FileRegistryStore store(fileName());
    }
    EXPECT_FALSE(QDir(dir.path() + QStringLiteral("/Kestrane")).exists());
}

TEST_F(FileRegistryStoreTest, UnreadableFileIsKeptAsideAndTheStoreStartsEmpty)
{
    QDir().mkpath(dir.path() + QStringLiteral("/Kestrane"));
    const QByteArray garbage("\x00\x01\xff\xfe[General]\x00garbage", 25);
    {
        QFile file(fileName());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(garbage);
    }
    FileRegistryStore store(fileName());
    EXPECT_TRUE(QFile::exists(fileName())) << "set aside before the first operation";
    RegFunctions::Settings settings(store);
    EXPECT_EQ(settings.ReadText(QStringLiteral("Version")), QString());
    ASSERT_FALSE(store.setAsideFileName().isEmpty());
    QFile kept(store.setAsideFileName());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), garbage);

    settings.Write(QStringLiteral("Version"), QStringLiteral("43"));
    FileRegistryStore reopened(fileName());
    EXPECT_EQ(RegFunctions::Settings(reopened).ReadText(QStringLiteral("Version")),
              QStringLiteral("43"));
    EXPECT_TRUE(reopened.setAsideFileName().isEmpty());
}

} // namespace
