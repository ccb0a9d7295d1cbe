#pragma once

#include <QDialog>

class QTabWidget;

namespace agent
{

class OutputPage;

// The engine's settings window, with the pages "Output" and "Speech".
class PropertySheet : public QDialog
{
    Q_OBJECT
public:
    explicit PropertySheet(QWidget* parent = nullptr);

    // Selects a page by its name; false for a name the sheet does not have.
    bool setPage(const QString& name);
    QString page() const;

    // Hosts the speech input controls on the "Speech" page; the sheet takes ownership.
    void setSpeechPage(QWidget* controls);

    OutputPage* outputPage() const { return output_; }

private:
    QTabWidget* tabs_;
    OutputPage* output_;
    QWidget* speech_;
};

} // namespace agent
