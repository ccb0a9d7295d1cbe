#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;

namespace agent::listen
{

// The controls of the property sheet's "Speech" page: speech input on or off, the listening
// key, hands-free listening and the acceptance threshold. Every change is saved at once.
class SpeechPage : public QWidget
{
    Q_OBJECT
public:
    explicit SpeechPage(QWidget* parent = nullptr);

    QCheckBox* inputEnabled() const { return inputEnabled_; }
    QComboBox* listeningKey() const { return listeningKey_; }
    QCheckBox* handsFree() const { return handsFree_; }
    QDoubleSpinBox* threshold() const { return threshold_; }

private:
    QCheckBox* inputEnabled_;
    QComboBox* listeningKey_;
    QCheckBox* handsFree_;
    QDoubleSpinBox* threshold_;
};

} // namespace agent::listen
