// The schedule controls of the notes window: what they hold, how they filter typing, how the
// kind switches them, and the sentence that says when the reminder comes.
#include "core/App.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "notes/NoteSchedule.h"
#include "notes/frmNotes.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

using namespace NoteSchedule;

void frmNotes::buildScheduleControls()
{
    ListHour->setEditable(true);
    ListMin->setEditable(true);
    for (QComboBox* box : {ListHour, ListMin}) {
        // Typing must stay as typed: no completion, no new entries.
        box->setCompleter(nullptr);
        box->setInsertPolicy(QComboBox::NoInsert);
    }
    txtDay->setMaxLength(2);
    txtYear->setMaxLength(4);

    const std::pair<QWidget*, QLabel*> labelled[] = {
        {ListEvery, Label4}, {txtDay, Label5}, {txtYear, Label6}};
    for (auto [box, label] : labelled) {
        label->setBuddy(box);
        box->setAccessibleName(label->text());
    }
    Label10->setBuddy(ListHour);
    ListOn->setAccessibleName(QStringLiteral("Remind me how often"));
    ListHour->setAccessibleName(QStringLiteral("Time hour"));
    ListMin->setAccessibleName(QStringLiteral("Time minute"));
    ListAm->setAccessibleName(QStringLiteral("AM or PM"));

    auto* time = new QHBoxLayout;
    time->addWidget(ListHour);
    time->addWidget(Label8);
    time->addWidget(ListMin);
    time->addWidget(Label9);
    time->addWidget(ListAm);
    time->addStretch();
    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(Label3, 0, 0);
    grid->addWidget(ListOn, 0, 1);
    grid->addWidget(Label4, 0, 2);
    grid->addWidget(ListEvery, 0, 3);
    grid->addWidget(Label5, 1, 0);
    grid->addWidget(txtDay, 1, 1);
    grid->addWidget(Label6, 1, 2);
    grid->addWidget(txtYear, 1, 3);
    grid->addWidget(Label10, 2, 0);
    grid->addLayout(time, 2, 1, 1, 3);
}

void frmNotes::connectScheduleControls()
{
    auto run = [this](const char* name, void (frmNotes::*routine)()) {
        return Guarded(name, [this, routine] { (this->*routine)(); });
    };
    connect(ListOn, &QComboBox::currentIndexChanged, this,
            run("ListOn_Click", &frmNotes::ListOn_Change));
    for (QComboBox* list : {ListEvery, ListHour, ListMin, ListAm})
        connect(list, &QComboBox::currentIndexChanged, this,
                run("LabelReview_Click", &frmNotes::LabelReview_Click));
    connect(ListHour->lineEdit(), &QLineEdit::textEdited, this,
            run("ListHour_Change", &frmNotes::ListHour_Change));
    connect(ListMin->lineEdit(), &QLineEdit::textEdited, this,
            run("ListMin_Change", &frmNotes::ListMin_Change));
    connect(txtYear, &QLineEdit::textChanged, this,
            run("txtYear_Change", &frmNotes::txtYear_Change));
    for (QWidget* box : std::initializer_list<QWidget*>{ListHour, ListMin, txtDay, txtYear})
        box->installEventFilter(this);
}

void frmNotes::ListOn_Change()
{
    if (const std::optional<KindControls> controls = ControlsForKind(ListOn->currentIndex())) {
        Label4->setVisible(controls->labelVisible);
        if (controls->labelVisible) {
            Label4->setText(controls->labelCaption);
            ListEvery->setAccessibleName(controls->labelCaption);
        }
        ListEvery->setEnabled(controls->everyEnabled);
        txtDay->setEnabled(controls->dayEnabled);
        txtYear->setEnabled(controls->yearEnabled);
        const QDate today = app.P.clock.Now().date();
        if (controls->every == EveryList::Months) {
            fillList(ListEvery, MonthNames());
            ListEvery->setCurrentIndex(today.month() - 1);
        } else if (controls->every == EveryList::Weekdays) {
            fillList(ListEvery, WeekdayNames());
            ListEvery->setCurrentIndex(WeekdayIndexOf(today));
        }
    }
    LabelReview_Click();
}

