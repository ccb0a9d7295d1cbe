#pragma once

#include "agent/EngineServices.h"
#include "agent/listen/VoiceText.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace agent::listen
{

// The grammar of the enabled commands: one JSGF rule over all their voice texts, and the way
// back from the recognised words to the command's name.
class VoiceGrammar
{
public:
    VoiceGrammar() = default;
    // Voice texts that cannot be parsed are left out; rejected() lists them.
    explicit VoiceGrammar(const std::vector<VoicePhrase>& phrases);
    // Voice texts are compared exactly: the same list gives the same grammar.
    static bool samePhrases(const std::vector<VoicePhrase>& a, const std::vector<VoicePhrase>& b);

    // Every word the grammar uses, for the pronunciation lookup.
    QStringList words() const;
    // Leaves out, and adds to rejected(), the commands that use a word without a
    // pronunciation: PocketSphinx refuses a grammar with unknown words.
    void keepPronounceable(const QHash<QString, QString>& pronunciations);

    // Empty when no command is left.
    QString jsgf() const;
    // The name of the first command whose voice text accepts these words; empty when none.
    QString nameFor(const QString& hypothesis) const;
    const QStringList& rejected() const { return rejected_; }

private:
    struct Command {
        QString name;
        ParsedVoiceText voice;
    };
    std::vector<Command> commands_;
    QStringList rejected_;
};

} // namespace agent::listen
