#include "platform/linux/QtShell.h"

#include "platform/RuntimeError.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace platform
{

namespace
{

constexpr int MaxCommandLine = 255;

bool isExecutableFile(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

} // namespace

void QtShell::OpenUrl(const QString& url)
{
    QDesktopServices::openUrl(QUrl(url));
}

QStringList QtShell::splitCommandLine(const QString& commandLine)
{
    const QString text = commandLine.trimmed().left(MaxCommandLine);
    if (isExecutableFile(text))
        return {text};
    return QProcess::splitCommand(text);
}

void QtShell::StartCommandLine(const QString& commandLine)
{
    QStringList parts = splitCommandLine(commandLine);
    if (parts.isEmpty())
        throw RuntimeError(errors::InvalidProcedureCall, QStringLiteral("Quorl"),
                           QStringLiteral("the command line is empty"));
    const QString program = parts.takeFirst();
    if (!program.contains(QLatin1Char('/')) && QStandardPaths::findExecutable(program).isEmpty())
        throw RuntimeError(errors::FileNotFound, QStringLiteral("Quorl"),
                           QStringLiteral("the program %1 was not found").arg(program));
    if (program.contains(QLatin1Char('/')) && !isExecutableFile(program))
        throw RuntimeError(errors::FileNotFound, QStringLiteral("Quorl"),
                           QStringLiteral("%1 is not a program that can be started").arg(program));
    if (!QProcess::startDetached(program, parts))
        throw RuntimeError(errors::FileNotFound, QStringLiteral("Quorl"),
                           QStringLiteral("%1 could not be started").arg(program));
}

} // namespace platform
