#include "core/frmMain.h"

#include "core/App.h"
#include "core/Closing.h"
#include "core/Controls.h"
#include "core/Conversions.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

QPushButton* button(const QString& caption, const QString& toolTip, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setToolTip(toolTip);
    return b;
}

QSlider* slider(int minimum, int maximum, int tick, const QString& toolTip, QWidget* parent)
{
    auto* s = new QSlider(Qt::Horizontal, parent);
    s->setRange(minimum, maximum);
    s->setTickInterval(tick);
    s->setTickPosition(QSlider::TicksBelow);
    s->setToolTip(toolTip);
    return s;
}

} // namespace

frmMain::frmMain(App& app) : app(app)
{
    setWindowTitle(QStringLiteral("Quorl"));
    auto* central = new QWidget(this);
    auto* row = new QHBoxLayout(central);
    row->setContentsMargins(4, 4, 4, 4);
    buildReadingControls(central);
    buildVoicePanel(central);
    row->addWidget(Frame2);
    row->addWidget(Frame1);
    row->setSizeConstraint(QLayout::SetNoConstraint);
    setCentralWidget(central);
    buildMenus();

    // The size it will be shown at, so that it can be placed before it is shown.
    adjustSize();
    setWidthTwips(WidthWithPanel);

    Timer2 = new QTimer(this);
    Timer2->setInterval(100);
    RemindTimer = new QTimer(this);
    RemindTimer->setInterval(60000);
}

frmMain::~frmMain() = default;

void frmMain::buildReadingControls(QWidget* parent)
{
    Frame2 = new QGroupBox(QStringLiteral("Quorl"), parent);
    auto* grid = new QGridLayout(Frame2);
    txtText = new QPlainTextEdit(Frame2);
    txtText->installEventFilter(this);
    txtText->setAccessibleName(QStringLiteral("Text to read aloud"));
    cmdShow = button(QStringLiteral("&Show"), QStringLiteral(" Show the character "), Frame2);
    cmdTalk = button(QStringLiteral("Sa&y It!"), QStringLiteral(" Read from the text box above "),
                     Frame2);
    cmdTalk->setDefault(true);
    Read = button(QStringLiteral("&Read From ClipBoard."),
                  QStringLiteral(" Read the text available in the clipboard "), Frame2);
    cmdCont = button(QStringLiteral("&Pause"),
                     QStringLiteral(" Pause or Continue reading from the file "), Frame2);
    cmdNext = button(QStringLiteral("&Next"), QStringLiteral("Next paragraph"), Frame2);
    cmdStop = button(QStringLiteral("&Stop"), QStringLiteral(" Stop reading this file "), Frame2);
    cmdOptions = button(QStringLiteral("&Options"), QStringLiteral("Quorl Options"), Frame2);
    Command1 = button(QStringLiteral("_"), QString(), Frame2);
    Command1->setAccessibleName(QStringLiteral("Hide the Quorl window"));
    ProgressBar1 = new QProgressBar(Frame2);
    ProgressBar1->setMinimum(0);
    ProgressBar1->setMaximum(100);
    ProgressBar1->setTextVisible(false);
    Label5 = new QLabel(
        QStringLiteral("Double click on Quorl icon in the system tray to Show/Hide Quorl"), Frame2);
    Label5->setWordWrap(true);

    grid->setContentsMargins(6, 6, 6, 6);
    grid->addWidget(txtText, 0, 0, 1, 3);
    grid->addWidget(cmdTalk, 1, 0);
    grid->addWidget(cmdShow, 1, 1);
    grid->addWidget(cmdOptions, 1, 2);
    grid->addWidget(Read, 2, 0, 1, 2);
    grid->addWidget(Command1, 2, 2);
    grid->addWidget(cmdCont, 3, 0);
    grid->addWidget(cmdNext, 3, 1);
    grid->addWidget(cmdStop, 3, 2);
    grid->addWidget(ProgressBar1, 4, 0, 1, 3);
    grid->addWidget(Label5, 5, 0, 1, 3);
}

void frmMain::buildVoicePanel(QWidget* parent)
{
    Frame1 = new QGroupBox(QStringLiteral("Voice Settings"), parent);
    auto* grid = new QGridLayout(Frame1);
    sdrPitch = slider(50, 400, 25, QStringLiteral(" Sets the pitch of the speech output "), Frame1);
    sdrSpeed =
        slider(50, 250, 20, QStringLiteral(" Sets the average talking speed, in words per minute "),
               Frame1);
    sdrVolume = slider(1, 65535, 5000, QStringLiteral(" Sets the speaking volume "), Frame1);
    chkWhisper = new QCheckBox(QStringLiteral("&Whisper"), Frame1);
    chkWhisper->setToolTip(QStringLiteral(" Make the character whisper "));
    chkBalloon = new QCheckBox(QStringLiteral("Hide &Balloon"), Frame1);
    chkBalloon->setToolTip(QStringLiteral("Hide the character balloon when reading"));
    cmdDefaults =
        button(QStringLiteral("&Defaults"),
               QStringLiteral(" Set voice settings to character default values "), Frame1);
    chkIgnore = new QCheckBox(QStringLiteral("When reading &ignore:"), Frame1);
    chkIgnore->setToolTip(
        QStringLiteral("You can enter one or two characters that will not be read by Quorl"));
    txtIgnore = new QLineEdit(Frame1);
    txtIgnore->setMaxLength(1);
    txtIgnore->setAccessibleName(QStringLiteral("When reading ignore, first character"));
    txtIgnore1 = new QLineEdit(Frame1);
    txtIgnore1->setMaxLength(1);
    txtIgnore1->setAccessibleName(QStringLiteral("When reading ignore, second character"));

    // Each slider is named by its label; its value is read out with it.
    auto labelled = [&](const QString& caption, QSlider* s, int row) {
        auto* label = new QLabel(caption, Frame1);
        label->setBuddy(s);
        s->setAccessibleName(caption.chopped(1));
        grid->addWidget(label, row, 0);
        grid->addWidget(s, row, 1, 1, 3);
    };
    labelled(QStringLiteral("Pitch:"), sdrPitch, 0);
    labelled(QStringLiteral("Speed:"), sdrSpeed, 1);
    labelled(QStringLiteral("Volume:"), sdrVolume, 2);
    grid->addWidget(chkWhisper, 3, 0, 1, 2);
    grid->addWidget(chkBalloon, 3, 2, 1, 2);
    grid->addWidget(cmdDefaults, 4, 0, 1, 4);
    grid->addWidget(chkIgnore, 5, 0, 1, 4);
    grid->addWidget(txtIgnore, 6, 0);
    grid->addWidget(new QLabel(QStringLiteral("and"), Frame1), 6, 1);
    grid->addWidget(txtIgnore1, 6, 2);
}

