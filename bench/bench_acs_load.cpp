#include "agent/acs/AcsFile.h"

#include <benchmark/benchmark.h>
#include <random>

using namespace agent::acs;

namespace
{

constexpr int Side = 128;
constexpr int ImageCount = 760;
constexpr int NoiseSide = 48;
constexpr std::uint8_t Transparent = 10;

// A 128 x 128 character whose pictures are a flat body with a noisy patch, so the file is
// about 2 MB compressed (as large as a big real character) and decodes like real art: long
// runs mixed with literal stretches.
Image makeImage(std::mt19937& random, int index)
{
    Image image;
    image.width = Side;
    image.height = Side;
    image.pixels = QByteArray(qsizetype(image.stride()) * Side, char(Transparent));
    const int left = 10 + index % 30;
    for (int y = 20; y < 120; ++y)
        for (int x = left; x < left + 80; ++x)
            image.pixels[y * image.stride() + x] = char(40 + (x - left) / 10 + y / 25);
    for (int y = 0; y < NoiseSide; ++y)
        for (int x = 0; x < NoiseSide; ++x)
            image.pixels[(40 + y) * image.stride() + left + 16 + x] = char(random() % 200 + 20);
    image.region = QByteArray::fromHex("20000000010000000000000020000000") + QByteArray(16, '\0');
    return image;
}

CharacterData makeCharacter()
{
    std::mt19937 random(42);
    CharacterData character;
    character.width = Side;
    character.height = Side;
    character.transparentIndex = Transparent;
    character.localizedInfo = {{0x0409, QStringLiteral("Bench"), QString(), QString()}};
    for (std::uint32_t i = 0; i < 256; ++i)
        character.palette.push_back(i * 0x010101u);
    for (int i = 0; i < ImageCount; ++i)
        character.images.push_back(makeImage(random, i));
    for (int a = 0; a < 76; ++a) {
        Animation animation;
        animation.name = QStringLiteral("Animation%1").arg(a);
        for (int f = 0; f < 13; ++f) {
            Frame frame;
            frame.images.push_back({std::uint32_t((a * 13 + f) % ImageCount), 0, 0});
            animation.frames.push_back(frame);
        }
        character.animations.push_back(animation);
    }
    return character;
}

const QByteArray& characterFile(bool compressed)
{
    static const CharacterData character = makeCharacter();
    static const QByteArray packed = writeAcs(character, {true});
    static const QByteArray raw = writeAcs(character, {false});
    return compressed ? packed : raw;
}

void reportPerMegabyte(benchmark::State& state, qsizetype bytes)
{
    state.SetBytesProcessed(std::int64_t(state.iterations()) * bytes);
    state.counters["file_MB"] = double(bytes) / (1 << 20);
    // An inverted rate: CPU seconds per MB of file, printed with its unit (e.g. "7ms").
    state.counters["time_per_MB"] = benchmark::Counter(
        double(bytes) / (1 << 20),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Loading decodes every image, so this is the whole cost of opening a character.
void loadCharacter(benchmark::State& state)
{
    const QByteArray& file = characterFile(state.range(0) != 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(readAcs(file));
    reportPerMegabyte(state, file.size());
}
BENCHMARK(loadCharacter)->Arg(1)->Arg(0)->ArgNames({"compressed"})->Unit(benchmark::kMillisecond);

void writeCharacter(benchmark::State& state)
{
    static const CharacterData character = readAcs(characterFile(true));
    for (auto _ : state)
        benchmark::DoNotOptimize(writeAcs(character, {true}));
    reportPerMegabyte(state, characterFile(true).size());
}
BENCHMARK(writeCharacter)->Unit(benchmark::kMillisecond);

} // namespace
