#include "core/AppPath.h"

#include <QDir>
#include <QStandardPaths>

QString PrepareAppPath()
{
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QStringLiteral("/Kestrane/Quorl");
    QDir().mkpath(path);
    return path;
}
