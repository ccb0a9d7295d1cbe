#include "agent/listen/VoiceGrammar.h"

#include "agent/listen/EspeakPhonemes.h"
#include "agent/listen/Pronouncer.h"
#include "agent/listen/VoiceText.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

TEST(VoiceText, ParsesIntoPhrasesAndRule)
{
    const std::tuple<const char*, QStringList, const char*> cases[] = {
        {"(Yes)", {"yes"}, "yes"},
        {"What is the time?", {"what is the time"}, "what is the time"},
        {"Start [the] gimp", {"start gimp", "start the gimp"}, "start [ the ] gimp"},
        {"((read | show) my mail | mail)",
         {"read my mail", "show my mail", "mail"},
         "( ( read | show ) my mail | mail )"},
        {"Don't stop, x-ray", {"don't stop x-ray"}, "don't stop x-ray"}};
    for (const auto& [voice, phrases, jsgf] : cases) {
        const auto parsed = parseVoiceText(QString::fromUtf8(voice));
        ASSERT_TRUE(parsed) << voice;
        EXPECT_EQ(parsed->phrases, phrases) << voice;
        EXPECT_EQ(parsed->jsgfExpansion, QString::fromUtf8(jsgf)) << voice;
    }
    EXPECT_EQ(parseVoiceText("(Quit Quorl | Close Quorl)")->words,
              (QStringList{"quit", "quorl", "close"}));
}

TEST(VoiceText, RefusesWhatTheGrammarCannotTake)
{
    for (const char* voice :
         {"", " ", "(Quit Quorl", "Quit Quorl)", "( | yes)", "()", "[ ]", "<command>", "a * b",
          "a = b", "open {app}", "(a] b", "say \"hello\""})
        EXPECT_FALSE(parseVoiceText(QString::fromUtf8(voice))) << voice;
    // 2^9 = 512 combinations are too many, 256 are not.
    EXPECT_FALSE(parseVoiceText(QStringLiteral("(a | b) ").repeated(9)));
    EXPECT_TRUE(parseVoiceText(QStringLiteral("(a | b) ").repeated(8)));
}

TEST(VoiceGrammar, MapsHeardWordsToTheFirstMatchingEnabledName)
{
    const VoiceGrammar grammar({{"Time", "What is the time"},
                                {"CloseQuorl", "(Quit Quorl | Close Quorl)"},
                                {"Other", "Close Quorl"},
                                {" ", " "},
                                {"Broken", "(Yes"}});
    EXPECT_EQ(grammar.nameFor(QStringLiteral("what is the time")), QStringLiteral("Time"));
    EXPECT_EQ(grammar.nameFor(QStringLiteral("close quorl")), QStringLiteral("CloseQuorl"));
    EXPECT_EQ(grammar.nameFor(QStringLiteral("quit")), QString());
    EXPECT_EQ(grammar.nameFor(QString()), QString());
    EXPECT_EQ(grammar.rejected(), QStringList{"(Yes"});
    EXPECT_EQ(grammar.jsgf(),
              QStringLiteral("#JSGF V1.0;\ngrammar commands;\npublic <command> = ( what is the "
                             "time ) | ( ( quit quorl | close quorl ) ) | ( close quorl );\n"));
}

TEST(VoiceGrammar, LeavesOutCommandsWithUnpronounceableWords)
{
    VoiceGrammar grammar({{"Yes", "Yes"}, {" 1", "Start the frobnitz"}});
    EXPECT_EQ(grammar.words(), (QStringList{"yes", "start", "the", "frobnitz"}));
    grammar.keepPronounceable({{"yes", "Y EH S"}, {"start", "S T AA R T"}, {"the", "DH AH"}});
    EXPECT_EQ(grammar.nameFor(QStringLiteral("start the frobnitz")), QString());
    EXPECT_EQ(grammar.nameFor(QStringLiteral("yes")), QStringLiteral("Yes"));
    EXPECT_EQ(grammar.rejected(), QStringList{"Start the frobnitz"});

    grammar.keepPronounceable({});
    EXPECT_TRUE(grammar.jsgf().isEmpty());
}

TEST(VoiceGrammar, SamePhrasesMindsTheOrder)
{
    const std::vector<VoicePhrase> list{{"Yes", "(Yes)"}, {"No", "(No)"}};
    EXPECT_TRUE(VoiceGrammar::samePhrases(list, list));
    EXPECT_FALSE(VoiceGrammar::samePhrases(list, {{"No", "(No)"}, {"Yes", "(Yes)"}}));
}

TEST(EspeakPhonemes, MapOntoCmuPhones)
{
    const std::pair<const char*, const char*> cases[] = {
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
    using Pronunciations = QHash<QString, QString>;
    EXPECT_EQ(Pronouncer(dictionary.fileName()).pronounce({"the", "gimp", "yes"}),
              (Pronunciations{
                  {"the", "DH AH"}, {"the(2)", "DH IY"}, {"yes", "Y EH S"}, {"gimp", "G IH M P"}}));
    const auto noEspeak = [](const QString&) { return QString(); };
    EXPECT_EQ(Pronouncer(dictionary.fileName(), noEspeak).pronounce({"gimp", "yes"}),
              (Pronunciations{{"yes", "Y EH S"}}));
}

} // namespace
} // namespace agent::listen
