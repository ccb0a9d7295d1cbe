#include "apps/InstalledAppPicker.h"

#include "apps/AppRecord.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

// Arrow keys in the search box move through the list, so that typing and choosing need no Tab.
class ListKeys : public QObject
{
public:
    ListKeys(QListWidget* list, QObject* parent) : QObject(parent), list_(list) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp &&
            key != Qt::Key_PageDown)
            return false;
        QKeyEvent copy(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(list_, &copy);
        return true;
    }

private:
    QListWidget* list_;
};

} // namespace

InstalledAppPicker::InstalledAppPicker(std::vector<platform::InstalledApp> apps, QWidget* parent)
    : QDialog(parent), txtSearch(new QLineEdit(this)), lstApps(new QListWidget(this)),
      apps_(std::move(apps))
{
    setWindowTitle(QStringLiteral("Installed Applications"));
    auto* label = new QLabel(QStringLiteral("&Search:"), this);
    label->setBuddy(txtSearch);
    txtSearch->setAccessibleName(QStringLiteral("Search"));
    txtSearch->setClearButtonEnabled(true);
    lstApps->setAccessibleName(QStringLiteral("Installed Applications"));
    lstApps->setIconSize(QSize(24, 24));
    for (std::size_t i = 0; i < apps_.size(); ++i) {
        auto* item = new QListWidgetItem(apps_[i].Icon, apps_[i].Name, lstApps);
        item->setData(Qt::UserRole, int(i));
        item->setToolTip(apps_[i].CommandLine);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    cmdOK = buttons->button(QDialogButtonBox::Ok);
    cmdOK->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(txtSearch);
    layout->addWidget(lstApps);
    layout->addWidget(buttons);
    resize(420, 480);

    txtSearch->installEventFilter(new ListKeys(lstApps, this));
    connect(txtSearch, &QLineEdit::textChanged, this, &InstalledAppPicker::filter);
    connect(lstApps, &QListWidget::currentRowChanged, this,
            [this] { cmdOK->setEnabled(Picked() != nullptr); });
    connect(lstApps, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    filter(QString());
    txtSearch->setFocus();
}

const platform::InstalledApp* InstalledAppPicker::Picked() const
{
    const QListWidgetItem* item = lstApps->currentItem();
    if (!item || item->isHidden())
        return nullptr;
    return &apps_[std::size_t(item->data(Qt::UserRole).toInt())];
}

void InstalledAppPicker::filter(const QString& text)
{
    const QString wanted = text.trimmed();
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < lstApps->count(); ++row) {
        QListWidgetItem* item = lstApps->item(row);
        const platform::InstalledApp& app = apps_[std::size_t(item->data(Qt::UserRole).toInt())];
        const bool shown = app.Name.contains(wanted, Qt::CaseInsensitive) ||
                           app.CommandLine.contains(wanted, Qt::CaseInsensitive);
        item->setHidden(!shown);
        if (shown && !first)
            first = item;
    }
    lstApps->setCurrentItem(first);
    cmdOK->setEnabled(Picked() != nullptr);
}

QString SpeakableName(const QString& name)
{
    QString words;
    for (const QChar c : name)
        words += c.isLetterOrNumber() ? c : QLatin1Char(' ');
    words = words.simplified();
    // A word cut in half could not be said; the cut falls before it.
    if (words.size() > AppRecordLayout::VoiceWidth) {
        words.truncate(AppRecordLayout::VoiceWidth + 1);
        const auto end = words.lastIndexOf(QLatin1Char(' '));
        words.truncate(end > 0 ? end : AppRecordLayout::VoiceWidth);
    }
    return words;
}
