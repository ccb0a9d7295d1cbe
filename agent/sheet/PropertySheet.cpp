#include "agent/sheet/PropertySheet.h"

#include "agent/sheet/OutputPage.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace agent
{

namespace
{

const QString OutputName = QStringLiteral("Output");
const QString SpeechName = QStringLiteral("Speech");

} // namespace

PropertySheet::PropertySheet(QWidget* parent)
    : QDialog(parent), tabs_(new QTabWidget(this)), output_(new OutputPage(this)),
      speech_(new QWidget(this))
{
    setWindowTitle(tr("Character Settings"));
    tabs_->addTab(output_, OutputName);
    tabs_->addTab(speech_, SpeechName);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons);
}

bool PropertySheet::setPage(const QString& name)
{
    for (int i = 0; i < tabs_->count(); ++i) {
        if (tabs_->tabText(i).compare(name, Qt::CaseInsensitive) == 0) {
            tabs_->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

QString PropertySheet::page() const
{
    return tabs_->tabText(tabs_->currentIndex());
}

void PropertySheet::setSpeechPage(QWidget* controls)
{
    const int index = tabs_->indexOf(speech_);
    const bool wasCurrent = tabs_->currentIndex() == index;
    tabs_->removeTab(index);
    speech_->deleteLater();
    speech_ = controls;
    tabs_->insertTab(index, speech_, SpeechName);
    if (wasCurrent)
        tabs_->setCurrentIndex(index);
}

} // namespace agent
