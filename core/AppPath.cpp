#include "core/AppPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

QString PrepareAppPath()
{
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QStringLiteral("/Kestrane/Quorl");
    QDir().mkpath(path);
    return path;
}

void PlaceBundledCharacter(const QString& appPath, const QString& bundledCharacter)
{
    const QDir folder(appPath);
    if (bundledCharacter.isEmpty() ||
        !folder.entryList({QStringLiteral("*.acs")}, QDir::Files).isEmpty())
        return;
    QFile::copy(bundledCharacter, folder.filePath(QFileInfo(bundledCharacter).fileName()));
}
