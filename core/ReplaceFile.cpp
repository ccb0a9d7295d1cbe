#include "core/ReplaceFile.h"

#include "core/FileErrors.h"

#include <QSaveFile>

void ReplaceFile(const QString& fileName, const std::function<void(QIODevice&)>& write)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        throw FileAccessError(file.errorString());
    write(file);
    if (!file.commit())
        throw FileAccessError(file.errorString());
}
