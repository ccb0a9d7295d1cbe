#include "notes/frmRemind.h"

#include "character/CurrentCharacter.h"
#include "character/SayText.h"
#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/FileErrors.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/ReadingState.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "notes/NotesFile.h"
#include "notes/RemindTimer.h"
#include "notes/frmNotes.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QLoggingCategory>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using platform::BoxButtons;
using platform::BoxIcon;

Q_LOGGING_CATEGORY(lcNotes, "quorl.notes", QtWarningMsg)

namespace
{

// The options dialog's tab "&Reminders".
constexpr int ReminderSettingsTab = 4;

QPushButton* Button(const QString& caption, const QString& name, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setAccessibleName(name);
    return button;
}

// Opening for update makes a missing file come into being, empty, so that the count finds no
// record in it.
void OpenForUpdate(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadWrite))
        throw FileAccessError(file.errorString());
}

} // namespace

frmRemind::frmRemind(App& app)
    : QDialog(nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint), app(app),
      Label1(new QLabel(QStringLiteral("Reminder"), this)),
      lblName(new QLabel(QStringLiteral("Name"), this)),
      lblTime(new QLabel(QStringLiteral("Time"), this)), txtNote(new QPlainTextEdit(this)),
      cmdClose(Button(QStringLiteral("&Close"), QStringLiteral("Close"), this)),
      cmdRead(Button(QStringLiteral("Read &Note"), QStringLiteral("Read Note"), this)),
      cmdTime(Button(QStringLiteral("&Time"), QStringLiteral("Time"), this)),
      cmdDate(Button(QStringLiteral("&Date"), QStringLiteral("Date"), this)),
      cmdNotes(Button(QStringLiteral("&Reminders"), QStringLiteral("Reminders"), this)),
      cmdOpt(Button(QStringLiteral("&Options"), QStringLiteral("Options"), this))
{
    setWindowTitle(QStringLiteral("Reminder Window"));

    QFont heading = Label1->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.5);
    Label1->setFont(heading);
    QFont name = lblName->font();
    name.setBold(true);
    lblName->setFont(name);
    lblName->setWordWrap(true);
    txtNote->setReadOnly(true);
    txtNote->setStyleSheet(QStringLiteral("background-color: yellow; color: black"));
    txtNote->setAccessibleName(QStringLiteral("Note text"));

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdClose, cmdRead, cmdTime, cmdDate, cmdNotes, cmdOpt})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(lblName);
    layout->addWidget(lblTime);
    layout->addWidget(txtNote);
    layout->addLayout(buttons);
    resize(520, 300);

    setTabOrder(cmdClose, cmdRead);
    setTabOrder(cmdRead, cmdTime);
    setTabOrder(cmdTime, cmdDate);
    setTabOrder(cmdDate, cmdNotes);
    setTabOrder(cmdNotes, cmdOpt);
    setTabOrder(cmdOpt, txtNote);
    cmdClose->setDefault(true);
    cmdClose->setFocus();

    ConnectRoutine(cmdClose, &QPushButton::clicked, this, "cmdClose_Click",
                   &frmRemind::cmdClose_Click);
    ConnectRoutine(cmdRead, &QPushButton::clicked, this, "cmdRead_Click",
                   &frmRemind::cmdRead_Click);
    ConnectRoutine(cmdTime, &QPushButton::clicked, this, "cmdTime_Click",
                   &frmRemind::cmdTime_Click);
    ConnectRoutine(cmdDate, &QPushButton::clicked, this, "cmdDate_Click",
                   &frmRemind::cmdDate_Click);
    ConnectRoutine(cmdNotes, &QPushButton::clicked, this, "cmdNotes_Click",
                   &frmRemind::cmdNotes_Click);
    ConnectRoutine(cmdOpt, &QPushButton::clicked, this, "cmdOpt_Click", &frmRemind::cmdOpt_Click);
}

frmRemind::~frmRemind() = default;

void frmRemind::Form_Load()
{
    ShowVoiceComms(app, false);
    app.ModalOpen = 1;
    lblTime->setText(QLocale().toString(app.P.clock.Now(), QLocale::ShortFormat));
    if (app.MainForm->isVisible() && app.OnTop)
        SetOnTop(app, false);
    if (app.MainForm->Timer2->isActive())
        PauseReading(app);
    try {
        if (!ReadRecord()) {
            app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Error"),
                                 QStringLiteral("Error in Notes File"));
            UnloadRemindForm(app);
            return;
        }
        Speak();
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 9.0f, error);
        UnloadRemindForm(app);
    }
}

