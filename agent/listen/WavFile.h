#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace agent::listen
{

// Reads a RIFF WAVE file of 16 kHz mono 16-bit PCM, the format the recogniser takes.
// Nothing for a missing file or any other format.
std::optional<std::vector<std::int16_t>> readSpeechWav(const QString& path);

} // namespace agent::listen
