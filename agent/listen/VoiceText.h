#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace agent::listen
{

// A voice text taken apart: words, alternatives in parentheses separated by "|", and
// optional parts in square brackets.
struct ParsedVoiceText {
    QString source;        // the voice text as given
    QString jsgfExpansion; // the same text as a JSGF rule expansion, words in lower case
    QStringList phrases;   // every word sequence it accepts, words joined by one blank
    QStringList words;     // the distinct words, in order of appearance
};

// Commas, full stops, question and exclamation marks separate words like blanks do. Returns
// nothing for a text the grammar cannot take (unbalanced or empty groups, grammar symbols
// such as < > * + = that it does not support, or too many phrases), and for a text
// without words.
std::optional<ParsedVoiceText> parseVoiceText(const QString& voice);

} // namespace agent::listen
