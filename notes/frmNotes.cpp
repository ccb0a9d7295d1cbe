#include "notes/frmNotes.h"

#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "notes/LoadNotes.h"
#include "notes/NoteSchedule.h"
#include "notes/NotesFile.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
using namespace NoteSchedule;

namespace
{

const QString NewNoteName = QStringLiteral("New Note");
constexpr std::int32_t InvalidPropertyValue = 380;

QPushButton* button(const QString& caption, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setAutoDefault(false);
    b->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    return b;
}

// Only blanks go, as the fields are filled with blanks; line ends inside a note stay.
// The file keeps a note's line ends as carriage return and line feed; the box has line feeds.
QString StoredText(QString shown)
{
    return shown.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}
QString ShownText(QString stored)
{
    return stored.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

platform::RuntimeError InvalidValue()
{
    return platform::RuntimeError(InvalidPropertyValue, QStringLiteral("Quorl"),
                                  QStringLiteral("Invalid property value"));
}

// A check box takes 0 and 1; any other value is refused as a list refuses a position it lacks.
void SetCheckValue(QCheckBox* box, std::int16_t value)
{
    if (value != 0 && value != 1)
        throw InvalidValue();
    box->setChecked(value == 1);
}

bool IsClick(const QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease)
        return static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

frmNotes::frmNotes(App& app)
    : QDialog(app.MainForm.get(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      app(app), Label1(new QLabel(QStringLiteral("Note or Reminder Name:"), this)),
      txtName(new QLineEdit(this)), List1(new QListWidget(this)),
      Label2(new QLabel(QStringLiteral("Note:"), this)), txtNote(new QPlainTextEdit(this)),
      chkRemind(new QCheckBox(QStringLiteral("Remind me"), this)),
      Frame1(new QGroupBox(QStringLiteral("Reminder Info"), this)),
      Label3(new QLabel(QStringLiteral("Remind me"), Frame1)), ListOn(new QComboBox(Frame1)),
      Label4(new QLabel(QStringLiteral("Every"), Frame1)), ListEvery(new QComboBox(Frame1)),
      Label5(new QLabel(QStringLiteral("Day:"), Frame1)), txtDay(new QLineEdit(Frame1)),
      Label6(new QLabel(QStringLiteral("Year:"), Frame1)), txtYear(new QLineEdit(Frame1)),
      Label10(new QLabel(QStringLiteral("Time"), Frame1)), ListHour(new QComboBox(Frame1)),
      Label8(new QLabel(QStringLiteral(":"), Frame1)), ListMin(new QComboBox(Frame1)),
      Label9(new QLabel(QStringLiteral(":"), Frame1)), ListAm(new QComboBox(Frame1)),
      LabelReview(new QLabel(this)), cmdNew(button(QStringLiteral("&Add"), this)),
      cmdChange(button(QStringLiteral("C&hange"), this)),
      cmdDel(button(QStringLiteral("&Remove"), this)),
      cmdClose(button(QStringLiteral("&Close"), this))
{
    setWindowTitle(QStringLiteral("Notes & Reminders"));
    txtName->setMaxLength(NoteRecordLayout::NameWidth);
    txtNote->setTabChangesFocus(true);
    txtNote->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QPalette yellow = txtNote->palette();
    yellow.setColor(QPalette::Base, QColor(255, 255, 192));
    txtNote->setPalette(yellow);
    List1->viewport()->setMouseTracking(true);
    List1->viewport()->installEventFilter(this);
    LabelReview->setWordWrap(true);
    // The sentence can be reached and read out from the keyboard; Space or Enter rebuilds it.
    LabelReview->setFocusPolicy(Qt::TabFocus);
    LabelReview->installEventFilter(this);

    Label1->setBuddy(txtName);
    Label2->setBuddy(txtNote);
    txtName->setAccessibleName(Label1->text());
    txtNote->setAccessibleName(Label2->text());
    List1->setAccessibleName(QStringLiteral("Notes"));
    chkRemind->setAccessibleName(chkRemind->text());
    LabelReview->setAccessibleName(QStringLiteral("When the reminder comes"));
    buildScheduleControls();

    auto* left = new QVBoxLayout;
    left->addWidget(Label1);
    left->addWidget(txtName);
    left->addWidget(List1, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(Label2);
    right->addWidget(txtNote, 1);
    right->addWidget(chkRemind);
    right->addWidget(Frame1);
    auto* top = new QHBoxLayout;
    top->addLayout(left, 1);
    top->addLayout(right, 2);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdNew, cmdChange, cmdDel})
        buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(LabelReview);
    layout->addLayout(buttons);

    QWidget* order[] = {txtName, List1,     txtNote,  chkRemind, ListOn, ListEvery,
                        txtDay,  txtYear,   ListHour, ListMin,   ListAm, LabelReview,
                        cmdNew,  cmdChange, cmdDel,   cmdClose};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);

    connect(List1, &QListWidget::currentRowChanged, this,
            Guarded("List1_Click", [this] { List1_Click(); }));
    ConnectRoutine(cmdNew, &QPushButton::clicked, this, "cmdNew_Click", &frmNotes::cmdNew_Click);
    ConnectRoutine(cmdChange, &QPushButton::clicked, this, "cmdChange_Click",
                   &frmNotes::cmdChange_Click);
    ConnectRoutine(cmdDel, &QPushButton::clicked, this, "cmdDel_Click", &frmNotes::cmdDel_Click);
    ConnectRoutine(cmdClose, &QPushButton::clicked, this, "cmdClose_Click",
                   &frmNotes::cmdClose_Click);
    connect(chkRemind, &QCheckBox::toggled, this,
            Guarded("chkRemind_Click", [this] { chkRemind_Click(); }));
    connect(txtNote, &QPlainTextEdit::textChanged, this, [this] { limitNoteText(); });
    connectScheduleControls();
}

frmNotes::~frmNotes() = default;

void frmNotes::limitNoteText()
{
    // The field holds 500 bytes, and a line end takes two of them there.
    const int over = int(StoredText(txtNote->toPlainText()).size()) - NoteRecordLayout::TextWidth;
    if (over <= 0)
        return;
    QTextCursor cursor = txtNote->textCursor();
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, over);
    cursor.removeSelectedText();
}

bool frmNotes::Form_Load()
{
    try {
        app.ModalOpen = 1;
        if (app.OnTop)
            SetOnTop(app, false);
        app.MainForm->RemindTimer->stop();
        ShowVoiceComms(app, false);
        setReview(QString());
        fillList(ListOn, KindNames());
        selectEntry(ListOn, 0);
        const auto twoDigitRange = [](int first, int last) {
            QStringList numbers;
            for (int n = first; n <= last; ++n)
                numbers << TwoDigits(n);
            return numbers;
        };
        fillList(ListHour, twoDigitRange(1, 12));
        fillList(ListMin, twoDigitRange(0, 59));
        fillList(ListAm, {QStringLiteral("AM"), QStringLiteral("PM")});
        const QDateTime now = app.P.clock.Now();
        selectEntry(ListHour, HourIndexOf(now.time()));
        selectEntry(ListAm, AmPmIndexOf(now.time()));
        selectEntry(ListMin, now.time().minute());
        txtDay->setText(QString::number(now.date().day()));
        txtYear->setText(QString::number(now.date().year()));
        {
            const QSignalBlocker quiet(List1);
            List1->clear();
        }
        NoteCount = 0;
        NotesPath = NotesFilePath(app.AppPath);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 14, error);
        return false;
    }

