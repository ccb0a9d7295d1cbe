#include "apps/frmApp.h"

#include "apps/AppsFile.h"
#include "apps/InstalledAppPicker.h"
#include "apps/LoadApps.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/ReadingState.h"
#include "core/frmMain.h"
#include "platform/InstalledApps.h"

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

QPushButton* button(const QString& caption, const QString& tip, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setToolTip(tip);
    b->setAutoDefault(false);
    return b;
}

// The caption as a screen reader should say it: without the marks of the access keys.
bool blank(const QLineEdit* box)
{
    return Conversions::Trim(box->text()).isEmpty();
}

} // namespace

frmApp::frmApp(App& app)
    : QDialog(app.MainForm.get()), app(app), List1(new QListWidget(this)),
      Frame1(new QGroupBox(QStringLiteral("Application Data"), this)),
      Label1(new QLabel(QStringLiteral("Application Title:"), Frame1)),
      txtName(new QLineEdit(Frame1)),
      Label3(new QLabel(QStringLiteral("Voice Activation Command:"), Frame1)),
      txtVoice(new QLineEdit(Frame1)),
      Label2(new QLabel(QStringLiteral("Application Path:"), Frame1)),
      txtPath(new QLineEdit(Frame1)), cmdBrowse(button(QStringLiteral(".."), QString(), Frame1)),
      chkVisible(new QCheckBox(QStringLiteral("&Visible in Character's Popup &Menu."), Frame1)),
      chkVoice(new QCheckBox(QStringLiteral("&Voice Activated"), Frame1)),
      cmdAdd(button(QStringLiteral("&Add"),
                    QStringLiteral(" Add this application to the applications list "), this)),
      cmdChange(button(QStringLiteral("C&hange"),
                       QStringLiteral(" Change the selected application data "), this)),
      cmdDel(button(QStringLiteral("&Delete"), QStringLiteral(" Delete the selected item "), this)),
      cmdUp(button(QStringLiteral("&Up"), QStringLiteral("Move this entry up"), this)),
      cmdDown(button(QStringLiteral("Do&wn"), QStringLiteral("Move this entry down"), this)),
      cmdClose(button(QStringLiteral("&Close"),
                      QStringLiteral("Close this window and save settings"), this)),
      cmdEnable(button(QStringLiteral("&Enable/Disable Commands"), QString(), this)),
      cmdCommands(button(QStringLiteral("Q&uorl Voice Commands"), QString(), this))
{
    setWindowTitle(QStringLiteral("Quorl Application Setup"));
    List1->setToolTip(QStringLiteral("The list of voice activated applications"));
    txtName->setToolTip(
        QStringLiteral("This is the name of the application which will appear in the popup menu"));
    txtVoice->setToolTip(QStringLiteral("The voice command which will run this application"));
    txtPath->setToolTip(QStringLiteral("The full path to the application"));
    txtName->setMaxLength(AppRecordLayout::TitleWidth);
    txtVoice->setMaxLength(AppRecordLayout::VoiceWidth);
    txtPath->setMaxLength(AppRecordLayout::PathWidth);
    chkVisible->setChecked(true);
    chkVoice->setChecked(true);

    auto* browse = new QMenu(cmdBrowse);
    mnuBrowseFile = browse->addAction(QStringLiteral("&File..."));
    mnuBrowseInstalled = browse->addAction(QStringLiteral("&Installed Application..."));
    cmdBrowse->setMenu(browse);

    // A screen reader names each control by its label or caption.
    List1->setAccessibleName(QStringLiteral("Voice Activated Applications"));
    for (auto [box, label] : {std::pair{txtName, Label1}, {txtVoice, Label3}, {txtPath, Label2}}) {
        label->setBuddy(box);
        box->setAccessibleName(SpokenName(label->text()));
        box->installEventFilter(this);
    }
    cmdBrowse->setAccessibleName(QStringLiteral("Browse for the Application Path"));
    for (QAbstractButton* b :
         std::initializer_list<QAbstractButton*>{chkVisible, chkVoice, cmdAdd, cmdChange, cmdDel,
                                                 cmdUp, cmdDown, cmdClose, cmdEnable, cmdCommands})
        b->setAccessibleName(SpokenName(b->text()));

    auto* data = new QGridLayout(Frame1);
    data->addWidget(Label1, 0, 0);
    data->addWidget(txtName, 0, 1, 1, 2);
    data->addWidget(Label3, 1, 0);
    data->addWidget(txtVoice, 1, 1, 1, 2);
    data->addWidget(Label2, 2, 0);
    data->addWidget(txtPath, 2, 1);
    data->addWidget(cmdBrowse, 2, 2);
    data->addWidget(chkVisible, 3, 0, 1, 3);
    data->addWidget(chkVoice, 4, 0, 1, 3);
    cmdBrowse->setFixedWidth(cmdBrowse->fontMetrics().horizontalAdvance(QStringLiteral("....")) +
                             24);

    auto* edits = new QHBoxLayout;
    for (QPushButton* b : {cmdAdd, cmdChange, cmdDel, cmdUp, cmdDown})
        edits->addWidget(b);
    auto* ends = new QHBoxLayout;
    ends->addWidget(cmdEnable);
    ends->addWidget(cmdCommands);
    ends->addStretch();
    ends->addWidget(cmdClose);
    auto* right = new QVBoxLayout;
    right->addWidget(Frame1);
    right->addLayout(edits);
    right->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(List1, 1);
    top->addLayout(right, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(ends);

    QWidget* order[] = {List1,      txtName,  txtVoice, txtPath,   cmdBrowse,
                        chkVisible, chkVoice, cmdAdd,   cmdChange, cmdDel,
                        cmdUp,      cmdDown,  cmdClose, cmdEnable, cmdCommands};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);

    // The options dialog opens through a hook that stays empty until that dialog exists.
    cmdEnable->setEnabled(bool(app.Hooks.ShowOptions));
    cmdCommands->setEnabled(bool(app.Hooks.ShowOptions));

    connect(List1, &QListWidget::currentRowChanged, this,
            Guarded("List1_Click", [this] { List1_Click(); }));
    ConnectRoutine(cmdAdd, &QPushButton::clicked, this, "cmdAdd_Click", &frmApp::cmdAdd_Click);
    ConnectRoutine(cmdChange, &QPushButton::clicked, this, "cmdChange_Click",
                   &frmApp::cmdChange_Click);
    ConnectRoutine(cmdDel, &QPushButton::clicked, this, "cmdDel_Click", &frmApp::cmdDel_Click);
    ConnectRoutine(cmdUp, &QPushButton::clicked, this, "cmdUp_Click", &frmApp::cmdUp_Click);
    ConnectRoutine(cmdDown, &QPushButton::clicked, this, "cmdDown_Click", &frmApp::cmdDown_Click);
    ConnectRoutine(cmdClose, &QPushButton::clicked, this, "cmdClose_Click",
                   &frmApp::cmdClose_Click);
    ConnectRoutine(cmdEnable, &QPushButton::clicked, this, "cmdEnable_Click",
                   &frmApp::cmdEnable_Click);
    ConnectRoutine(cmdCommands, &QPushButton::clicked, this, "cmdCommands_Click",
                   &frmApp::cmdCommands_Click);
    connect(mnuBrowseFile, &QAction::triggered, this,
            Guarded("cmdBrowse_Click", [this] { cmdBrowse_Click(); }));
    connect(mnuBrowseInstalled, &QAction::triggered, this,
            Guarded("cmdBrowseInstalled_Click", [this] { cmdBrowseInstalled_Click(); }));
}

