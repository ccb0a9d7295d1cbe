#include "agent/listen/EspeakPhonemes.h"

#include <QHash>
#include <QStringList>

namespace agent::listen
{

namespace
{

const QHash<QString, QString>& phoneTable()
{
    static const QHash<QString, QString> table{// vowels and diphthongs
                                               {"a", "AE"},
                                               {"a#", "AE"},
                                               {"aa", "AE"},
                                               {"A:", "AA"},
                                               {"A", "AA"},
                                               {"0", "AA"},
                                               {"A@", "AA R"},
                                               {"O:", "AO"},
                                               {"O", "AO"},
                                               {"O@", "AO R"},
                                               {"o@", "AO R"},
                                               {"aI", "AY"},
                                               {"aI@", "AY ER"},
                                               {"aI3", "AY ER"},
                                               {"aU", "AW"},
                                               {"aU@", "AW ER"},
                                               {"e@", "EH R"},
                                               {"eI", "EY"},
                                               {"E", "EH"},
                                               {"E2", "EH"},
                                               {"E@", "EH R"},
                                               {"@", "AH"},
                                               {"@2", "AH"},
                                               {"@5", "AH"},
                                               {"@L", "AH L"},
                                               {"3", "ER"},
                                               {"3:", "ER"},
                                               {"I", "IH"},
                                               {"I2", "IH"},
                                               {"I#", "IH"},
                                               {"i", "IY"},
                                               {"i:", "IY"},
                                               {"i@", "IH R"},
                                               {"i@3", "IH R"},
                                               {"oU", "OW"},
                                               {"o", "OW"},
                                               {"OI", "OY"},
                                               {"U", "UH"},
                                               {"U@", "UH R"},
                                               {"u:", "UW"},
                                               {"u", "UW"},
                                               {"V", "AH"},
                                               // consonants
                                               {"p", "P"},
                                               {"b", "B"},
                                               {"t", "T"},
                                               {"t#", "T"},
                                               {"d", "D"},
                                               {"k", "K"},
                                               {"g", "G"},
                                               {"f", "F"},
                                               {"v", "V"},
                                               {"T", "TH"},
                                               {"D", "DH"},
                                               {"s", "S"},
                                               {"z", "Z"},
                                               {"S", "SH"},
                                               {"Z", "ZH"},
                                               {"h", "HH"},
                                               {"m", "M"},
                                               {"n", "N"},
                                               {"n-", "N"},
                                               {"N", "NG"},
                                               {"l", "L"},
                                               {"l/", "L"},
                                               {"l#", "L"},
                                               {"r", "R"},
                                               {"r-", "R"},
                                               {"w", "W"},
                                               {"j", "Y"},
                                               {"tS", "CH"},
                                               {"dZ", "JH"},
                                               {"x", "K"},
                                               {"?", "T"},
                                               {"*", "D"}};
    return table;
}

QString stripMarks(QString token)
{
    // Stress and syllable marks: primary, secondary, unstressed, syllabic.
    static const QString marks = QStringLiteral("',%=");
    while (!token.isEmpty() && marks.contains(token.front()))
        token.remove(0, 1);
    return token;
}

} // namespace

QString espeakToCmu(const QString& espeakPhonemes)
{
    QStringList phones;
    const QStringList tokens = espeakPhonemes.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& raw : tokens) {
        const QString token = stripMarks(raw);
        const auto it = phoneTable().constFind(token);
        if (it == phoneTable().constEnd())
            continue;
        for (const QString& phone : it->split(QLatin1Char(' '))) {
            // espeak writes an r-coloured vowel and its r apart ("3 r-"); CMU has one ER.
            if (phone == QLatin1String("R") && !phones.isEmpty() &&
                (phones.back() == QLatin1String("ER") || phones.back() == QLatin1String("R")))
                continue;
            phones << phone;
        }
    }
    return phones.join(QLatin1Char(' '));
}

} // namespace agent::listen