    try {
        WorkingNotes.assign(1, NoteRecord());
        const QFileInfo file(NotesPath);
        if (file.exists() && file.size() > 0) {
            const std::vector<NoteRecord> notes = ReadNotesFile(NotesPath);
            NoteCount = std::int16_t(notes.size());
            WorkingNotes.insert(WorkingNotes.end(), notes.begin(), notes.end());
            const QSignalBlocker quiet(List1);
            for (const NoteRecord& note : notes)
                List1->addItem(Conversions::Trim(note.NoteName));
        }
        if (List1->count() > 0) {
            setListIndex(0);
        } else {
            txtName->setText(NewNoteName);
            chkRemind->setChecked(true);
            cmdChange->setEnabled(false);
            cmdDel->setEnabled(false);
        }
    } catch (const platform::RuntimeError& error) {
        app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK,
                             QStringLiteral("Cannot Open ") + NotesPath, error.Description);
        return false;
    }
    return true;
}

void frmNotes::Form_Unload()
{
    app.MainForm->RemindTimer->start();
    LeaveWindowOverMain(app);
}

void frmNotes::setListIndex(int index)
{
    {
        const QSignalBlocker quiet(List1);
        List1->setCurrentRow(index);
    }
    List1_Click();
}

void frmNotes::List1_Click()
{
    if (List1->count() == 0)
        return;
    const int index = List1->currentRow();
    if (index < 0) {
        cmdChange->setEnabled(false);
        cmdDel->setEnabled(false);
    } else {
        const NoteRecord note = WorkingNotes[std::size_t(index) + 1];
        // ListOn before ListEvery: a kind reloads the list that Every points into.
        const std::function<void()> fields[] = {
            [&] { txtName->setText(Conversions::Trim(note.NoteName)); },
            [&] { txtNote->setPlainText(ShownText(Conversions::Trim(note.NoteText))); },
            [&] { SetCheckValue(chkRemind, note.Remind); },
            [&] { selectEntry(ListOn, note.Kind); },
            [&] { selectEntry(ListEvery, note.Every); },
            [&] { txtDay->setText(QString::number(note.Day)); },
            [&] { txtYear->setText(QString::number(note.Year)); },
            [&] { selectEntry(ListHour, note.HourIndex); },
            [&] { selectEntry(ListMin, note.MinuteIndex); },
            [&] { selectEntry(ListAm, note.AmPm); },
        };
        for (const auto& field : fields) {
            try {
                field();
            } catch (const platform::RuntimeError& error) {
                if (error.Number == InvalidPropertyValue)
                    app.P.dialogs.MsgBox(
                        BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Notes File Error"),
                        QStringLiteral("Error in your Notes file. To start a new one, delete '") +
                            NotesPath + QStringLiteral("'"));
            }
        }
        chkRemind_Click();
        cmdChange->setEnabled(true);
        cmdDel->setEnabled(true);
    }
    LabelReview_Click();
}

