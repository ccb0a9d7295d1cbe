#include "agent/listen/VoiceText.h"

#include <QSet>

namespace agent::listen
{

namespace
{

// Enough for any sensible command; stops a text such as "(a|b) (c|d) (e|f) ..." from
// growing without bound.
constexpr qsizetype MaxPhrases = 256;

bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('\'') || c == QLatin1Char('-');
}

bool isSeparator(QChar c)
{
    return c.isSpace() || QStringLiteral(",.?!:;").contains(c);
}

// Recursive descent over: sequence = item*; item = word | "(" choice ")" | "[" choice "]";
// choice = sequence ("|" sequence)*.
class Parser
{
public:
    explicit Parser(const QString& text) : text_(text) {}

    std::optional<ParsedVoiceText> run()
    {
        ParsedVoiceText result;
        result.source = text_;
        auto phrases = choice(&result.jsgfExpansion, &result.words);
        skipSeparators();
        if (!phrases || pos_ != text_.size() || result.words.isEmpty())
            return std::nullopt;
        result.phrases = *phrases;
        return result;
    }

private:
    void skipSeparators()
    {
        while (pos_ < text_.size() && isSeparator(text_[pos_]))
            ++pos_;
    }

    bool atChoiceEnd()
    {
        skipSeparators();
        return pos_ == text_.size() || text_[pos_] == QLatin1Char(')') ||
               text_[pos_] == QLatin1Char(']') || text_[pos_] == QLatin1Char('|');
    }

    std::optional<QStringList> choice(QString* jsgf, QStringList* words)
    {
        QStringList all;
        QStringList parts;
        while (true) {
            QString part;
            auto phrases = sequence(&part, words);
            if (!phrases)
                return std::nullopt;
            all += *phrases;
            parts << part;
            if (pos_ < text_.size() && text_[pos_] == QLatin1Char('|')) {
                ++pos_;
                continue;
            }
            break;
        }
        if (all.size() > MaxPhrases)
            return std::nullopt;
        *jsgf = parts.size() == 1 ? parts.front()
                                  : QStringLiteral("( %1 )").arg(parts.join(QStringLiteral(" | ")));
        all.removeDuplicates();
        return all;
    }

    std::optional<QStringList> sequence(QString* jsgf, QStringList* words)
    {
        QStringList phrases{QString()};
        QStringList parts;
        while (!atChoiceEnd()) {
            QString part;
            auto item = this->item(&part, words);
            if (!item)
                return std::nullopt;
            parts << part;
            QStringList joined;
            for (const QString& head : phrases)
                for (const QString& tail : *item)
                    joined << (head.isEmpty() || tail.isEmpty() ? head + tail
                                                                : head + QLatin1Char(' ') + tail);
            if (joined.size() > MaxPhrases)
                return std::nullopt;
            phrases = joined;
        }
        // An empty alternative ("( | yes)") would let silence match the command.
        if (parts.isEmpty())
            return std::nullopt;
        *jsgf = parts.join(QLatin1Char(' '));
        return phrases;
    }

    std::optional<QStringList> item(QString* jsgf, QStringList* words)
    {
        const QChar c = text_[pos_];
        if (c == QLatin1Char('(') || c == QLatin1Char('[')) {
            const QChar close = c == QLatin1Char('(') ? QLatin1Char(')') : QLatin1Char(']');
            ++pos_;
            QString inner;
            auto phrases = choice(&inner, words);
            if (!phrases || pos_ == text_.size() || text_[pos_] != close)
                return std::nullopt;
            ++pos_;
            if (close == QLatin1Char(']')) {
                *jsgf = QStringLiteral("[ %1 ]").arg(inner);
                phrases->prepend(QString());
            } else {
                *jsgf = inner;
            }
            return phrases;
        }
        const qsizetype start = pos_;
        while (pos_ < text_.size() && isWordChar(text_[pos_]))
            ++pos_;
        if (pos_ == start)
            return std::nullopt;
        const QString word = text_.mid(start, pos_ - start).toLower();
        if (!words->contains(word))
            *words << word;
        *jsgf = word;
        return QStringList{word};
    }

    const QString& text_;
    qsizetype pos_ = 0;
};

} // namespace

std::optional<ParsedVoiceText> parseVoiceText(const QString& voice)
{
    return Parser(voice).run();
}

} // namespace agent::listen
