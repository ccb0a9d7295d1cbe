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
    : QDialog(parent), m_tabs(new QTabWidget(this)), m_output(new OutputPage(this)),
      m_speech(new QWidget(this))
{
    setWindowTitle(tr("Character Settings"));
    m_tabs->addTab(m_output, OutputName);
    m_tabs->addTab(m_speech, SpeechName);
    connect(m_output, &OutputPage::changed, this, &PropertySheet::outputSettingsChanged);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
}

bool PropertySheet::setPage(const QString& name)
{
    for (int i = 0; i < m_tabs->count(); ++i) {
        if (m_tabs->tabText(i).compare(name, Qt::CaseInsensitive) == 0) {
            m_tabs->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

QString PropertySheet::page() const
{
    return m_tabs->tabText(m_tabs->currentIndex());
}

void PropertySheet::setSpeechPage(QWidget* controls)
{
    const int index = m_tabs->indexOf(m_speech);
    const bool wasCurrent = m_tabs->currentIndex() == index;
    m_tabs->removeTab(index);
    m_speech->deleteLater();
    m_speech = controls;
    m_tabs->insertTab(index, m_speech, SpeechName);
    if (wasCurrent)
        m_tabs->setCurrentIndex(index);
}

} // namespace agent