void frmNotes::List1_MouseMove()
{
    const QListWidgetItem* selected = List1->currentItem();
    List1->setToolTip(selected ? selected->text() : QString());
}

NoteRecord frmNotes::enteredNote() const
{
    NoteRecord note;
    note.NoteName = Conversions::Trim(txtName->text()).left(NoteRecordLayout::NameWidth);
    note.NoteText =
        StoredText(Conversions::Trim(txtNote->toPlainText())).left(NoteRecordLayout::TextWidth);
    note.Remind = std::int16_t(chkRemind->isChecked() ? 1 : 0);
    note.Kind = std::int16_t(ListOn->currentIndex());
    note.Every = std::int16_t(ListEvery->currentIndex());
    // The day box is refilled whenever it is left, so an unreadable day is only a momentary
    // state; it is taken as today's day, as the box would be refilled.
    bool whole = false;
    const int day = txtDay->text().toInt(&whole);
    note.Day = std::int16_t(whole ? day : app.P.clock.Now().date().day());
    note.Year = std::int16_t(Conversions::Val(txtYear->text()));
    note.HourIndex = std::int16_t(entryIndex(ListHour));
    note.MinuteIndex = std::int16_t(entryIndex(ListMin));
    note.AmPm = std::int16_t(ListAm->currentIndex());
    return note;
}

bool frmNotes::nameTaken(const QString& name, int exceptRow) const
{
    for (int row = 1; row <= NoteCount; ++row)
        if (row != exceptRow && Conversions::Trim(WorkingNotes[std::size_t(row)].NoteName) == name)
            return true;
    return false;
}

void frmNotes::warn(const QString& title, const QString& text)
{
    app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::OK, title, text);
}