frmApp::~frmApp() = default;

bool frmApp::Form_Load()
{
    if (app.OnTop)
        SetOnTop(app, false);
    app.ModalOpen = 1;
    ShowVoiceComms(app, false);
    if (app.MainForm->Timer2->isActive())
        PauseReading(app);

    List1->clear();
    AppList.clear();
    AppFile = AppsFilePath(app.AppPath);
    const QFileInfo file(AppFile);
    if (!file.exists() || file.size() == 0)
        return true;
    try {
        AppList = ReadAppsFile(AppFile);
    } catch (const platform::RuntimeError& error) {
        app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK,
                             QStringLiteral("Cannot Open ") + AppFile, error.Description);
        // The window goes unshown; the command group comes back as after any other close.
        ShowVoiceComms(app, true);
        return false;
    }
    for (const AppRecord& record : AppList)
        List1->addItem(record.Title);
    if (List1->count() > 0)
        setListIndex(0);
    cmdUp->setEnabled(false);
    return true;
}

void frmApp::Form_Unload()
{
    LeaveWindowOverMain(app);
}

void frmApp::setListIndex(int index)
{
    {
        const QSignalBlocker quiet(List1);
        List1->setCurrentRow(index);
    }
    List1_Click();
}

void frmApp::List1_Click()
{
    const int index = List1->currentRow();
    const bool selected = index >= 0;
    if (selected) {
        const AppRecord& record = AppList[std::size_t(index)];
        txtName->setText(Conversions::Trim(record.Title));
        txtVoice->setText(Conversions::Trim(record.Voice));
        txtPath->setText(Conversions::Trim(record.Path));
        chkVisible->setChecked(record.ShowInPopup != 0);
        chkVoice->setChecked(record.VoiceActivated != 0);
    }
    cmdDel->setEnabled(selected);
    cmdChange->setEnabled(selected);
    cmdDown->setEnabled(index != List1->count() - 1);
    cmdUp->setEnabled(index != 0);
}

