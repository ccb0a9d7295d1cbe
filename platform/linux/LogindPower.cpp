#include "platform/linux/LogindPower.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcPower, "quorl.power", QtInfoMsg)

namespace platform {

void LogindPower::ExitWindowsEx(unsigned flags, unsigned)
{
    const QString method = flags == 2 ? QStringLiteral("Reboot") : QStringLiteral("PowerOff");
    QDBusInterface manager(QStringLiteral("org.freedesktop.login1"),
                           QStringLiteral("/org/freedesktop/login1"),
                           QStringLiteral("org.freedesktop.login1.Manager"),
                           QDBusConnection::systemBus());
    const QDBusReply<void> reply = manager.call(method, false);
    if (!reply.isValid())
        qCWarning(lcPower) << "logind refused" << method << ":" << reply.error().message();
}

} // namespace platform
