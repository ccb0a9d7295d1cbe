#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;

namespace agent::listen
{

// The small window near the corner of the screen that says the engine is listening, and
// afterwards what it heard.
class ListeningTip : public QWidget
{
    Q_OBJECT
public:
    explicit ListeningTip(QWidget* parent = nullptr);

    void showListening();
    // words empty: nothing was understood.
    void showHeard(const QString& words);
    void showNoMicrophone();
    QString text() const;

private:
    void showText(const QString& text, bool stay);

    QLabel* label_;
    QTimer hideLater_;
};

} // namespace agent::listen
