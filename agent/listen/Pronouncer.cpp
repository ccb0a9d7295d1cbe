#include "agent/listen/Pronouncer.h"

#include "agent/listen/EspeakPhonemes.h"
#include "agent/speech/EspeakThread.h"

#include <QFile>
#include <QSet>

namespace agent::listen
{

Pronouncer::Pronouncer(QString dictionaryPath, EspeakPhonemes espeak)
    : dictionaryPath_(std::move(dictionaryPath)), espeak_(std::move(espeak))
{
}

QString Pronouncer::espeakThreadPhonemes(const QString& word)
{
    speech::EspeakThread& espeak = speech::EspeakThread::instance();
    QString phonemes;
    if (espeak.loaded())
        espeak.runAndWait(
            [&](speech::EspeakWorker& worker) { phonemes = worker.phonemesOf(word); });
    return phonemes;
}

QHash<QString, QString> Pronouncer::pronounce(const QStringList& words)
{
    QStringList unknown;
    for (const QString& word : words)
        if (!keysOfWord_.contains(word))
            unknown << word;
    if (!unknown.isEmpty())
        lookUpInDictionary(unknown);
    for (const QString& word : unknown) {
        if (keysOfWord_.contains(word))
            continue;
        const QString phones = espeakToCmu(espeak_(word));
        keysOfWord_[word] = phones.isEmpty() ? QStringList{} : QStringList{word};
        if (!phones.isEmpty())
            known_.insert(word, phones);
    }
    QHash<QString, QString> result;
    for (const QString& word : words)
        for (const QString& key : keysOfWord_.value(word))
            result.insert(key, known_.value(key));
    return result;
}

// A pass over the 3.5 MB dictionary takes a few milliseconds; holding all of it in memory
// would cost far more than the handful of words a grammar needs.
void Pronouncer::lookUpInDictionary(const QStringList& words)
{
    QFile file(dictionaryPath_);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QSet<QByteArray> wanted;
    for (const QString& word : words)
        wanted.insert(word.toUtf8());
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const qsizetype blank = line.indexOf(' ');
        if (blank <= 0)
            continue;
        const QByteArray key = line.left(blank);
        const qsizetype paren = key.indexOf('(');
        const QByteArray base = paren > 0 ? key.left(paren) : key;
        if (!wanted.contains(base))
            continue;
        const QString word = QString::fromUtf8(base);
        const QString keyText = QString::fromUtf8(key);
        known_.insert(keyText, QString::fromUtf8(line.mid(blank + 1).simplified()));
        keysOfWord_[word] << keyText;
    }
}

} // namespace agent::listen
