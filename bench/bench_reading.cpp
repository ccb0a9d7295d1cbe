// Reads generated text files through the reading engine, one Timer2 tick after another, with
// a character whose requests complete at once. Reports pieces per second and the growth of
// the peak resident memory, which must not depend on the size of the file.
#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"
#include "reading/ReadingEngine.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <fstream>
#include <memory>
#include <string>

namespace
{

class CompleteRequest : public platform::AgentRequest
{
public:
    int Status() const override { return Complete; }
};

// Keeps nothing of what it is asked to do, so that the figures are the engine's own.
class InstantCharacter : public platform::AgentCharacter
{
public:
    platform::Request Speak(const QString&) override
    {
        ++pieces;
        return done_;
    }
    platform::Request Play(const QString&) override { return done_; }
    platform::Request Show(bool) override { return done_; }
    platform::Request Hide() override { return done_; }
    platform::Request MoveTo(std::int16_t, std::int16_t) override { return done_; }
    bool Visible() const override { return true; }
    QString Name() const override { return QStringLiteral("Bench"); }
    int Left() const override { return 0; }
    int Top() const override { return 0; }
    int Pitch() const override { return 100; }
    int Speed() const override { return 150; }
    bool HasOtherClients() const override { return false; }
    void setIdleOn(bool) override {}
    void setSoundEffectsOn(bool) override {}
    platform::AgentBalloon& Balloon() override { return unused_.Balloon(); }
    platform::AgentCommands& Commands() override { return unused_.Commands(); }

    qint64 pieces = 0;

private:
    platform::Request done_ = std::make_shared<CompleteRequest>();
    fakes::FakeAgent agent_;
    fakes::FakeCharacter unused_{agent_};
};

enum class Shape { Paragraphs, OneLine };

// Writes the file in small blocks, so that making it does not raise the peak memory.
void WriteText(const QString& path, Shape shape, qint64 bytes)
{
    static const char* const words[] = {"the",   "reading", "caf\xC3\xA9", "goes",  "on", "while",
                                        "Agent", "speaks",  "every",       "piece", "of", "text,"};
    std::ofstream out(path.toStdString(), std::ios::binary);
    std::string block;
    qint64 written = 0;
    unsigned seed = 12345;
    int lineLength = 0;
    while (written < bytes) {
        block.clear();
        while (block.size() < 1 << 16) {
            seed = seed * 1103515245u + 12345u;
            block += words[(seed >> 16) % 12];
            block += ' ';
            lineLength += 6;
            // Paragraphs of up to 600 characters, now and then a blank line.
            if (shape == Shape::Paragraphs && lineLength > int((seed >> 8) % 600)) {
                block += (seed & 0x700) == 0 ? "\r\n\r\n" : "\r\n";
                lineLength = 0;
            }
        }
        out.write(block.data(), std::streamsize(block.size()));
        written += qint64(block.size());
    }
    out << "\r\n";
}

long PeakKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').front().toLong();
    return 0;
}

void ReadFile(benchmark::State& state, Shape shape, qint64 bytes)
{
    static int argc = 1;
    static char name[] = "bench_reading";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bench.txt"));
    WriteText(path, shape, bytes);
    const long peakBefore = PeakKiB();

    qint64 pieces = 0;
    qint64 ticks = 0;
    for (auto _ : state) {
        fakes::FakePlatform fp;
        App app(fp.platform);
        app.MainForm = std::make_unique<frmMain>(app);
        InstantCharacter character;
        app.Character = &character;
        app.AnimateRead = QStringLiteral("0");
        fp.dialogs.files.push_back(path);
        mnuFileRead_Click(app);
        while (app.MainForm->Timer2->isActive()) {
            Timer2_Timer(app);
            ++ticks;
        }
        pieces += character.pieces;
    }
    const long peakAfter = PeakKiB();
    state.counters["pieces/s"] = benchmark::Counter(double(pieces), benchmark::Counter::kIsRate);
    state.counters["MB/s"] = benchmark::Counter(double(bytes) * double(state.iterations()) / 1e6,
                                                benchmark::Counter::kIsRate);
    state.counters["ticks"] = double(ticks);
    state.counters["peak_MiB"] = double(peakAfter) / 1024.0;
    state.counters["peak_growth_MiB"] = double(peakAfter - peakBefore) / 1024.0;
}

constexpr qint64 MB = 1000 * 1000;

BENCHMARK_CAPTURE(ReadFile, paragraphs_10MB, Shape::Paragraphs, 10 * MB)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(ReadFile, paragraphs_100MB, Shape::Paragraphs, 100 * MB)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(ReadFile, one_line_2MB, Shape::OneLine, 2 * MB)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(ReadFile, one_line_20MB, Shape::OneLine, 20 * MB)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);

} // namespace
