#include "platform/linux/QtSystem.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::LockFileInstance;

// A second start while the first runs, and the start after it ended, are in the end-to-end
// scripts second_instance.sh and first_run.sh.
TEST(LockFileInstanceTest, TheLockGoesWithTheProgramAndAStaleOneIsIgnored)
{
    QTemporaryDir dir;
    const QString lock = dir.path() + "/quorl.lock";
    auto first = std::make_unique<LockFileInstance>(lock);
    EXPECT_FALSE(first->PreviousInstanceRunning());
    EXPECT_FALSE(first->PreviousInstanceRunning()) << "asking again must not see itself";
    first->Release();
    EXPECT_FALSE(QFile::exists(lock)) << "the end leaves no lock file behind";

    // A lock left by a dead program, in the format QLockFile writes: pid, name, host name.
    QFile file(lock);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("999999\nquorl\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    file.close();
    EXPECT_FALSE(LockFileInstance(lock).PreviousInstanceRunning());
}
