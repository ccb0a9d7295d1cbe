#include "Listening.h"

#include <QSignalSpy>

namespace listentest
{

Heard listen(agent::listen::PocketSphinxRecognizer& recognizer, const QString& wavPath)
{
    using agent::listen::PocketSphinxRecognizer;
    QSignalSpy heard(&recognizer, &PocketSphinxRecognizer::utteranceHeard);
    QSignalSpy commands(&recognizer, &PocketSphinxRecognizer::commandRecognized);
    Heard result;
    if (!recognizer.recognizeFile(wavPath) || !heard.wait(30000))
        return result;
    result.answered = true;
    result.words = heard.at(0).at(0).toString();
    result.name = heard.at(0).at(1).toString();
    result.confidence = heard.at(0).at(2).toDouble();
    for (const QList<QVariant>& command : commands)
        result.commands << command.at(0).toString();
    return result;
}

} // namespace listentest
