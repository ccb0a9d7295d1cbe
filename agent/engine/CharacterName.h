#pragma once

#include "agent/acs/CharacterData.h"

#include <QLocale>

namespace agent::engine
{

// The Windows language identifier (primary language in the low 10 bits) of a locale; 0 for a
// language the table does not know.
std::uint16_t languageId(const QLocale& locale);

// The character's name for a user of the given language: the entry of exactly that language,
// else of the same primary language, else English, else the first. Empty without entries.
QString characterName(const std::vector<acs::LocalizedInfo>& names, std::uint16_t language);

} // namespace agent::engine
