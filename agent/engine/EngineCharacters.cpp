#include "agent/engine/EngineCharacters.h"

#include "agent/acs/AcsFile.h"
#include "agent/engine/EngineErrors.h"

#include <QFile>
#include <QFileInfo>

namespace agent::engine
{

namespace
{

std::shared_ptr<const acs::CharacterData> readCharacterFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        errors::raise(errors::CharacterFileMissing,
                      QStringLiteral("The character file \"%1\" does not exist.").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        errors::raise(errors::CharacterFileMissing,
                      QStringLiteral("The character file \"%1\" cannot be opened: %2.")
                          .arg(path, file.errorString()));
    try {
        auto character = std::make_shared<acs::CharacterData>(acs::readAcs(file.readAll()));
        if (character->width == 0 || character->height == 0)
            throw acs::FormatError("the character has no size");
        return character;
    } catch (const acs::FormatError& error) {
        errors::raise(platform::errors::BadFileFormat,
                      QStringLiteral("The file \"%1\" is not a valid character file (%2).")
                          .arg(path, QString::fromUtf8(error.what())));
    }
}

} // namespace

EngineCharacters::EngineCharacters(Factory factory, std::function<void()> changed)
    : factory_(std::move(factory)), changed_(std::move(changed))
{
}

void EngineCharacters::Load(const QString& id, const QString& file)
{
    auto character = readCharacterFile(file);
    loaded_.erase(id);
    loaded_[id] = factory_(id, std::move(character));
    changed_();
}

EngineCharacter& EngineCharacters::Character(const QString& id)
{
    const auto found = loaded_.find(id);
    if (found == loaded_.end())
        errors::raise(errors::CharacterNotLoaded,
                      QStringLiteral("No character is loaded with the id \"%1\".").arg(id));
    return *found->second;
}

void EngineCharacters::Unload(const QString& id)
{
    if (loaded_.erase(id) > 0)
        changed_();
}

std::vector<EngineCharacter*> EngineCharacters::all() const
{
    std::vector<EngineCharacter*> list;
    for (const auto& [id, character] : loaded_)
        list.push_back(character.get());
    return list;
}

} // namespace agent::engine
