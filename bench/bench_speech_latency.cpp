#include "agent/speech/EspeakSpeechOutput.h"
#include "agent/speech/EspeakThread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <espeak-ng/speak_lib.h>

// Time from speak() to the first samples handed to the audio output, beside espeak-ng's own
// time from espeak_Synth to its first samples, for the same sentence.
namespace
{

using Clock = std::chrono::steady_clock;
using agent::speech::EspeakSpeechOutput;
using agent::speech::EspeakThread;
using agent::speech::EspeakWorker;

const char* const Sentence = "The time now is 2:25.";

Clock::time_point firstSampleAt;

int stopAtFirstSamples(short* wav, int count, espeak_EVENT*)
{
    if (wav && count > 0) {
        firstSampleAt = Clock::now();
        return 1;
    }
    return 0;
}

double espeakFirstSampleSeconds()
{
    double seconds = 0;
    EspeakThread::instance().runAndWait([&seconds](EspeakWorker&) {
        espeak_SetSynthCallback(stopAtFirstSamples);
        const Clock::time_point start = Clock::now();
        espeak_Synth(Sentence, std::strlen(Sentence) + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8,
                     nullptr, nullptr);
        seconds = std::chrono::duration<double>(firstSampleAt - start).count();
    });
    return seconds;
}

// The pipeline synthesises a whole utterance before it plays it; this is what that costs.
double wholeUtteranceSeconds()
{
    const agent::speech::SpeechPlan plan = agent::speech::planSpeech(
        agent::speech::parseSpeechTags(QString::fromLatin1(Sentence), {false, 100, 150, 65535}));
    const std::atomic<quint64> neverCancelled{0};
    double seconds = 0;
    EspeakThread::instance().runAndWait([&](EspeakWorker& worker) {
        const Clock::time_point start = Clock::now();
        worker.synthesize(1, neverCancelled, plan, false);
        seconds = std::chrono::duration<double>(Clock::now() - start).count();
    });
    return seconds;
}

void SpeakToFirstSample(benchmark::State& state)
{
    EspeakSpeechOutput output;
    Clock::time_point handedOver;
    QEventLoop loop;
    QObject::connect(
        &output.player(), &agent::speech::AudioPlayer::firstSamplesHandedOver, &loop,
        [&] {
            handedOver = Clock::now();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        },
        Qt::DirectConnection);

    double pipelineTotal = 0;
    double espeakTotal = 0;
    double wholeTotal = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        output.speak(QString::fromLatin1(Sentence), agent::VoiceDefaults{100, 150, 0});
        loop.exec();
        const double pipeline = std::chrono::duration<double>(handedOver - start).count();
        output.stop();
        const double own = espeakFirstSampleSeconds();
        state.SetIterationTime(pipeline);
        pipelineTotal += pipeline;
        espeakTotal += own;
        wholeTotal += wholeUtteranceSeconds();
    }
    const double n = double(state.iterations());
    state.counters["speak_to_output_us"] = pipelineTotal / n * 1e6;
    state.counters["espeak_first_sample_us"] = espeakTotal / n * 1e6;
    state.counters["whole_synthesis_us"] = wholeTotal / n * 1e6;
    state.counters["ratio"] = pipelineTotal / espeakTotal;
}
BENCHMARK(SpeakToFirstSample)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(200);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
