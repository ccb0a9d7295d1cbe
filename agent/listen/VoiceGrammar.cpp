#include "agent/listen/VoiceGrammar.h"

#include <algorithm>

namespace agent::listen
{

VoiceGrammar::VoiceGrammar(const std::vector<VoicePhrase>& phrases)
{
    for (const VoicePhrase& phrase : phrases) {
        if (phrase.voice.trimmed().isEmpty())
            continue;
        if (auto parsed = parseVoiceText(phrase.voice))
            commands_.push_back({phrase.name, std::move(*parsed)});
        else
            rejected_ << phrase.voice;
    }
}

bool VoiceGrammar::samePhrases(const std::vector<VoicePhrase>& a, const std::vector<VoicePhrase>& b)
{
    return std::ranges::equal(a, b, [](const VoicePhrase& x, const VoicePhrase& y) {
        return x.name == y.name && x.voice == y.voice;
    });
}

QStringList VoiceGrammar::words() const
{
    QStringList all;
    for (const Command& command : commands_)
        all += command.voice.words;
    all.removeDuplicates();
    return all;
}

void VoiceGrammar::keepPronounceable(const QHash<QString, QString>& pronunciations)
{
    std::erase_if(commands_, [&](const Command& command) {
        const bool unknownWord = std::ranges::any_of(command.voice.words, [&](const QString& word) {
            return !pronunciations.contains(word);
        });
        if (unknownWord)
            rejected_ << command.voice.source;
        return unknownWord;
    });
}

QString VoiceGrammar::jsgf() const
{
    if (commands_.empty())
        return {};
    QStringList alternatives;
    for (const Command& command : commands_)
        alternatives << QStringLiteral("( %1 )").arg(command.voice.jsgfExpansion);
    return QStringLiteral("#JSGF V1.0;\ngrammar commands;\npublic <command> = %1;\n")
        .arg(alternatives.join(QStringLiteral(" | ")));
}

QString VoiceGrammar::nameFor(const QString& hypothesis) const
{
    const QString words = hypothesis.simplified().toLower();
    if (words.isEmpty())
        return {};
    for (const Command& command : commands_)
        if (command.voice.phrases.contains(words))
            return command.name;
    return {};
}

} // namespace agent::listen
