#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace agent::acs
{

// Encodes data in the bit-level LZ format that decompress() reads, with greedy matching over
// the format's whole window; the stream ends with the end marker and the 0xFF trailer.
QByteArray compress(QByteArrayView input);

} // namespace agent::acs
