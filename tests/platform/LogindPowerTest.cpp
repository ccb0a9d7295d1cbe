#include "platform/linux/LogindPower.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>

namespace
{

const QString Logind = QStringLiteral("org.freedesktop.login1");
const QString LogindPath = QStringLiteral("/org/freedesktop/login1");
const QString MockInterface = QStringLiteral("org.freedesktop.DBus.Mock");

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
        bus->start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address=1")});
        ASSERT_TRUE(bus->waitForStarted()) << "dbus-daemon is missing";
        ASSERT_TRUE(bus->waitForReadyRead(30000));
        address = QString::fromUtf8(bus->readLine()).trimmed();
        ASSERT_FALSE(address.isEmpty());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());

        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), address);
        mock = std::make_unique<QProcess>();
        mock->setProcessEnvironment(env);
        mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mock->start(QStringLiteral("/usr/bin/python3"),
                    {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--system"),
                     QStringLiteral("--template"), QStringLiteral("logind")});
        ASSERT_TRUE(mock->waitForStarted());

        // The mock takes its name once python has loaded; a generous bound, not a measure.
        const QDeadlineTimer deadline(60000);
        while (!connection().interface()->isServiceRegistered(Logind)) {
            ASSERT_FALSE(deadline.hasExpired()) << "the mock logind did not start";
            ASSERT_EQ(mock->state(), QProcess::Running) << "python3-dbusmock is missing";
            QThread::msleep(50);
        }
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
        mockCall(QStringLiteral("ClearCalls"));
    }

    static QDBusConnection connection()
    {
        return QDBusConnection::connectToBus(address, QStringLiteral("logind-test"));
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
        const QDBusMessage reply = mockCall(QStringLiteral("GetCalls"));
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

TEST_F(LogindPowerTest, ShutDownAndRestartAskLogindWithoutFurtherQuestions)
{
    const std::pair<unsigned, QString> cases[] = {{1, QStringLiteral("PowerOff")},
                                                  {2, QStringLiteral("Reboot")}};
    for (const auto& [flags, method] : cases) {
        mockCall(QStringLiteral("ClearCalls"));
        platform::LogindPower().ExitWindowsEx(flags, 0);

        const std::vector<MethodCall> made = calls();
        ASSERT_EQ(made.size(), 1u) << flags;
        EXPECT_EQ(made[0].method, method);
        EXPECT_EQ(made[0].args, QVariantList{QVariant(false)});
    }
}

TEST_F(LogindPowerTest, OtherFlagsAskNothing)
{
    for (const unsigned flags : {0u, 3u, 10u})
        platform::LogindPower().ExitWindowsEx(flags, 0);
    EXPECT_TRUE(calls().empty());
}

QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtWarningMsg)
        warnings << message;
}

TEST_F(LogindPowerTest, ARefusalIsLoggedAndNotRaised)
{
    mockCall(QStringLiteral("AddMethod"),
             {QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PowerOff"),
              QStringLiteral("b"), QString(),
              QStringLiteral("raise dbus.exceptions.DBusException('Access denied', "
                             "name='org.freedesktop.DBus.Error.AccessDenied')")});
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);

    EXPECT_NO_THROW(platform::LogindPower().ExitWindowsEx(1, 0));

    qInstallMessageHandler(previous);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("PowerOff")));
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("Access denied")));
}

} // namespace
