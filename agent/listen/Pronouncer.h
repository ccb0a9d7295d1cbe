#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace agent::listen
{

// Finds CMU pronunciations for the words of a grammar: first in the model's dictionary, and
// for words it lacks (names such as "gimp") from espeak-ng's phonemes. espeak-ng runs as a
// separate command rather than through its library, because the library is not re-entrant
// and the speech output owns it on another thread.
class Pronouncer
{
public:
    explicit Pronouncer(QString dictionaryPath,
                        QString espeakProgram = QStringLiteral("espeak-ng"));

    // Word (lower case) or alternative ("word(2)") -> phones. Words that get no
    // pronunciation are absent. Results are remembered.
    QHash<QString, QString> pronounce(const QStringList& words);

private:
    void lookUpInDictionary(const QStringList& words);
    QString fromEspeak(const QString& word) const;

    QString dictionaryPath_;
    QString espeakProgram_;
    QHash<QString, QString> known_; // including alternatives
    QHash<QString, QStringList> keysOfWord_;
};

} // namespace agent::listen
