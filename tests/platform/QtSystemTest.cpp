#include "platform/linux/QtSystem.h"

#include "platform/RuntimeError.h"
#include "platform/linux/QtShell.h"
#include "platform/linux/SignalEndRequests.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

using namespace platform;
using namespace Qt::StringLiterals;

struct QtShellTest : ::testing::Test {
    // A script that writes its arguments, each followed by "|", to the file "ran" beside it.
    QString makeScript(const QString& name,
                       QFileDevice::Permissions permissions = QFileDevice::ReadOwner |
                                                              QFileDevice::ExeOwner)
    {
        const QString path = dir.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nprintf '%s|' \"$@\" > \"$(dirname \"$0\")/ran\"\n");
        file.close();
        file.setPermissions(permissions);
        return path;
    }

    QTemporaryDir dir;
};

TEST_F(QtShellTest, ACommandLineIsSplitAsAShellSplitsIt)
{
    const QString spaced = makeScript(u"my tool.sh"_s);
    const std::pair<QString, QStringList> cases[] = {
        {u"  gedit  --new-window  "_s, {u"gedit"_s, u"--new-window"_s}},
        {u"xdg-open \"/home/a b/c.txt\" x"_s, {u"xdg-open"_s, u"/home/a b/c.txt"_s, u"x"_s}},
        {u"\""_s + spaced + u"\" arg"_s, {spaced, u"arg"_s}},
        // A text that names an executable file whole is that file, blanks and all.
        {u"  "_s + spaced + u" "_s, {spaced}},
        {dir.filePath(u"missing tool"_s), {dir.filePath(u"missing"_s), u"tool"_s}},
        {u"   "_s, {}},
        // Only the first 255 characters count.
        {u"prog "_s + QString(300, u'a'), {u"prog"_s, QString(250, u'a')}},
    };
    for (const auto& [text, parts] : cases)
        EXPECT_EQ(QtShell::splitCommandLine(text), parts) << text.toStdString();
}

TEST_F(QtShellTest, AStartedProgramGetsItsArguments)
{
    QtShell().StartCommandLine(makeScript("tool.sh") + " one \"two three\"");
    QFile ran(dir.filePath("ran"));
    // A generous bound that only a program that never started reaches.
    ASSERT_TRUE(QTest::qWaitFor([&] { return ran.size() > 0; }, 20000));
    ASSERT_TRUE(ran.open(QIODevice::ReadOnly));
    EXPECT_EQ(ran.readAll(), "one|two three|");
}

TEST_F(QtShellTest, AProgramThatCannotStartRaisesAnErrorThatSaysWhy)
{
    const QString notExecutable = makeScript(u"plain.sh"_s, QFileDevice::ReadOwner);
    const QString cases[] = {
        u"no-such-program-quorl-test --flag"_s,
        dir.filePath(u"missing"_s) + u" arg"_s,
        notExecutable,
        u"   "_s,
    };
    for (const QString& text : cases) {
        try {
            QtShell().StartCommandLine(text);
            ADD_FAILURE() << "started: " << text.toStdString();
        } catch (const platform::RuntimeError& error) {
            EXPECT_FALSE(error.Description.isEmpty()) << text.toStdString();
            EXPECT_FALSE(error.Description.endsWith(QLatin1Char('.'))) << text.toStdString();
        }
    }
}

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

// SIGTERM is sent to the running program by the end-to-end closing script.
TEST(SignalEndRequestsTest, AHangUpReachesTheEventLoop)
{
    SignalEndRequests requests;
    int terminations = 0, sessionEnds = 0;
    requests.Watch([&] { ++terminations; }, [&] { ++sessionEnds; });
    ASSERT_EQ(std::raise(SIGHUP), 0);
    EXPECT_EQ(terminations, 0) << "the handler runs from the event loop, not the signal";
    EXPECT_TRUE(QTest::qWaitFor([&] { return terminations == 1; }, 5000));
    EXPECT_EQ(sessionEnds, 0);
}
