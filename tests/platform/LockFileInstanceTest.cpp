#include "platform/linux/QtSystem.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::LockFileInstance;

namespace
{

TEST(LockFileInstanceTest, SecondInstanceSeesTheFirstUntilItGoes)
{
    QTemporaryDir dir;
    const QString lock = dir.path() + QStringLiteral("/quorl.lock");
    auto first = std::make_unique<LockFileInstance>(lock);
    EXPECT_FALSE(first->PreviousInstanceRunning());
    EXPECT_FALSE(first->PreviousInstanceRunning()) << "asking again must not see itself";

    LockFileInstance second(lock);
    EXPECT_TRUE(second.PreviousInstanceRunning());

    first->Release();
    EXPECT_FALSE(QFile::exists(lock)) << "the end leaves no lock file behind";
    LockFileInstance third(lock);
    EXPECT_FALSE(third.PreviousInstanceRunning());
}

TEST(LockFileInstanceTest, LockLeftByADeadProgramIsTakenOver)
{
    QTemporaryDir dir;
    const QString lock = dir.path() + QStringLiteral("/quorl.lock");
    {
        QFile file(lock);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        // The format QLockFile writes: pid, application name, host name.
        file.write("999999\nquorl\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    }
    LockFileInstance instance(lock);
    EXPECT_FALSE(instance.PreviousInstanceRunning());
}

} // namespace