void frmMain::buildMenus()
{
    auto add = [this](QMenu* menu, const QString& caption, const QKeySequence& shortcut = {}) {
        QAction* action = menu->addAction(caption);
        action->setShortcut(shortcut);
        return action;
    };
    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFileRead =
        add(mnuFile, QStringLiteral("&Read Text File"), QKeySequence(QStringLiteral("Ctrl+R")));
    mnuFile->addSeparator();
    mnuFileOptions = add(mnuFile, QStringLiteral("&Options"));
    mnuFileAgent = add(mnuFile, QStringLiteral("Microsoft Agent &Properties"));
    mnuFileSavenow =
        add(mnuFile, QStringLiteral("Save Settings &Now"), QKeySequence(QStringLiteral("Ctrl+S")));
    mnuFileSave = add(mnuFile, QStringLiteral("&Save Settings on Exit"));
    mnuFileSave->setCheckable(true);
    mnuFileSave->setChecked(true);
    mnuFile->addSeparator();
    mnuFileInstall = add(mnuFile, QStringLiteral("&Install Microsoft Agent"));
    mnuFileDownload = add(mnuFile, QStringLiteral("&Download More Characters"));
    mnuFile->addSeparator();
    mnuFileExit = add(mnuFile, QStringLiteral("E&xit"));

    mnuView = menuBar()->addMenu(QStringLiteral("&View"));
    mnuViewTop =
        add(mnuView, QStringLiteral("Always On &Top"), QKeySequence(QStringLiteral("Ctrl+O")));
    mnuViewTop->setCheckable(true);
    mnuViewVoice = add(mnuView, QStringLiteral("&Voice Settings"));
    mnuViewVoice->setCheckable(true);
    mnuViewVoice->setChecked(true);

    mnuQuorl = menuBar()->addMenu(QStringLiteral("Q&uorl"));
    mnuQuorlTime =
        add(mnuQuorl, QStringLiteral("Say the &Time"), QKeySequence(QStringLiteral("Ctrl+T")));
    mnuQuorlDate =
        add(mnuQuorl, QStringLiteral("Say the &Date"), QKeySequence(QStringLiteral("Ctrl+D")));
    mnuQuorl->addSeparator();
    mnuQuorlApp = add(mnuQuorl, QStringLiteral("Voice Activated &Applications"));
    mnuQuorlReminders = add(mnuQuorl, QStringLiteral("&Notes && Reminders"));

    mnuAbout = menuBar()->addMenu(QStringLiteral("&About"));
    mnuAboutSite = add(mnuAbout, QStringLiteral("&Visit Quorl Home Page"));
    mnuAbout->addSeparator();
    mnuAboutSplash = add(mnuAbout, QStringLiteral("&Splash Screen"));
    mnuAboutAbout =
        add(mnuAbout, QStringLiteral("&About Quorl"), QKeySequence(QStringLiteral("Ctrl+A")));
}

namespace
{

QString MarkerText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

bool frmMain::FileReadingOn() const
{
    return Conversions::Val(Tag(mnuFileRead)) == 1;
}

void frmMain::setFileReadingOn(bool on)
{
    setTag(mnuFileRead, MarkerText(on));
}

bool frmMain::NextLineTaken() const
{
    return Conversions::Val(Tag(cmdNext)) != 0;
}

void frmMain::setNextLineTaken(bool taken)
{
    setTag(cmdNext, MarkerText(taken));
}

int frmMain::LeftTwips() const
{
    return x() * app.P.screen.TwipsPerPixelX();
}
int frmMain::TopTwips() const
{
    return y() * app.P.screen.TwipsPerPixelY();
}
int frmMain::WidthTwips() const
{
    return width() * app.P.screen.TwipsPerPixelX();
}
int frmMain::HeightTwips() const
{
    return height() * app.P.screen.TwipsPerPixelY();
}
void frmMain::setLeftTwips(int twips)
{
    move(twips / app.P.screen.TwipsPerPixelX(), y());
}
void frmMain::setTopTwips(int twips)
{
    move(x(), twips / app.P.screen.TwipsPerPixelY());
}
void frmMain::setWidthTwips(int twips)
{
    resize(twips / app.P.screen.TwipsPerPixelX(), height());
}

namespace
{

bool IsEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

} // namespace

void frmMain::keyPressEvent(QKeyEvent* event)
{
    if (!IsEnter(*event)) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    (focused ? focused : cmdTalk)->click();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != txtText || event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (!IsEnter(*key))
        return false;
    if (key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
        txtText->insertPlainText(QStringLiteral("\n"));
    else
        cmdTalk->click();
    return true;
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (Form_QueryUnload(app, UnloadMode::FormControlMenu))
        event->ignore();
}
