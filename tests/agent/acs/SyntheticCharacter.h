#pragma once

#include "agent/acs/CharacterData.h"

#include <QtEndian>

namespace agent::acs::testing
{

struct SyntheticOptions {
    bool voice = true;
    bool balloon = true;
};

// A small character that uses every structure of the file: shared and placeholder images of
// odd widths, branches, exit branches, a speaking frame with all seven mouths, sounds,
// upper-case states and two languages.
CharacterData syntheticCharacter(const SyntheticOptions& options = {});

// The little-endian 32-bit value at a file offset, read and written.
inline std::uint32_t u32At(const QByteArray& file, qsizetype at)
{
    return qFromLittleEndian<std::uint32_t>(file.constData() + at);
}
inline void putU32(QByteArray& file, qsizetype at, std::uint32_t value)
{
    qToLittleEndian(value, file.data() + at);
}

} // namespace agent::acs::testing
