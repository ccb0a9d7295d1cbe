#include "agent/listen/EspeakPhonemes.h"
#include "agent/listen/Pronouncer.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

TEST(EspeakPhonemes, MapOntoCmuPhones)
{
    const std::pair<const char*, const char*> cases[] = {
        {"g 'I m p", "G IH M P"},
        {"k w 'o@ l", "K W AO R L"},   // r-coloured vowel keeps its R
        {"w 'E D 3 r-", "W EH DH ER"}, // no second R after ER
        {"dZ 'V dZ", "JH AH JH"},
        {",aI T 'I N k", "AY TH IH NG K"}, // secondary stress mark
        {"t 'aI m _: Q9", "T AY M"},       // unknown tokens dropped
        {"", ""}};
    for (const auto& [espeak, cmu] : cases)
        EXPECT_EQ(espeakToCmu(QString::fromUtf8(espeak)), QString::fromUtf8(cmu)) << espeak;
}

TEST(Pronouncer, TakesTheDictionaryFirstThenEspeakAndLeavesOutTheRest)
{
    QTemporaryDir dir;
    QFile dictionary(dir.filePath(QStringLiteral("dict")));
    ASSERT_TRUE(dictionary.open(QIODevice::WriteOnly));
    dictionary.write("the DH AH\nthe(2) DH IY\nthey DH EY\nyes Y EH S\n");
    dictionary.close();
    const auto found = Pronouncer(dictionary.fileName()).pronounce({"the", "gimp", "yes"});
    EXPECT_EQ(found.value("the"), QStringLiteral("DH AH"));
    EXPECT_EQ(found.value("the(2)"), QStringLiteral("DH IY"));
    EXPECT_EQ(found.value("yes"), QStringLiteral("Y EH S"));
    EXPECT_EQ(found.value("gimp"), QStringLiteral("G IH M P"));
    EXPECT_FALSE(found.contains("they"));
    EXPECT_EQ(found.size(), 4);

    const auto unknown = Pronouncer(dictionary.fileName(), [](const QString&) {
                             return QString();
                         }).pronounce({"gimp", "yes"});
    EXPECT_FALSE(unknown.contains("gimp"));
    EXPECT_EQ(unknown.value("yes"), QStringLiteral("Y EH S"));
}

} // namespace
} // namespace agent::listen
