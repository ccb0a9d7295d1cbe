#include "agent/runtime/WaveDecoder.h"

#include "SpeechAudio.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using agent::runtime::decodeWave;

constexpr double Hz = 1000;
constexpr double HalfSecond = 22050 / 2.0;
// sox's "vol 0.5"
constexpr double Amplitude = 16384;

TEST(WaveDecoderTest, DecodesTheSoundFormatsOfCharactersToTheEngineRate)
{
    QTemporaryDir folder;
    const std::tuple<const char*, int, int, QStringList> cases[] = {
        {"ms-adpcm", 11025, 1, {u"-e"_qs, u"ms-adpcm"_qs}},
        {"ima-adpcm", 11025, 1, {u"-e"_qs, u"ima-adpcm"_qs}},
        {"pcm8", 8000, 1, {u"-b"_qs, u"8"_qs, u"-e"_qs, u"unsigned-integer"_qs}},
        {"pcm16-stereo", 44100, 2, {}},
    };
    for (const auto& [name, rate, channels, encoding] : cases) {
        const QByteArray wave =
            speechtest::soxTone(folder, QString::fromLatin1(name), rate, Hz, encoding, channels);
        if (wave.isEmpty())
            GTEST_SKIP() << "sox cannot make " << name;
        const std::vector<qint16> samples = decodeWave(wave);
        // ADPCM pads its last block with silence.
        const double count = double(samples.size());
        EXPECT_TRUE(count >= HalfSecond - 2 && count <= HalfSecond * 1.1) << name << ": " << count;
        const double expected = Amplitude * HalfSecond / count;
        EXPECT_NEAR(speechtest::toneLevel(samples, Hz), expected, expected * 0.1) << name;

        const std::vector<qint16> half = decodeWave(wave.left(wave.size() / 2));
        EXPECT_TRUE(half.size() > samples.size() / 4 && half.size() < samples.size() * 3 / 4)
            << name << ": what there is plays, " << half.size();
        EXPECT_TRUE(decodeWave(wave.left(30)).empty()) << name << ": header cut short";
    }
    for (const QByteArray& junk :
         {QByteArray(), QByteArray("RIFF\x10\0\0\0WAVEjunkjunk", 20), QByteArray(4000, '\x7f')})
        EXPECT_TRUE(decodeWave(junk).empty());
}
