#include "platform/linux/LogindPower.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcPower, "quorl.power", QtInfoMsg)

namespace platform
{

namespace
{

QString managerMethod(unsigned flags)
{
    switch (flags) {
    case 1:
        return QStringLiteral("PowerOff");
    case 2:
        return QStringLiteral("Reboot");
    default:
        return {};
    }
}

} // namespace

void LogindPower::ExitWindowsEx(unsigned flags, unsigned)
{
    const QString method = managerMethod(flags);
    if (method.isEmpty()) {
        qCWarning(lcPower) << "no power operation for flags" << flags;
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), method);
    // false: logind must not ask the user for authorisation, the question was already asked.
    call << false;
    const QDBusMessage reply = QDBusConnection::systemBus().call(call);
    if (reply.type() == QDBusMessage::ErrorMessage)
        qCWarning(lcPower) << "logind refused" << method << ":" << reply.errorMessage();
}

} // namespace platform
