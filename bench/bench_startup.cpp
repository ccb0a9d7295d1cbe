// The real program started ten times under a private X server, each time with fresh settings
// folders, a character already chosen and the splash screen off: from exec to the main event
// loop running and to the greeting handed to the character, read from the program's
// start-up trace (quorl.startup) against the same monotonic clock.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <optional>

namespace
{

constexpr int Runs = 10;
constexpr int TimeoutMs = 30000;

qint64 monotonicNowMs()
{
    QElapsedTimer now;
    now.start();
    return now.msecsSinceReference();
}

// Xvfb picks a free display itself and names it on its standard output.
class PrivateXServer
{
public:
    PrivateXServer()
    {
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x1024x24"),
                       QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        if (server_.waitForStarted() && server_.waitForReadyRead(TimeoutMs))
            display_ = QLatin1Char(':') + QString::fromLatin1(server_.readLine().trimmed());
        if (!display_.isEmpty())
            startTrayHost();
    }
    ~PrivateXServer()
    {
        for (QProcess* process : {&tray_, &server_}) {
            process->terminate();
            process->waitForFinished();
        }
    }
    QString display() const { return display_; }

private:
    // A desktop has a tray; without one the program stops at start-up to say so.
    void startTrayHost()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), display_);
        tray_.setProcessEnvironment(environment);
        tray_.start(QStringLiteral("trayer"),
                    {QStringLiteral("--edge"), QStringLiteral("bottom"),
                     QStringLiteral("--SetDockType"), QStringLiteral("false")});
        // trayer shows no sign of having taken the tray; the runs measure from the program's
        // start, after this.
        if (tray_.waitForStarted())
            QThread::msleep(1000);
    }

    QProcess server_;
    QProcess tray_;
    QString display_;
};

struct Start {
    double toEventLoopMs = 0;
    double toGreetingMs = 0;
};

std::optional<Start> startOnce(const QString& display)
{
    QTemporaryDir home;
    const QString config = home.filePath(QStringLiteral("config"));
    const QString runtime = home.filePath(QStringLiteral("runtime"));
    QDir().mkpath(config + QStringLiteral("/Kestrane"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QFile settings(config + QStringLiteral("/Kestrane/Quorl.conf"));
    if (!settings.open(QIODevice::WriteOnly))
        return std::nullopt;
    settings.write("[General]\nSplash=0\nCharacter=" QUORL_BUNDLED_CHARACTER "\n");
    settings.close();

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config);
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    // The program is ended by a signal: whatever it keeps in temporary files goes with home.
    environment.insert(QStringLiteral("TMPDIR"), home.path());
    environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                       QStringLiteral("quorl.startup.debug=true"));
    QProcess program;
    program.setProcessEnvironment(environment);

    const qint64 execMs = monotonicNowMs();
    program.start(QStringLiteral(QUORL_PROGRAM), {});
    static const QRegularExpression step(
        QStringLiteral("quorl\\.startup: (.+): [0-9.]+ ms \\(clock ([0-9]+) ms\\)"));
    std::optional<qint64> eventLoopMs;
    std::optional<qint64> greetingMs;
    QElapsedTimer waited;
    waited.start();
    QByteArray output;
    while ((!eventLoopMs || !greetingMs) && waited.elapsed() < TimeoutMs &&
           program.state() != QProcess::NotRunning) {
        program.waitForReadyRead(100);
        output += program.readAllStandardError();
        for (auto match = step.globalMatch(QString::fromLocal8Bit(output)); match.hasNext();) {
            const auto found = match.next();
            const qint64 clock = found.captured(2).toLongLong();
            if (found.captured(1) == QLatin1String("event loop running"))
                eventLoopMs = clock;
            else if (found.captured(1) == QLatin1String("greeting handed to the character"))
                greetingMs = clock;
        }
    }
    program.terminate();
    if (!program.waitForFinished(5000)) {
        program.kill();
        program.waitForFinished();
    }
    if (!eventLoopMs || !greetingMs)
        return std::nullopt;
    return Start{double(*eventLoopMs - execMs), double(*greetingMs - execMs)};
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void ExecToGreeting(benchmark::State& state)
{
    static int argc = 1;
    static char name[] = "bench_startup";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    PrivateXServer server;
    if (server.display().isEmpty()) {
        state.SkipWithError("Xvfb did not start");
        return;
    }
    std::vector<double> toEventLoop;
    std::vector<double> toGreeting;
    for (auto _ : state) {
        for (int run = 0; run < Runs; ++run) {
            const std::optional<Start> start = startOnce(server.display());
            if (!start) {
                state.SkipWithError("the program did not reach its greeting");
                return;
            }
            toEventLoop.push_back(start->toEventLoopMs);
            toGreeting.push_back(start->toGreetingMs);
        }
    }
    state.counters["runs"] = double(toGreeting.size());
    state.counters["event_loop_median_ms"] = median(toEventLoop);
    state.counters["greeting_median_ms"] = median(toGreeting);
}

} // namespace

BENCHMARK(ExecToGreeting)->Iterations(1)->Unit(benchmark::kMillisecond);
