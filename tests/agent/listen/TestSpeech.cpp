#include "TestSpeech.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>

namespace listentest
{

namespace
{

QString cacheDir()
{
    QString dir = qEnvironmentVariable("LISTEN_TEST_CACHE");
    if (dir.isEmpty())
        dir = QDir::tempPath() + QStringLiteral("/listen-test-speech");
    QDir().mkpath(dir);
    return dir;
}

bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

// Resampled, and 0.3 s of silence on each side, as with a key held around the words.
bool toRecognizerFormat(const QString& in, const QString& out)
{
    return run(QStringLiteral("sox"),
               {in, QStringLiteral("-r"), QStringLiteral("16000"), QStringLiteral("-c"),
                QStringLiteral("1"), QStringLiteral("-b"), QStringLiteral("16"),
                QStringLiteral("-e"), QStringLiteral("signed-integer"), out, QStringLiteral("pad"),
                QStringLiteral("0.3"), QStringLiteral("0.3")});
}

QString cachedPath(const QString& key)
{
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1);
    return cacheDir() + QLatin1Char('/') + QString::fromLatin1(hash.toHex().left(16)) +
           QStringLiteral(".wav");
}

} // namespace

std::vector<agent::VoicePhrase> commandTable()
{
    return {{"Clip", "Clip Board"},
            {"Notes", "Notes"},
            {"Time", "What is the time"},
            {"Date", "What is the date"},
            {"Shut", "Shut Down"},
            {"Restart", "Restart Windows"},
            {"CloseQuorl", "(Quit Quorl | Close Quorl)"},
            {"Yes", "(Yes)"},
            {"No", "(No)"},
            {" 1", "Start the gimp"},
            {" 2", "Open the calculator"},
            {" 3", "Play some music"},
            {" 4", "Show my pictures"}};
}

QString Voice::label() const
{
    return rate ? QStringLiteral("%1 %2 %3").arg(synthesizer, name).arg(rate)
                : QStringLiteral("%1 %2").arg(synthesizer, name);
}

std::vector<Voice> fliteVoices()
{
    std::vector<Voice> voices;
    for (const char* name : {"kal", "kal16", "awb", "rms", "slt"})
        voices.push_back({QStringLiteral("flite"), QString::fromLatin1(name), 0});
    return voices;
}

std::vector<Voice> espeakVoices()
{
    std::vector<Voice> voices;
    for (const char* name : {"en-us", "en-us+m3", "en-us+f2", "en-us+f4"})
        for (int rate : {150, 190})
            voices.push_back({QStringLiteral("espeak-ng"), QString::fromLatin1(name), rate});
    return voices;
}

QStringList outsideSentences()
{
    return {"The weather is nice today",
            "I would like a cup of coffee",
            "Please pass the salt",
            "My brother lives in Boston",
            "The train leaves at noon",
            "She bought a new bicycle",
            "We are going to the beach",
            "How was your weekend",
            "The cat is sleeping on the sofa",
            "I cannot find my keys",
            "Yesterday it rained all day",
            "Turn left at the next corner"};
}

QString spokenWav(const QString& text, const Voice& voice)
{
    const QString out = cachedPath(voice.label() + QLatin1Char('|') + text);
    if (QFile::exists(out))
        return out;
    const QString raw = out + QStringLiteral(".synth.wav");
    const bool spoken =
        voice.synthesizer == QLatin1String("flite")
            ? run(QStringLiteral("flite"), {QStringLiteral("-voice"), voice.name,
                                            QStringLiteral("-t"), text, QStringLiteral("-o"), raw})
            : run(QStringLiteral("espeak-ng"),
                  {QStringLiteral("-v"), voice.name, QStringLiteral("-s"),
                   QString::number(voice.rate), QStringLiteral("-w"), raw, text});
    const bool converted = spoken && toRecognizerFormat(raw, out);
    QFile::remove(raw);
    return converted ? out : QString();
}

QStringList noiseWavs()
{
    const QList<QStringList> kinds = {
        {"whitenoise"}, {"pinknoise"}, {"brownnoise"}, {"sine", "440"}, {"square", "220"}};
    QStringList paths;
    for (const QStringList& kind : kinds) {
        const QString out = cachedPath(QStringLiteral("noise|") + kind.join(QLatin1Char(' ')));
        QStringList arguments = {QStringLiteral("-n"),
                                 QStringLiteral("-r"),
                                 QStringLiteral("16000"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("1"),
                                 QStringLiteral("-b"),
                                 QStringLiteral("16"),
                                 QStringLiteral("-e"),
                                 QStringLiteral("signed-integer"),
                                 out,
                                 QStringLiteral("synth"),
                                 QStringLiteral("1.5")};
        arguments += kind;
        arguments << QStringLiteral("vol") << QStringLiteral("0.3");
        if (QFile::exists(out) || run(QStringLiteral("sox"), arguments))
            paths << out;
    }
    return paths;
}

} // namespace listentest
