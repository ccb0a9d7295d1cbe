#pragma once

#include "agent/acs/CharacterData.h"

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
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | std::uint8_t(file.at(at + i));
    return value;
}
inline void putU32(QByteArray& file, qsizetype at, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        file[at + i] = char(value >> (8 * i));
}

} // namespace agent::acs::testing
