#include "agent/sheet/OutputPage.h"

#include "agent/EngineSettings.h"
#include "agent/speech/VoiceChoice.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace agent
{

namespace
{

QCheckBox* addSwitch(QVBoxLayout* layout, const QString& text, bool on,
                     void (EngineSettings::*save)(bool), OutputPage* page)
{
    auto* box = new QCheckBox(text, page);
    box->setChecked(on);
    QObject::connect(box, &QCheckBox::toggled, page,
                     [save](bool checked) { (EngineSettings::shared().*save)(checked); });
    layout->addWidget(box);
    return box;
}

} // namespace

OutputPage::OutputPage(QWidget* parent) : QWidget(parent)
{
    const EngineSettings& settings = EngineSettings::shared();
    auto* layout = new QVBoxLayout(this);
    speechOutput_ = addSwitch(layout, tr("&Speak aloud"), settings.speechOutputEnabled(),
                              &EngineSettings::setSpeechOutputEnabled, this);
    balloon_ = addSwitch(layout, tr("Show the word &balloon"), settings.balloonEnabled(),
                         &EngineSettings::setBalloonEnabled, this);
    soundEffects_ = addSwitch(layout, tr("Play sound &effects"), settings.soundEffectsEnabled(),
                              &EngineSettings::setSoundEffectsEnabled, this);

    auto* help = new QLabel(
        tr("Speech is made by espeak-ng. Rates below %1 words per minute are spoken at %1 words "
           "per minute; very high pitches reach at most about 320 Hz.")
            .arg(speech::SlowestRateWpm),
        this);
    help->setWordWrap(true);
    layout->addWidget(help);
    layout->addStretch();
}

} // namespace agent
