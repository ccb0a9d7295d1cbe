#include "TestSpeech.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>

namespace listentest
{
namespace
{

const QStringList RecognizerFormat = QString("-r 16000 -c 1 -b 16 -e signed-integer").split(' ');

bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

QString cachedPath(const QString& key)
{
    QString dir = qEnvironmentVariable("LISTEN_TEST_CACHE");
    if (dir.isEmpty())
        dir = QDir::tempPath() + "/listen-test-speech";
    QDir().mkpath(dir);
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1);
    return dir + '/' + QString::fromLatin1(hash.toHex().left(16)) + ".wav";
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
    return rate ? QString("%1 %2 %3").arg(synthesizer, name).arg(rate) : synthesizer + ' ' + name;
}

std::vector<Voice> fliteVoices()
{
    std::vector<Voice> voices;
    for (const char* name : {"kal", "kal16", "awb", "rms", "slt"})
        voices.push_back({"flite", name, 0});
    return voices;
}

std::vector<Voice> espeakVoices()
{
    std::vector<Voice> voices;
    for (const char* name : {"en-us", "en-us+m3", "en-us+f2", "en-us+f4"})
        for (int rate : {150, 190})
            voices.push_back({"espeak-ng", name, rate});
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
    const QString out = cachedPath(voice.label() + '|' + text);
    if (QFile::exists(out))
        return out;
    const QString raw = out + ".synth.wav";
    const bool spoken = voice.synthesizer == "flite"
                            ? run("flite", {"-voice", voice.name, "-t", text, "-o", raw})
                            : run("espeak-ng", {"-v", voice.name, "-s", QString::number(voice.rate),
                                                "-w", raw, text});
    // 0.3 s of silence on each side, as with a key held around the words.
    const bool converted = spoken && run("sox", QStringList{raw} + RecognizerFormat +
                                                    QStringList{out, "pad", "0.3", "0.3"});
    QFile::remove(raw);
    return converted ? out : QString();
}

QStringList noiseWavs()
{
    QStringList paths;
    for (const char* kind : {"whitenoise", "pinknoise", "brownnoise", "sine 440", "square 220"}) {
        const QString out = cachedPath(QString("noise|") + kind);
        const QStringList synth = QString("synth 1.5 %1 vol 0.3").arg(kind).split(' ');
        if (QFile::exists(out) ||
            run("sox", QStringList{"-n"} + RecognizerFormat + QStringList{out} + synth))
            paths << out;
    }
    return paths;
}

} // namespace listentest
