#include "platform/linux/LogindPower.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

const QString Logind = "org.freedesktop.login1";
const QString LogindPath = "/org/freedesktop/login1";
const QString MockInterface = "org.freedesktop.DBus.Mock";

struct MethodCall {
    QString method;
    QVariantList args;
};

// A private bus that stands in for the system bus, with a mock logind on it. The real
// system bus is never reached: the address is replaced before anything connects to it.
class LogindPowerTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        bus = std::make_unique<QProcess>();
        bus->start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
        ASSERT_TRUE(bus->waitForStarted()) << "dbus-daemon is missing";
        ASSERT_TRUE(bus->waitForReadyRead(30000));
        address = QString::fromUtf8(bus->readLine()).trimmed();
        ASSERT_FALSE(address.isEmpty());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());

        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("DBUS_SYSTEM_BUS_ADDRESS", address);
        mock = std::make_unique<QProcess>();
        mock->setProcessEnvironment(env);
        mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mock->start("/usr/bin/python3", {"-m", "dbusmock", "--system", "--template", "logind"});
        ASSERT_TRUE(mock->waitForStarted());

        // The mock takes its name once python has loaded; a generous bound, not a measure.
        ASSERT_TRUE(QTest::qWaitFor(
            [] {
                return mock->state() != QProcess::Running ||
                       connection().interface()->isServiceRegistered(Logind);
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

    void SetUp() override
    {
        ASSERT_EQ(qgetenv("DBUS_SYSTEM_BUS_ADDRESS"), address.toUtf8());
        mockCall("ClearCalls");
    }

    static QDBusConnection connection()
    {
        return QDBusConnection::connectToBus(address, "logind-test");
    }

    static QDBusMessage mockCall(const QString& method, const QVariantList& args = {})
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(Logind, LogindPath, MockInterface, method);
        message.setArguments(args);
        const QDBusMessage reply = connection().call(message);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
        return reply;
    }

    // The mock's log of the calls made to it: a(tsav).
    static std::vector<MethodCall> calls()
    {
        const QDBusMessage reply = mockCall("GetCalls");
        std::vector<MethodCall> found;
        if (reply.arguments().isEmpty())
            return found;
        const QDBusArgument log = reply.arguments().constFirst().value<QDBusArgument>();
        log.beginArray();
        while (!log.atEnd()) {
            MethodCall call;
            quint64 time = 0;
            log.beginStructure();
            log >> time >> call.method;
            log.beginArray();
            while (!log.atEnd()) {
                QDBusVariant arg;
                log >> arg;
                call.args << arg.variant();
            }
            log.endArray();
            log.endStructure();
            found.push_back(call);
        }
        log.endArray();
        return found;
    }

    static inline std::unique_ptr<QProcess> bus;
    static inline std::unique_ptr<QProcess> mock;
    static inline QString address;
};

// Only shut-down and restart ask logind, and without further questions.
TEST_F(LogindPowerTest, ShutDownAndRestartAskLogind)
{
    const std::pair<unsigned, QString> cases[] = {{0, {}}, {3, {}}, {1, "PowerOff"}, {2, "Reboot"}};
    for (const auto& [flags, method] : cases) {
        mockCall("ClearCalls");
        platform::LogindPower().ExitWindowsEx(flags, 0);
        const std::vector<MethodCall> made = calls();
        ASSERT_EQ(made.size(), method.isEmpty() ? 0u : 1u) << flags;
        if (!made.empty()) {
            EXPECT_EQ(made[0].method, method);
            EXPECT_EQ(made[0].args, QVariantList{QVariant(false)});
        }
    }
}

QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtWarningMsg)
        warnings << message;
}

TEST_F(LogindPowerTest, ARefusalIsLoggedAndNotRaised)
{
    mockCall("AddMethod", {"org.freedesktop.login1.Manager", "PowerOff", "b", QString(),
                           QStringLiteral("raise dbus.exceptions.DBusException('Access denied', "
                                          "name='org.freedesktop.DBus.Error.AccessDenied')")});
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);

    EXPECT_NO_THROW(platform::LogindPower().ExitWindowsEx(1, 0));

    qInstallMessageHandler(previous);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].contains("PowerOff"));
    EXPECT_TRUE(warnings[0].contains("Access denied"));
}
