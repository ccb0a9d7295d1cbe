// From the end of an utterance (the listening key released) to commandRecognized, over the
// synthetic command set of the recogniser's tests. Each utterance is first handed over in
// pieces as a microphone gives them, at the pace of speech, as the key is held.
#include "TestSpeech.h"
#include "agent/listen/PocketSphinxRecognizer.h"
#include "agent/listen/WavFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <benchmark/benchmark.h>

namespace
{

using agent::listen::PocketSphinxRecognizer;

QApplication& application()
{
    static int argc = 1;
    static char name[] = "bench_listen_latency";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The recogniser reads the engine's settings file: not the user's.
    static QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    static QApplication app(argc, argv);
    return app;
}

std::vector<std::vector<std::int16_t>> commandUtterances()
{
    // Full-vocabulary flite voices and four espeak-ng voices at two rates.
    std::vector<listentest::Voice> voices;
    for (const char* name : {"kal", "kal16", "awb", "rms", "slt"})
        voices.push_back({"flite", name, 0});
    for (const char* name : {"en-us", "en-us+m3", "en-us+f2", "en-us+f4"})
        for (int rate : {150, 190})
            voices.push_back({"espeak-ng", name, rate});
    std::vector<std::vector<std::int16_t>> utterances;
    for (const listentest::Voice& voice : voices)
        for (const agent::VoicePhrase& entry : listentest::commandTable()) {
            QString text = entry.voice;
            text.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
            text = text.section(QLatin1Char('|'), 0, 0).trimmed();
            if (auto samples = agent::listen::readSpeechWav(listentest::spokenWav(text, voice)))
                utterances.push_back(std::move(*samples));
        }
    return utterances;
}

void EndOfUtteranceToCommand(benchmark::State& state)
{
    application();
    PocketSphinxRecognizer recognizer;
    if (!recognizer.installed()) {
        state.SkipWithError("PocketSphinx or its model is missing");
        return;
    }
    recognizer.setPhrases(listentest::commandTable());
    const auto utterances = commandUtterances();
    constexpr std::size_t Piece = 1024; // 64 ms

    std::vector<double> latenciesMs;
    QEventLoop loop;
    QElapsedTimer clock;
    bool accepted = false;
    QObject::connect(&recognizer, &PocketSphinxRecognizer::commandRecognized, &loop, [&] {
        latenciesMs.push_back(clock.nsecsElapsed() / 1e6);
        accepted = true;
    });
    QObject::connect(&recognizer, &PocketSphinxRecognizer::utteranceHeard, &loop,
                     [&] { loop.quit(); });
    // The model loads in the background: one utterance first, not counted.
    recognizer.recognizeSamples(utterances.front());
    loop.exec();
    latenciesMs.clear();

    QElapsedTimer speaking;
    for (auto _ : state) {
        for (const auto& samples : utterances) {
            accepted = false;
            speaking.start();
            recognizer.beginUtterance();
            std::size_t at = 0;
            for (; samples.size() - at > Piece; at += Piece) {
                QThread::msleep(
                    std::max<qint64>(0, qint64(at + Piece) * 1000 / 16000 - speaking.elapsed()));
                recognizer.addAudio(std::span(samples).subspan(at, Piece));
            }
            // The key is let go: what the microphone still holds comes with it.
            QThread::msleep(
                std::max<qint64>(0, qint64(samples.size()) * 1000 / 16000 - speaking.elapsed()));
            clock.start();
            recognizer.addAudio(std::span(samples).subspan(at));
            recognizer.endUtterance();
            loop.exec();
            benchmark::DoNotOptimize(accepted);
        }
    }
    std::sort(latenciesMs.begin(), latenciesMs.end());
    if (latenciesMs.empty())
        return;
    state.counters["utterances"] = double(utterances.size());
    state.counters["recognized"] = double(latenciesMs.size());
    state.counters["median_ms"] = latenciesMs[latenciesMs.size() / 2];
    state.counters["p90_ms"] = latenciesMs[latenciesMs.size() * 9 / 10];
}

} // namespace

BENCHMARK(EndOfUtteranceToCommand)->Iterations(1)->Unit(benchmark::kMillisecond);