bool frmRemind::ReadRecord()
{
    const QString fileName = NotesFilePath(app.AppPath);
    OpenForUpdate(fileName);
    NotesFileReader file(fileName);
    const double number = Conversions::Val(Tag(app.MainForm.get()));
    if (file.Count() == 0 || number > file.Count())
        return false;
    RecordNumber = int(number);
    const NoteRecord note = file.Read(RecordNumber);
    txtNote->setPlainText(note.NoteText);
    lblName->setText(note.NoteName);
    qCDebug(lcNotes) << "reminder" << RecordNumber << note.NoteName << note.NoteText;
    return true;
}

bool frmRemind::SettingOn(const QString& name) const
{
    return Conversions::Val(app.Settings.ReadText(name)) == 1;
}

// Speech in this order: the reminder text, the time, the date, the note.
void frmRemind::Speak()
{
    const QString reminderText = app.Settings.ReadText(QStringLiteral("ReminderText"));
    if (SettingOn(QStringLiteral("ShowIfHidden"))) {
        platform::AgentCharacter& character = CurrentCharacter(app);
        if (!character.Visible())
            character.Show(true);
        SayText(app, reminderText, true);
    }
    if (SettingOn(QStringLiteral("NoteTime")))
        SayTime(app);
    if (SettingOn(QStringLiteral("NoteDate")))
        SayDate(app);
    if (SettingOn(QStringLiteral("ReadNote")))
        SayText(app, txtNote->toPlainText(), true);
}

void frmRemind::Form_Unload()
{
    app.ModalOpen = 0;
    if (app.MainForm->mnuViewTop->isChecked() && app.MainForm->isVisible())
        SetOnTop(app, true);
}

void frmRemind::cmdRead_Click()
{
    const bool animate = app.AnimateRead == QLatin1String("1");
    if (animate)
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
    SayText(app, txtNote->toPlainText(), true);
    if (animate)
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("ReadReturn"));
}

void frmRemind::ShowCharacterThen(void (*say)(App&))
{
    platform::AgentCharacter& character = CurrentCharacter(app);
    if (!character.Visible())
        character.Show(false);
    say(app);
}

void frmRemind::cmdTime_Click()
{
    ShowCharacterThen(SayTime);
}

void frmRemind::cmdDate_Click()
{
    ShowCharacterThen(SayDate);
}

void frmRemind::cmdClose_Click()
{
    ShowVoiceComms(app, true);
    UnloadRemindForm(app);
}

void frmRemind::cmdNotes_Click()
{
    App& program = app;
    UnloadRemindForm(program);
    mnuQuorlReminders_Click(program);
}

void frmRemind::cmdOpt_Click()
{
    App& program = app;
    UnloadRemindForm(program);
    ShowOptions(program, ReminderSettingsTab);
}

void frmRemind::reject()
{
    cmdClose->click();
}

void frmRemind::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    raise();
    activateWindow();
}

frmRemind* RemindForm(const App& app)
{
    return static_cast<frmRemind*>(app.RemindForm.get());
}

void ShowRemindForm(App& app, bool modal)
{
    auto loaded = std::make_unique<frmRemind>(app);
    const QPointer<frmRemind> form = loaded.get();
    app.RemindForm = std::move(loaded);
    form->Form_Load();
    if (RemindForm(app) != form)
        return;
    if (!modal) {
        // Another modal window of the program would block this one; on top of it, it takes the
        // input until closed, and still does not hold the pass.
        if (QApplication::activeModalWidget())
            form->setWindowModality(Qt::ApplicationModal);
        form->show();
        return;
    }
    app.P.showModal(*form);
    if (form && RemindForm(app) == form)
        UnloadRemindForm(app);
}

void UnloadRemindForm(App& app)
{
    if (!app.RemindForm)
        return;
    // The window may be unloaded from its own button's click: it goes once that click is over.
    auto* form = static_cast<frmRemind*>(app.RemindForm.release());
    form->hide();
    form->deleteLater();
    form->Form_Unload();
    if (!app.WaitingReminders.empty())
        QTimer::singleShot(0, app.MainForm.get(), Guarded("AnnounceWaitingReminders", [&app] {
                               AnnounceWaitingReminders(app);
                           }));
}
