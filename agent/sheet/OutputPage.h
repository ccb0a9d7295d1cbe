#pragma once

#include <QWidget>

class QCheckBox;

namespace agent
{

// The "Output" page of the property sheet: speech output, the word balloon and sound effects.
// Every change is saved at once.
class OutputPage : public QWidget
{
    Q_OBJECT
public:
    explicit OutputPage(QWidget* parent = nullptr);

    QCheckBox* speechOutputBox() const { return speechOutput_; }
    QCheckBox* balloonBox() const { return balloon_; }
    QCheckBox* soundEffectsBox() const { return soundEffects_; }

private:
    QCheckBox* speechOutput_;
    QCheckBox* balloon_;
    QCheckBox* soundEffects_;
};

} // namespace agent
