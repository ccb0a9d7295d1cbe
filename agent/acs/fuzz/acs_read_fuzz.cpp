#include "agent/acs/AcsFile.h"

#include <cstdint>
#include <cstdlib>

using namespace agent::acs;

// Any input must either read or fail with FormatError; whatever reads must survive a write and
// read back unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CharacterData character;
    try {
        character = readAcs(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    } catch (const FormatError&) {
        return 0;
    }
    const WriteOptions options{size % 2 == 0};
    if (!(readAcs(writeAcs(character, options)) == character))
        std::abort();
    return 0;
}
