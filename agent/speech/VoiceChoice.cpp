#include "agent/speech/VoiceChoice.h"

#include <algorithm>
#include <cmath>

namespace agent::speech
{

namespace
{

constexpr int DefaultPitchSetting = 50;
constexpr int DefaultRateSetting = 175;
constexpr int FastestRateSetting = 450;
constexpr double HeardPerSetRate = 0.95;

} // namespace

int pitchSettingFor(const PitchCurve& curve, int hz)
{
    if (hz <= curve.front())
        return 0;
    if (hz >= curve.back())
        return 100;
    const auto upper = std::upper_bound(curve.begin(), curve.end(), hz);
    const auto lower = std::prev(upper);
    const int step = int(lower - curve.begin()) * 25;
    const double fraction = double(hz - *lower) / double(*upper - *lower);
    return step + int(std::lround(fraction * 25));
}

int rateSettingFor(int wpm)
{
    if (wpm <= 0)
        return DefaultRateSetting;
    return std::clamp(int(std::lround(wpm / HeardPerSetRate)), SlowestRateWpm, FastestRateSetting);
}

EspeakVoice chooseEspeakVoice(const VoiceParams& voice, bool femaleCharacter, bool whisperInstalled)
{
    const bool female =
        voice.pitchHz > MalePitchCurve.back() ||
        (femaleCharacter && (voice.pitchHz == 0 || voice.pitchHz >= FemalePitchCurve.front()));
    EspeakVoice result;
    result.name = "en-us";
    if (voice.whisper && whisperInstalled)
        result.name += female ? "+whisperf" : "+whisper";
    else if (female)
        result.name += "+f2";
    if (voice.pitchHz > 0)
        result.pitch = pitchSettingFor(female ? FemalePitchCurve : MalePitchCurve, voice.pitchHz);
    else
        result.pitch = DefaultPitchSetting;
    result.rate = rateSettingFor(voice.speedWpm);
    return result;
}

} // namespace agent::speech
