#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <vector>

namespace agent::runtime
{

// Decodes a RIFF/WAVE file held in memory (PCM 8/16/24/32-bit or float, Microsoft or IMA
// ADPCM, any channel count and rate) into mono 16-bit samples at the engine's audio rate.
// Empty when the data cannot be decoded.
std::vector<qint16> decodeWave(const QByteArray& wave);

} // namespace agent::runtime
