#pragma once

#include "agent/acs/CharacterData.h"

#include <QByteArray>
#include <stdexcept>

namespace agent::acs
{

// A character file that cannot be read: truncated, corrupt, hostile or of another kind.
class FormatError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Reads a whole .acs file. Every image is decompressed. Throws FormatError.
CharacterData readAcs(const QByteArray& file);

struct WriteOptions {
    bool compressImages = true;
};

// Writes a character as an .acs file (a tool for tests and for the bundled character).
QByteArray writeAcs(const CharacterData& character, const WriteOptions& options = {});

} // namespace agent::acs