void frmNotes::cmdNew_Click()
{
    const QString name = Conversions::Trim(txtName->text());
    if (name.isEmpty()) {
        warn(QStringLiteral("Missing Data"),
             QStringLiteral("You must specify a name for your note"));
        return;
    }
    if (List1->count() > 0 && nameTaken(name, 0)) {
        warn(QStringLiteral("Cannot Add Item"), QStringLiteral("A note with same name exists"));
        return;
    }
    ++NoteCount;
    WorkingNotes.push_back(enteredNote());
    {
        const QSignalBlocker quiet(List1);
        List1->addItem(WorkingNotes.back().NoteName);
    }
    setListIndex(List1->count() - 1);
}

void frmNotes::cmdChange_Click()
{
    const int index = List1->currentRow();
    if (index < 0)
        return;
    const QString name = Conversions::Trim(txtName->text());
    if (name.isEmpty()) {
        warn(QStringLiteral("Missing Data"),
             QStringLiteral("You must have a short name for your note"));
        return;
    }
    if (nameTaken(name, index + 1)) {
        warn(QStringLiteral("Cannot Add Item"),
             QStringLiteral("A note with same name or voice command exists"));
        return;
    }
    WorkingNotes[std::size_t(index) + 1] = enteredNote();
    List1->item(index)->setText(txtName->text());
}

void frmNotes::cmdDel_Click()
{
    const int index = List1->currentRow();
    if (index < 0)
        return;
    if (app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::YesNo, QStringLiteral("Confirmation"),
                             QStringLiteral("Are you sure?")) != BoxAnswer::Yes)
        return;
    WorkingNotes.erase(WorkingNotes.begin() + index + 1);
    {
        const QSignalBlocker quiet(List1);
        delete List1->takeItem(index);
    }
    if (List1->count() > 0)
        setListIndex(index > 0 ? index - 1 : 0);
    --NoteCount;
    if (NoteCount == 0) {
        cmdDel->setEnabled(false);
        cmdChange->setEnabled(false);
        txtName->setText(NewNoteName);
        txtNote->clear();
    }
}

void frmNotes::chkRemind_Click()
{
    const bool on = chkRemind->isChecked();
    Frame1->setEnabled(on);
    if (!on)
        setReview(QString());
}

void frmNotes::cmdClose_Click()
{
    for (;;) {
        try {
            WriteNotesFile(NotesPath, {WorkingNotes.begin() + 1, WorkingNotes.end()});
            LoadNotes(app);
            break;
        } catch (const platform::RuntimeError& error) {
            if (app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::RetryCancel,
                                     QStringLiteral("Cannot Open ") + NotesPath,
                                     error.Description) != BoxAnswer::Retry) {
                done(Rejected);
                return;
            }
        }
    }
    ShowVoiceComms(app, true);
    accept();
}

void frmNotes::reject() {}

bool frmNotes::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == List1->viewport()) {
        if (event->type() == QEvent::MouseMove)
            RunGuarded("List1_MouseMove", [this] { List1_MouseMove(); });
    } else if (watched == LabelReview) {
        if (IsClick(event))
            RunGuarded("LabelReview_Click", [this] { LabelReview_Click(); });
    } else if (scheduleEvent(watched, event)) {
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmNotes::fillList(QComboBox* list, const QStringList& entries)
{
    const QSignalBlocker quiet(list);
    list->clear();
    list->addItems(entries);
    list->setCurrentIndex(-1);
}

void frmNotes::selectEntry(QComboBox* list, int index)
{
    if (index < -1 || index >= list->count())
        throw InvalidValue();
    list->setCurrentIndex(index);
}

int frmNotes::entryIndex(const QComboBox* list)
{
    return list->isEditable() ? list->findText(list->currentText()) : list->currentIndex();
}

void frmNotes::setReview(const QString& sentence)
{
    LabelReview->setText(sentence);
    LabelReview->setAccessibleDescription(sentence);
}

void mnuQuorlReminders_Click(App& app)
{
    frmNotes form(app);
    if (form.Form_Load())
        app.P.showModal(form);
    form.Form_Unload();
}
