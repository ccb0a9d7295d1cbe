#pragma once

#include "notes/NoteRecord.h"

#include <QDialog>
#include <cstdint>
#include <vector>

struct App;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

// The window in which the user makes, changes and removes notes and reminders. It edits a copy
// of Notes.cfg that reaches the file only through cmdClose; the scheduler stands still while it
// is open.
class frmNotes : public QDialog
{
    Q_OBJECT
public:
    explicit frmNotes(App& app);
    ~frmNotes() override;

    App& app;

    QLabel* Label1;
    QLineEdit* txtName;
    QListWidget* List1;
    QLabel* Label2;
    QPlainTextEdit* txtNote;
    QCheckBox* chkRemind;
    QGroupBox* Frame1;
    QLabel* Label3;
    QComboBox* ListOn;
    QLabel* Label4;
    QComboBox* ListEvery;
    QLabel* Label5;
    QLineEdit* txtDay;
    QLabel* Label6;
    QLineEdit* txtYear;
    QLabel* Label10;
    QComboBox* ListHour;
    QLabel* Label8;
    QComboBox* ListMin;
    QLabel* Label9;
    QComboBox* ListAm;
    QLabel* LabelReview;
    QPushButton* cmdNew;
    QPushButton* cmdChange;
    QPushButton* cmdDel;
    QPushButton* cmdClose;

    // Row i belongs to entry i - 1 of List1; row 0 is never used.
    std::vector<NoteRecord> WorkingNotes = std::vector<NoteRecord>(1);
    std::int16_t NoteCount = 0;
    QString NotesPath;

    // False when the window must be unloaded unshown.
    bool Form_Load();
    void Form_Unload();
    void List1_Click();
    void List1_MouseMove();
    void cmdNew_Click();
    void cmdChange_Click();
    void cmdDel_Click();
    void cmdClose_Click();
    void chkRemind_Click();

    // The schedule controls
    void ListOn_Change();
    void LabelReview_Click();
    void ListHour_Change();
    void ListMin_Change();
    void ListHour_LostFocus();
    void ListMin_LostFocus();
    void txtDay_GotFocus();
    void txtYear_GotFocus();
    void txtYear_Change();
    void txtYear_LostFocus();

    // The window closes through its own buttons: Esc would drop every edit unasked.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildScheduleControls();
    void connectScheduleControls();
    // Sets the selection from code; List1_Click runs as after a click.
    void setListIndex(int index);
    // The fields as a note record.
    NoteRecord enteredNote() const;
    bool nameTaken(const QString& name, int exceptRow) const;
    void warn(const QString& title, const QString& text);
    void limitNoteText();
    void setReview(const QString& sentence);
    // The key filter of the digit boxes; true when the key is refused.
    bool refuseKey(const QString& typed);
    bool scheduleEvent(QObject* watched, QEvent* event);

    // A list's entries replaced, with nothing selected and no event raised.
    static void fillList(QComboBox* list, const QStringList& entries);
    // A position set from code; one that the list lacks is refused with error 380.
    static void selectEntry(QComboBox* list, int index);
    // The selected position; for a box that takes typing, that of the entry equal to its text.
    static int entryIndex(const QComboBox* list);
};

// Opens the window, modal.
void mnuQuorlReminders_Click(App& app);
