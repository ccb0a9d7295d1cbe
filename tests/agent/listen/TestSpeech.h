#pragma once

#include "agent/listen/PocketSphinxRecognizer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QString>
#include <gtest/gtest.h>
#include <vector>

// Speech synthesised at test time, kept in LISTEN_TEST_CACHE so a second run costs nothing.
namespace listentest
{

inline const QStringList RecognizerFormat =
    QString("-r 16000 -c 1 -b 16 -e signed-integer").split(' ');

inline bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

inline QString cachedPath(const QString& key)
{
    const QString dir =
        qEnvironmentVariable("LISTEN_TEST_CACHE", QDir::tempPath() + "/listen-test-speech");
    QDir().mkpath(dir);
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1);
    return dir + '/' + QString::fromLatin1(hash.toHex().left(16)) + ".wav";
}

// The default command table and four application entries, one with a word the model's
// dictionary lacks ("gimp").
inline std::vector<agent::VoicePhrase> commandTable()
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

struct Voice {
    QString synthesizer = "flite"; // or "espeak-ng"
    QString name = "kal16";
    int rate = 0; // words per minute for espeak-ng
};

// A 16 kHz mono 16-bit WAV of the text with some silence around it; empty when the tools fail.
inline QString spokenWav(const QString& text, const Voice& voice = {})
{
    const QString label = voice.synthesizer + ' ' + voice.name +
                          (voice.rate ? ' ' + QString::number(voice.rate) : QString());
    const QString out = cachedPath(label + '|' + text);
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

// White noise of the same format.
inline QString noiseWav()
{
    const QString out = cachedPath("noise|whitenoise");
    const QStringList synth = QString("synth 1.5 whitenoise vol 0.3").split(' ');
    return QFile::exists(out) ||
                   run("sox", QStringList{"-n"} + RecognizerFormat + QStringList{out} + synth)
               ? out
               : QString();
}

// Feeds one WAV file and gives the name the recogniser accepts, empty when it rejects the
// words; fails the calling test when no verdict comes or commandRecognized disagrees.
inline QString heardName(agent::listen::PocketSphinxRecognizer& recognizer, const QString& wavPath)
{
    using agent::listen::PocketSphinxRecognizer;
    QSignalSpy heard(&recognizer, &PocketSphinxRecognizer::utteranceHeard);
    QSignalSpy commands(&recognizer, &PocketSphinxRecognizer::commandRecognized);
    if (wavPath.isEmpty() || !recognizer.recognizeFile(wavPath) || !heard.wait(30000)) {
        ADD_FAILURE() << "no verdict on \"" << wavPath.toStdString() << '"';
        return {};
    }
    const QString name = heard.at(0).at(1).toString();
    QStringList commandNames;
    for (const QList<QVariant>& command : commands)
        commandNames << command.at(0).toString();
    EXPECT_EQ(commandNames, name.isEmpty() ? QStringList{} : QStringList{name});
    return name;
}

} // namespace listentest
