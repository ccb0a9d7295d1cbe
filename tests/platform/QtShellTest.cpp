#include "platform/linux/QtShell.h"

#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace
{

using platform::QtShell;

class QtShellTest : public ::testing::Test
{
protected:
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

    // What the started script wrote, once it has run; empty if it never did.
    QByteArray waitForRun()
    {
        QFile ran(dir.filePath(QStringLiteral("ran")));
        // A generous bound that only a program that never started reaches.
        const QDeadlineTimer deadline(20000);
        while (!deadline.hasExpired()) {
            if (ran.exists() && ran.size() > 0 && ran.open(QIODevice::ReadOnly))
                return ran.readAll();
            QThread::msleep(20);
        }
        return {};
    }

    QTemporaryDir dir;
};

TEST_F(QtShellTest, ACommandLineIsSplitAsAShellSplitsIt)
{
    const QString spaced = makeScript(QStringLiteral("my tool.sh"));
    const std::pair<QString, QStringList> cases[] = {
        {QStringLiteral("gedit"), {QStringLiteral("gedit")}},
        {QStringLiteral("  gedit  --new-window  "),
         {QStringLiteral("gedit"), QStringLiteral("--new-window")}},
        {QStringLiteral("xdg-open \"/home/a b/c.txt\" x"),
         {QStringLiteral("xdg-open"), QStringLiteral("/home/a b/c.txt"), QStringLiteral("x")}},
        {QStringLiteral("\"") + spaced + QStringLiteral("\" arg"), {spaced, QStringLiteral("arg")}},
        // A text that names an executable file whole is that file, blanks and all.
        {spaced, {spaced}},
        {QStringLiteral("  ") + spaced + QStringLiteral(" "), {spaced}},
        {dir.filePath(QStringLiteral("missing tool")),
         {dir.filePath(QStringLiteral("missing")), QStringLiteral("tool")}},
        {QStringLiteral("   "), {}},
    };
    for (const auto& [text, parts] : cases)
        EXPECT_EQ(QtShell::splitCommandLine(text), parts) << text.toStdString();
}

TEST_F(QtShellTest, OnlyTheFirst255CharactersCount)
{
    const QString text = QStringLiteral("prog ") + QString(300, QLatin1Char('a'));
    const QStringList parts = QtShell::splitCommandLine(text);
    ASSERT_EQ(parts.size(), 2);
    EXPECT_EQ(parts[1].size(), 250);
}

TEST_F(QtShellTest, AStartedProgramGetsItsArguments)
{
    const QString script = makeScript(QStringLiteral("tool.sh"));
    QtShell().StartCommandLine(script + QStringLiteral(" one \"two three\""));
    EXPECT_EQ(waitForRun(), QByteArray("one|two three|"));
}

TEST_F(QtShellTest, AProgramWithBlanksInItsNameStartsWhole)
{
    const QString script = makeScript(QStringLiteral("my tool.sh"));
    QtShell().StartCommandLine(QStringLiteral(" ") + script + QStringLiteral(" "));
    EXPECT_EQ(waitForRun(), QByteArray("|"));
}

TEST_F(QtShellTest, AProgramThatCannotStartRaisesAnErrorThatSaysWhy)
{
    const QString notExecutable = makeScript(QStringLiteral("plain.sh"), QFileDevice::ReadOwner);
    const QString cases[] = {
        QStringLiteral("no-such-program-quorl-test --flag"),
        dir.filePath(QStringLiteral("missing")) + QStringLiteral(" arg"),
        notExecutable,
        QStringLiteral("   "),
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

} // namespace
