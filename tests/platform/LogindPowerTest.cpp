#include "platform/linux/LogindPower.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

const QString Logind = "org.freedesktop.login1";
const QString LogindPath = "/org/freedesktop/login1";

// A private bus that stands in for the system bus, with a mock logind on it. The real
// system bus is never reached: the address is replaced before anything connects to it.
struct LogindPowerTest : ::testing::Test {
    static void SetUpTestSuite()
    {
        bus = std::make_unique<QProcess>();
        bus->start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
        ASSERT_TRUE(bus->waitForStarted()) << "dbus-daemon is missing";
        ASSERT_TRUE(bus->waitForReadyRead(30000));
        address = QString::fromUtf8(bus->readLine()).trimmed();
        ASSERT_FALSE(address.isEmpty());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());

        mock = std::make_unique<QProcess>();
        mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mock->start("/usr/bin/python3", {"-m", "dbusmock", "--system", "--template", "logind",
                                         "--logfile", folder.filePath("calls.log")});
        ASSERT_TRUE(mock->waitForStarted());

        // The mock takes its name once python has loaded; a generous bound, not a measure.
        ASSERT_TRUE(QTest::qWaitFor(
            [] {
                return mock->state() != QProcess::Running ||
                       QDBusConnection::connectToBus(address, "logind-test")
                           .interface()
                           ->isServiceRegistered(Logind);
            },
            60000))
            << "the mock logind did not start";
        ASSERT_EQ(mock->state(), QProcess::Running) << "python3-dbusmock is missing";
    }

    static void TearDownTestSuite()
    {
        for (auto* process : {&mock, &bus}) {
            if (*process) {
                (*process)->kill();
                (*process)->waitForFinished();
                process->reset();
            }
        }
    }

    void SetUp() override { ASSERT_EQ(qgetenv("DBUS_SYSTEM_BUS_ADDRESS"), address.toUtf8()); }

    static inline std::unique_ptr<QProcess> bus, mock;
    static inline QString address;
    static inline QTemporaryDir folder;
};

// Only shut-down and restart ask logind, and without further questions.
TEST_F(LogindPowerTest, ShutDownAndRestartAskLogind)
{
    const std::pair<unsigned, std::string> cases[] = {
        {0, ""}, {3, ""}, {1, "PowerOff False"}, {2, "Reboot False"}};
    // The mock logs each call as "time Method args" before it answers.
    QFile log(folder.filePath("calls.log"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    log.readAll();
    for (const auto& [flags, made] : cases) {
        platform::LogindPower().ExitWindowsEx(flags, 0);
        QStringList calls;
        for (const QByteArray& line : log.readAll().split('\n'))
            if (!line.isEmpty())
                calls << QString::fromUtf8(line.mid(line.indexOf(' ') + 1));
        EXPECT_EQ(calls.join("; ").toStdString(), made) << flags;
    }
}

TEST_F(LogindPowerTest, ARefusalIsLoggedAndNotRaised)
{
    QDBusMessage refuse = QDBusMessage::createMethodCall(Logind, LogindPath,
                                                         "org.freedesktop.DBus.Mock", "AddMethod");
    refuse.setArguments({"org.freedesktop.login1.Manager", "PowerOff", "b", QString(),
                         QStringLiteral("raise dbus.exceptions.DBusException('Access denied', "
                                        "name='org.freedesktop.DBus.Error.AccessDenied')")});
    ASSERT_EQ(QDBusConnection::connectToBus(address, "logind-test").call(refuse).type(),
              QDBusMessage::ReplyMessage);
    static QStringList warnings;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtWarningMsg)
                warnings << text;
        });

    EXPECT_NO_THROW(platform::LogindPower().ExitWindowsEx(1, 0));

    qInstallMessageHandler(previous);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].contains("PowerOff"));
    EXPECT_TRUE(warnings[0].contains("Access denied"));
}
