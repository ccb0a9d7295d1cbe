#include "EngineTestSupport.h"

#include "agent/acs/AcsFile.h"

#include <QFile>

namespace agent::engine::testing
{

QString writeCharacterFile(const QTemporaryDir& folder, const acs::CharacterData& character,
                           const QString& fileName)
{
    const QString path = folder.filePath(fileName);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(acs::writeAcs(character)) < 0)
        return {};
    return path;
}

} // namespace agent::engine::testing
