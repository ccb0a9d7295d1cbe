#include "settings/frmOptions.h"

#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Controls.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/frmMain.h"

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

QCheckBox* CheckBox(const QString& caption, const QString& tip, QWidget* parent)
{
    auto* box = new QCheckBox(caption, parent);
    box->setToolTip(tip);
    return box;
}

QGroupBox* Frame(const QString& caption, const QString& tip, QWidget* parent)
{
    auto* frame = new QGroupBox(caption, parent);
    frame->setToolTip(tip);
    return frame;
}

QWidget* Page(QTabWidget* tabs, const QString& caption)
{
    auto* page = new QWidget(tabs);
    tabs->addTab(page, caption);
    return page;
}

// What a screen reader says for a caption: its text without the mnemonic marks and the
// trailing colon or blanks.
} // namespace

frmOptions::frmOptions(App& app)
    : QDialog(app.MainForm.get(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      app(app), SSTab1(new QTabWidget(this))
{
    setWindowTitle(QStringLiteral("Options"));
    // All five tabs stay in sight.
    SSTab1->tabBar()->setUsesScrollButtons(false);
    buildCharacterTab();
    buildStartUpTab();
    buildVoiceInputTab();
    buildCommandsTab();
    buildRemindersTab();

    cmdOK = new QPushButton(QStringLiteral("&Ok"), this);
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(buttons);

    nameForAssistiveTechnology();
    connectRoutines();
    Form_Load();
}

frmOptions::~frmOptions() = default;

void frmOptions::buildCharacterTab()
{
    QWidget* page = Page(SSTab1, QStringLiteral("&Character"));
    Label2 = new QLabel(QStringLiteral("Character:"), page);
    txtChar = new QLineEdit(page);
    Label2->setBuddy(txtChar);
    cmdBrowse = new QPushButton(QStringLiteral("&Browse"), page);
    Frame1 = Frame(QStringLiteral("Character Settings"), QString(), page);
    chkEffects = CheckBox(QStringLiteral("Enable &sound effects"),
                          QStringLiteral("If the character supports sound effects, enable the "
                                         "sound effects"),
                          Frame1);
    chkIdle = CheckBox(QStringLiteral("&Enable &idle animations"),
                       QStringLiteral("Enable the idle animations for the character"), Frame1);
    chkClick1 = CheckBox(QStringLiteral("&Read from clipboard on character left click"),
                         QStringLiteral("Read the clipboard text if lieft mouse button is clicked "
                                        "on character"),
                         Frame1);
    chkClick = CheckBox(QStringLiteral("&Pause/Continue on character right click"),
                        QStringLiteral("If reading from a file, clicking the right mouse button on "
                                       "the character will pause or continue reading"),
                        Frame1);
    chkSave = CheckBox(QStringLiteral("Save settings on &exit"),
                       QStringLiteral("Save settings when quitting Quorl"), Frame1);
    chkAnimate = CheckBox(QStringLiteral("&Animate character when reading"),
                          QStringLiteral("Animate the character with a reading animation when "
                                         "reading"),
                          Frame1);

    auto* column = new QVBoxLayout(Frame1);
    for (QWidget* w : {chkEffects, chkIdle, chkClick1, chkClick, chkSave, chkAnimate})
        column->addWidget(w);
    auto* grid = new QGridLayout(page);
    grid->addWidget(Label2, 0, 0);
    grid->addWidget(txtChar, 0, 1);
    grid->addWidget(cmdBrowse, 0, 2);
    grid->addWidget(Frame1, 1, 0, 1, 3);
    grid->setRowStretch(2, 1);
}

void frmOptions::buildStartUpTab()
{
    QWidget* page = Page(SSTab1, QStringLiteral("Start&Up"));
    Frame2 = Frame(QStringLiteral("StartUp Settings"), QString(), page);
    chkMin = CheckBox(QStringLiteral("Quorl window is shown at startup"),
                      QStringLiteral("Quorl's window will be shown when Quorl starts"), Frame2);
    chkSplash =
        CheckBox(QStringLiteral("&View splash screen when quorl starts"), QString(), Frame2);
    chkGreetTime = CheckBox(QStringLiteral("Enable &greeting"),
                            QStringLiteral("Enable time and date greetings"), Frame2);
    chkShow = CheckBox(QStringLiteral("&Show character at startup"),
                       QStringLiteral("Show the character when quorl starts"), Frame2);
    auto* column = new QVBoxLayout(Frame2);
    for (QWidget* w : {chkMin, chkSplash, chkGreetTime, chkShow})
        column->addWidget(w);

    Frame3 = Frame(QStringLiteral("Greeting "), QString(), page);
    const QString captions[] = {QStringLiteral("&Time &and Date"), QStringLiteral("Time Only"),
                                QStringLiteral("Date Only"), QStringLiteral("&None")};
    for (std::size_t i = 0; i < optGreet.size(); ++i)
        optGreet[i] = new QRadioButton(captions[i], Frame3);
    Label1 = new QLabel(QStringLiteral("Announce at startup:"), Frame3);
    txtGreet = new QLineEdit(Frame3);
    txtGreet->setToolTip(QStringLiteral("This text in announced when Quorl starts"));
    Label1->setBuddy(txtGreet);
    auto* greeting = new QVBoxLayout(Frame3);
    for (QRadioButton* option : optGreet)
        greeting->addWidget(option);
    greeting->addWidget(Label1);
    greeting->addWidget(txtGreet);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(Frame2);
    layout->addWidget(Frame3);
    layout->addStretch();
}

void frmOptions::buildVoiceInputTab()
{
    QWidget* page = Page(SSTab1, QStringLiteral("&Voice Input"));
    Frame4 = Frame(QStringLiteral("Voice Activated Applications"),
                   QStringLiteral("These are the options that appear in the popup menu when you "
                                  "click the right mouse button. "),
                   page);
    chkTime = CheckBox(QStringLiteral("Enable the &time command "), QString(), Frame4);
    chkDate = CheckBox(QStringLiteral("Enable the &date command"), QString(), Frame4);
    chkReadClip = CheckBox(QStringLiteral("Enable re&ad from clip board"), QString(), Frame4);
    chkNotes = CheckBox(QStringLiteral("Enable &notes and reminders"), QString(), Frame4);
    chkRestart = CheckBox(QStringLiteral("Enable w&indows restart command"), QString(), Frame4);
    chkShut = CheckBox(QStringLiteral("&Enable &windows shut down command"), QString(), Frame4);
    cmdHot = new QPushButton(QStringLiteral("Change Speech Input &Settings"), Frame4);
    cmdHot->setToolTip(QStringLiteral("Change Microsoft Agent Settings"));
    auto* column = new QVBoxLayout(Frame4);
    for (QWidget* w : {chkTime, chkDate, chkReadClip, chkNotes, chkRestart, chkShut})
        column->addWidget(w);
    column->addWidget(cmdHot);

    lblHot1 = new QLabel(QStringLiteral("To change the hot key, click the right mouse button on "
                                        "Microsoft Agent Icon, and select 'Properties'"),
                         page);
    lblHot1->setWordWrap(true);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(Frame4);
    layout->addWidget(lblHot1);
    layout->addStretch();
}

void frmOptions::buildCommandsTab()
{
    QWidget* page = Page(SSTab1, QStringLiteral("Co&mmands"));
    Frame5 =
        Frame(QStringLiteral("Voice Commands "),
              QStringLiteral("These are the various voice commands to call the tasks shown"), page);
    auto* rows = new QFormLayout(Frame5);
    auto row = [this, rows](QLabel*& label, QLineEdit*& box, const QString& caption) {
        label = new QLabel(caption, Frame5);
        box = new QLineEdit(Frame5);
        label->setBuddy(box);
        rows->addRow(label, box);
    };
    row(Label3, txtTime, QStringLiteral("Say Time:"));
    row(Label4, txtDate, QStringLiteral("Say Date:"));
    row(Label5, txtShut, QStringLiteral("Shut Down:"));
    row(Label7, txtClip, QStringLiteral("Clip Board:"));
    row(Label8, txtNotes, QStringLiteral("Notes:"));
    row(Label9, txtRestart, QStringLiteral("Restart:"));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(Frame5);
    layout->addStretch();
}

void frmOptions::buildRemindersTab()
{
    QWidget* page = Page(SSTab1, QStringLiteral("&Reminders"));
    Frame6 = Frame(QStringLiteral("Reminder Settings"), QStringLiteral("Reminder Settings"), page);
    Label10 = new QLabel(QStringLiteral("Reminder:"), Frame6);
    txtRemind = new QLineEdit(Frame6);
    txtRemind->setToolTip(QStringLiteral("This is the text read when a reminder occurs"));
    Label10->setBuddy(txtRemind);
    Label6 = new QLabel(QStringLiteral("At Reminder Time:"), Frame6);
    chkShowIfHidden = CheckBox(QStringLiteral("&Show character if hidden"), QString(), Frame6);
    chkReadNote = CheckBox(QStringLiteral("Read &note contents"), QString(), Frame6);
    chkNoteTime = CheckBox(QStringLiteral("Say the &time"), QString(), Frame6);
    chkNoteDate = CheckBox(QStringLiteral("Say the &date"), QString(), Frame6);
    auto* column = new QVBoxLayout(Frame6);
    for (QWidget* w : std::initializer_list<QWidget*>{Label10, txtRemind, Label6, chkShowIfHidden,
                                                      chkReadNote, chkNoteTime, chkNoteDate})
        column->addWidget(w);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(Frame6);
    layout->addStretch();
}

// Buttons and boxes are named by their captions, text boxes by their labels' texts.
void frmOptions::nameForAssistiveTechnology()
{
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        button->setAccessibleName(SpokenName(button->text()));
    for (QLabel* label : findChildren<QLabel*>())
        if (label->buddy())
            label->buddy()->setAccessibleName(SpokenName(label->text()));
    SSTab1->tabBar()->setAccessibleName(QStringLiteral("Option pages"));
}

void frmOptions::connectRoutines()
{
    ConnectRoutine(cmdOK, &QPushButton::clicked, this, "cmdOK_Click", &frmOptions::cmdOK_Click);
    ConnectRoutine(cmdCancel, &QPushButton::clicked, this, "cmdCancel_Click",
                   &frmOptions::cmdCancel_Click);
    ConnectRoutine(cmdBrowse, &QPushButton::clicked, this, "cmdBrowse_Click",
                   &frmOptions::cmdBrowse_Click);
    ConnectRoutine(cmdHot, &QPushButton::clicked, this, "cmdHot_Click", &frmOptions::cmdHot_Click);
    ConnectRoutine(SSTab1, &QTabWidget::currentChanged, this, "SSTab1_Click",
                   &frmOptions::SSTab1_Click);
    // Switching a button on, by the user or by Form_Load, is its click.
    for (int i = 0; i < int(optGreet.size()); ++i)
        connect(optGreet[std::size_t(i)], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                RunGuarded("optGreet_Click", [this, i] { optGreet_Click(i); });
        });
    SSTab1->tabBar()->installEventFilter(this);
    chkGreetTime->installEventFilter(this);
    for (QLineEdit* box : findChildren<QLineEdit*>())
        box->installEventFilter(this);
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == SSTab1->tabBar()) {
        if (type == QEvent::FocusIn)
            RunGuarded("SSTab1_GotFocus", [this] { SSTab1_GotFocus(); });
        else if (type == QEvent::FocusOut)
            RunGuarded("SSTab1_LostFocus", [this] { SSTab1_LostFocus(); });
    } else if (watched == chkGreetTime && type == QEvent::MouseButtonPress) {
        bool used = false;
        RunGuarded("chkGreetTime_MouseDown", [&] { used = chkGreetTime_MouseDown(); });
        return used;
    } else if (auto* box = qobject_cast<QLineEdit*>(watched); box && type == QEvent::FocusIn) {
        // After the click that gave the focus has placed the cursor, the whole text is chosen.
        QMetaObject::invokeMethod(
            box, [box] { box->setSelection(0, int(box->text().length())); }, Qt::QueuedConnection);
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::SSTab1_GotFocus()
{
    const int tab = SSTab1->currentIndex();
    Frame1->setEnabled(tab == 0);
    Frame2->setEnabled(tab == 1);
    Frame3->setEnabled(tab == 1);
    Frame4->setEnabled(tab == 2);
    Frame5->setEnabled(tab == 3);
    Frame6->setEnabled(tab == 4);
}

void frmOptions::SSTab1_Click()
{
    SSTab1_GotFocus();
}

void frmOptions::SSTab1_LostFocus()
{
    SSTab1_GotFocus();
}

void frmOptions::optGreet_Click(int Index)
{
    GreetOption = std::int16_t(Index);
    chkGreetTime->setChecked(true);
}

bool frmOptions::chkGreetTime_MouseDown()
{
    if (chkGreetTime->isChecked() || chkShow->isChecked())
        return false;
    app.P.dialogs.MsgBox(platform::BoxIcon::Information, platform::BoxButtons::OK,
                         QStringLiteral("Hint"),
                         QStringLiteral("For the greeting to be enabled, the character must be "
                                        "set to be shown at startup."));
    chkGreetTime->setChecked(true);
    chkShow->setChecked(true);
    return true;
}

// The chosen name goes into the box whatever the outcome: a cancelled dialog empties it.
void frmOptions::cmdBrowse_Click()
{
    txtChar->setText(
        app.P.dialogs.OpenFile({QStringLiteral("Agent Character (*.acs) |*.acs"),
                                QStringLiteral("Open Character.."), app.AppPath, QString()}));
}

void frmOptions::cmdHot_Click()
{
    app.Agent1->setPropertySheetPage(QStringLiteral("Speech"));
    app.Agent1->setPropertySheetVisible(true);
}

void frmOptions::cmdCancel_Click()
{
    ShowVoiceComms(app, true);
    Unload();
}

void frmOptions::reject()
{
    cmdCancel->click();
}

void frmOptions::Form_Unload()
{
    if (!app.MainForm->RemindTimer->isActive())
        app.MainForm->RemindTimer->start();
    LeaveWindowOverMain(app);
}

void frmOptions::Unload()
{
    Form_Unload();
    done(QDialog::Accepted);
}

void ShowOptions(App& app, int tab)
{
    frmOptions form(app);
    form.SSTab1->setCurrentIndex(tab);
    app.P.showModal(form);
}

void mnuFileOptions_Click(App& app)
{
    ShowOptions(app, 0);
}
