#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

namespace agent::listen
{

// Finds CMU pronunciations for the words of a grammar: first in the model's dictionary, and
// for words it lacks (names such as "gimp") from espeak-ng's phonemes.
class Pronouncer
{
public:
    // A word's espeak-ng phoneme mnemonics, blank-separated; empty when there are none.
    using EspeakPhonemes = std::function<QString(const QString& word)>;

    // By default espeak-ng is asked on the speech output's thread, the one that owns the
    // library.
    explicit Pronouncer(QString dictionaryPath, EspeakPhonemes espeak = espeakThreadPhonemes);
    static QString espeakThreadPhonemes(const QString& word);

    // Word (lower case) or alternative ("word(2)") -> phones. Words that get no
    // pronunciation are absent. Results are remembered.
    QHash<QString, QString> pronounce(const QStringList& words);

private:
    void lookUpInDictionary(const QStringList& words);

    QString dictionaryPath_;
    EspeakPhonemes espeak_;
    QHash<QString, QString> known_; // including alternatives
    QHash<QString, QStringList> keysOfWord_;
};

} // namespace agent::listen