std::optional<AppRecord> frmApp::enteredRecord(int except)
{
    if (blank(txtName) || blank(txtVoice) || blank(txtPath)) {
        app.P.dialogs.MsgBox(
            BoxIcon::Warning, BoxButtons::OK, QStringLiteral("Missing Data"),
            QStringLiteral("Some fields are missing, please enter all fields the add application"));
        return std::nullopt;
    }
    const QString title = Conversions::Trim(txtName->text());
    const QString voice = Conversions::Trim(txtVoice->text());
    for (int i = 0; i < AppCount(); ++i) {
        const AppRecord& other = AppList[std::size_t(i)];
        if (i != except &&
            (Conversions::Trim(other.Title) == title || Conversions::Trim(other.Voice) == voice)) {
            app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::OK,
                                 QStringLiteral("Cannot Add Item"),
                                 QStringLiteral("An entry with same name or voice command exists"));
            return std::nullopt;
        }
    }
    return AppRecord{txtName->text(), txtVoice->text(), txtPath->text(),
                     std::int16_t(chkVisible->isChecked()), std::int16_t(chkVoice->isChecked())};
}

void frmApp::cmdAdd_Click()
{
    const std::optional<AppRecord> record = enteredRecord(-1);
    if (!record)
        return;
    AppList.push_back(*record);
    List1->addItem(record->Title);
    setListIndex(List1->count() - 1);
}

void frmApp::cmdChange_Click()
{
    const int index = List1->currentRow();
    if (index < 0)
        return;
    const std::optional<AppRecord> record = enteredRecord(index);
    if (!record)
        return;
    AppList[std::size_t(index)] = *record;
    List1->item(index)->setText(txtName->text());
}

void frmApp::cmdDel_Click()
{
    const int index = List1->currentRow();
    if (index < 0)
        return;
    if (app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::YesNo, QStringLiteral("Confirmation"),
                             QStringLiteral("Are you sure?")) != BoxAnswer::Yes)
        return;
    AppList.erase(AppList.begin() + index);
    {
        const QSignalBlocker quiet(List1);
        delete List1->takeItem(index);
    }
    if (List1->count() > 0)
        setListIndex(index > 0 ? index - 1 : 0);
    if (AppList.empty()) {
        cmdDel->setEnabled(false);
        cmdChange->setEnabled(false);
    }
}

void frmApp::swapWith(int offset)
{
    const int index = List1->currentRow();
    const int other = index + offset;
    std::swap(AppList[std::size_t(index)], AppList[std::size_t(other)]);
    const QString line = List1->item(index)->text();
    List1->item(index)->setText(List1->item(other)->text());
    List1->item(other)->setText(line);
    setListIndex(other);
}

void frmApp::cmdUp_Click()
{
    if (List1->currentRow() <= 0)
        return;
    swapWith(-1);
}

void frmApp::cmdDown_Click()
{
    const int index = List1->currentRow();
    if (index < 0 || index == List1->count() - 1)
        return;
    swapWith(1);
}

void frmApp::cmdBrowse_Click()
{
    const QString chosen = app.P.dialogs.OpenFile(
        {QStringLiteral("Application Files (*.exe) |*.exe|All Files (*.*) |*.*"),
         QStringLiteral("Application's Path.."), QString(), FileName});
    if (!chosen.isEmpty())
        FileName = chosen;
    txtPath->setText(FileName);
}

void frmApp::cmdBrowseInstalled_Click()
{
    InstalledAppPicker picker(platform::InstalledApplications(), this);
    app.P.showModal(picker);
    const platform::InstalledApp* picked = picker.Picked();
    if (picker.result() != QDialog::Accepted || !picked)
        return;
    txtName->setText(picked->Name.left(AppRecordLayout::TitleWidth));
    if (blank(txtVoice))
        txtVoice->setText(SpeakableName(picked->Name));
    txtPath->setText(picked->CommandLine);
}

void frmApp::openOptions(int tab)
{
    if (app.Hooks.ShowOptions)
        app.Hooks.ShowOptions(tab);
}

void frmApp::cmdEnable_Click()
{
    openOptions(2);
}

void frmApp::cmdCommands_Click()
{
    openOptions(3);
}

void frmApp::cmdClose_Click()
{
    for (;;) {
        try {
            WriteAppsFile(AppFile, AppList);
            break;
        } catch (const platform::RuntimeError& error) {
            if (app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::RetryCancel,
                                     QStringLiteral("Cannot Open ") + AppFile,
                                     error.Description) != BoxAnswer::Retry) {
                QDialog::reject();
                return;
            }
        }
    }
    SetVoiceCommands(app);
    LoadApps(app);
    ShowVoiceComms(app, true);
    accept();
}

void frmApp::reject()
{
    ShowVoiceComms(app, true);
    QDialog::reject();
}

bool frmApp::eventFilter(QObject* watched, QEvent* event)
{
    // Each text box offers its whole text for replacing when it gets the focus.
    if (event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, static_cast<QLineEdit*>(watched), &QLineEdit::selectAll);
    return QDialog::eventFilter(watched, event);
}

void mnuQuorlApp_Click(App& app)
{
    frmApp form(app);
    if (form.Form_Load())
        app.P.showModal(form);
    form.Form_Unload();
}
