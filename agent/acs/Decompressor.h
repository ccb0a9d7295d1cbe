#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace agent::acs
{

// The most output one compressed byte can yield: the densest token, a 4096-byte copy, takes
// 31 bits, so no valid stream expands more than 4096 * 8 / 31 < 1060 times.
constexpr qsizetype MaxExpansion = 1060;

// Decodes the bit-level LZ stream used for image pixels and regions into exactly
// `outputSize` bytes. Throws FormatError ("decoded N of M bytes: ...") on corrupt input.
QByteArray decompress(QByteArrayView input, qsizetype outputSize);

} // namespace agent::acs
