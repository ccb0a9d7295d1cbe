#include "agent/listen/SpeechPage.h"

#include "agent/listen/SpeechInputSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>

namespace agent::listen
{

namespace
{

struct KeyChoice {
    const char* caption;
    const char* keyName; // X key name
};

constexpr KeyChoice KeyChoices[] = {{"Scroll Lock", "Scroll_Lock"},
                                    {"Pause", "Pause"},
                                    {"Right Ctrl", "Control_R"},
                                    {"Menu", "Menu"},
                                    {"Insert", "Insert"},
                                    {"F9", "F9"},
                                    {"F10", "F10"},
                                    {"F11", "F11"},
                                    {"F12", "F12"}};

} // namespace

SpeechPage::SpeechPage(QWidget* parent)
    : QWidget(parent), inputEnabled_(new QCheckBox(tr("&Turn on speech input"), this)),
      listeningKey_(new QComboBox(this)),
      handsFree_(new QCheckBox(tr("Listen &hands-free, without holding the key"), this)),
      threshold_(new QDoubleSpinBox(this))
{
    const SpeechInputSettings settings;
    inputEnabled_->setChecked(settings.enabled());
    for (const KeyChoice& choice : KeyChoices)
        listeningKey_->addItem(tr(choice.caption), QString::fromLatin1(choice.keyName));
    const QString key = settings.listeningKey();
    if (listeningKey_->findData(key) < 0)
        listeningKey_->addItem(key, key);
    listeningKey_->setCurrentIndex(listeningKey_->findData(key));
    handsFree_->setChecked(settings.handsFree());
    threshold_->setRange(-60, 30);
    threshold_->setDecimals(1);
    threshold_->setSingleStep(1);
    threshold_->setValue(settings.threshold());
    threshold_->setToolTip(tr("Higher values reject more of what is not a command, "
                              "and more of what is"));

    auto* layout = new QFormLayout(this);
    layout->addRow(inputEnabled_);
    layout->addRow(tr("&Listening key:"), listeningKey_);
    layout->addRow(handsFree_);
    layout->addRow(tr("&Acceptance threshold:"), threshold_);

    connect(inputEnabled_, &QCheckBox::toggled, this,
            [](bool on) { SpeechInputSettings().setEnabled(on); });
    connect(listeningKey_, &QComboBox::currentIndexChanged, this, [this] {
        SpeechInputSettings().setListeningKey(listeningKey_->currentData().toString());
    });
    connect(handsFree_, &QCheckBox::toggled, this,
            [](bool on) { SpeechInputSettings().setHandsFree(on); });
    connect(threshold_, &QDoubleSpinBox::valueChanged, this,
            [](double threshold) { SpeechInputSettings().setThreshold(threshold); });
}

} // namespace agent::listen