void frmNotes::LabelReview_Click()
{
    const QString day = txtDay->text();
    const QString year = txtYear->text();
    const std::optional<QDate> date = ReviewDate(ListEvery->currentIndex(), day, year);
    if (!date) {
        // The sentence is the only check of the date: a day the month lacks becomes today's.
        txtDay->setText(QString::number(app.P.clock.Now().date().day()));
        return;
    }
    const QString sentence = ReviewSentence(
        ListOn->currentIndex(), *date, ListEvery->currentText(), day, year,
        ReviewTime(ListHour->currentText(), entryIndex(ListMin), ListAm->currentText()));
    if (!sentence.isNull())
        setReview(sentence);
}

namespace
{

// The present value in place of a refused one, selected so that the next key replaces it.
void Replace(QComboBox* box, int present)
{
    box->setEditText(TwoDigits(present));
    box->lineEdit()->setSelection(0, 2);
}

} // namespace

void frmNotes::ListHour_Change()
{
    if (!HourAccepted(ListHour->currentText()))
        Replace(ListHour, HourIndexOf(app.P.clock.Now().time()) + 1);
    LabelReview_Click();
}

void frmNotes::ListMin_Change()
{
    if (!MinuteAccepted(ListMin->currentText()))
        Replace(ListMin, app.P.clock.Now().time().minute());
    LabelReview_Click();
}

void frmNotes::ListHour_LostFocus()
{
    ListHour->setEditText(TwoDigits(int(Conversions::Val(ListHour->currentText()))));
}

void frmNotes::ListMin_LostFocus()
{
    ListMin->setEditText(TwoDigits(int(Conversions::Val(ListMin->currentText()))));
}

void frmNotes::txtDay_GotFocus()
{
    // After the focus has come: a mouse click would otherwise put the caret over the selection.
    QTimer::singleShot(0, txtDay, [this] { txtDay->setSelection(0, 2); });
}

void frmNotes::txtYear_GotFocus()
{
    QTimer::singleShot(0, txtYear, [this] { txtYear->setSelection(0, 4); });
}

void frmNotes::txtYear_Change()
{
    if (Conversions::Val(txtYear->text()) == 0)
        txtYear->setText(QString::number(app.P.clock.Now().date().year()));
}

void frmNotes::txtYear_LostFocus()
{
    txtYear->setText(CompletedYear(txtYear->text()));
}

bool frmNotes::refuseKey(const QString& typed)
{
    const QChar key = typed.front();
    if (KeyAccepted(key) || !key.isPrint())
        return false;
    app.P.dialogs.Beep();
    return true;
}

bool frmNotes::scheduleEvent(QObject* watched, QEvent* event)
{
    bool refused = false;
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        // Keys that type nothing, and Tab, which moves on, are no typing to filter.
        if (key->text().isEmpty() || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
            break;
        RunGuarded("KeyPress", [&] {
            refused = refuseKey(key->text());
            // The key has not reached the box yet: the sentence is one key behind.
            LabelReview_Click();
        });
        break;
    }
    case QEvent::FocusIn:
        if (watched == txtDay)
            RunGuarded("txtDay_GotFocus", [this] { txtDay_GotFocus(); });
        else if (watched == txtYear)
            RunGuarded("txtYear_GotFocus", [this] { txtYear_GotFocus(); });
        break;
    case QEvent::FocusOut: {
        // A drop-down or another window taking the focus is no leaving of the box.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
            break;
        if (watched == txtDay)
            RunGuarded("txtDay_LostFocus", [this] { LabelReview_Click(); });
        else if (watched == txtYear)
            RunGuarded("txtYear_LostFocus", [this] { txtYear_LostFocus(); });
        else if (watched == ListHour)
            RunGuarded("ListHour_LostFocus", [this] { ListHour_LostFocus(); });
        else if (watched == ListMin)
            RunGuarded("ListMin_LostFocus", [this] { ListMin_LostFocus(); });
        break;
    }
    default:
        break;
    }
    return refused;
}
