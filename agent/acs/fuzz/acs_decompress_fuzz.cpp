#include "agent/acs/AcsFile.h"
#include "agent/acs/Compressor.h"
#include "agent/acs/Decompressor.h"

#include <cstdint>
#include <cstdlib>

using namespace agent::acs;

// The first two bytes give the output size, the rest is the compressed stream. Whatever
// decodes must also survive a compress and decompress unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const qsizetype outputSize = qsizetype(data[0] | (data[1] << 8)) * 4;
    const QByteArrayView stream(reinterpret_cast<const char*>(data) + 2, qsizetype(size) - 2);
    QByteArray decoded;
    try {
        decoded = decompress(stream, outputSize);
    } catch (const FormatError&) {
        return 0;
    }
    if (decompress(compress(decoded), decoded.size()) != decoded)
        std::abort();
    return 0;
}
