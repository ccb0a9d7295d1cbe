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

    QCheckBox* speechOutputBox() const { return m_speechOutput; }
    QCheckBox* balloonBox() const { return m_balloon; }
    QCheckBox* soundEffectsBox() const { return m_soundEffects; }

signals:
    void changed();

private:
    QCheckBox* m_speechOutput;
    QCheckBox* m_balloon;
    QCheckBox* m_soundEffects;
};

} // namespace agent
