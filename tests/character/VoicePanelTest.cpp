#include "character/VoicePanel.h"

#include "character/ApplyVoiceDefaults.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QGroupBox>
#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

struct VoicePanelTest : CharacterFixture, ::testing::Test {
    QString tags() const { return app.PitchTag + app.SpeedTag + app.VolumeTag; }
};

TEST_F(VoicePanelTest, DefaultsTakeTheCharactersVoiceEvenBeyondTheSlidersAndTheTopVolume)
{
    form().sdrPitch->setValue(300);
    form().sdrSpeed->setValue(60);
    form().sdrVolume->setValue(10);
    character().pitch = 95;
    character().speed = 170;
    cmdDefaults_Click(app);
    EXPECT_EQ(form().sdrPitch->value(), 95);
    EXPECT_EQ(form().sdrSpeed->value(), 170);
    EXPECT_EQ(form().sdrVolume->value(), 65535);
    EXPECT_EQ(tags(), R"(\pit=95\\spd=170\\vol=65535\)");

    // Without a character only the volume is set.
    app.Character = nullptr;
    form().sdrPitch->setValue(300);
    form().sdrVolume->setValue(10);
    EXPECT_NO_THROW(ApplyVoiceDefaults(app));
    EXPECT_EQ(form().sdrPitch->value(), 300);
    EXPECT_EQ(tags(), R"(\pit=300\\spd=170\\vol=65535\)");
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    // A character's voice beyond the sliders stays in the tags.
    app.Character = &character();
    character().pitch = 30;
    character().speed = 300;
    cmdDefaults_Click(app);
    EXPECT_EQ(form().sdrPitch->value(), 50);
    EXPECT_EQ(form().sdrSpeed->value(), 250);
    EXPECT_EQ(tags(), R"(\pit=30\\spd=300\\vol=65535\)");
}

TEST_F(VoicePanelTest, SlidersRebuildTheirOwnTagOnly)
{
    form().sdrPitch->setValue(250);
    EXPECT_EQ(tags(), R"(\pit=250\\spd=150\\vol=900\)");
    form().sdrSpeed->setValue(51);
    EXPECT_EQ(tags(), R"(\pit=250\\spd=51\\vol=900\)");
    form().sdrVolume->setValue(2);
    EXPECT_EQ(tags(), R"(\pit=250\\spd=51\\vol=2\)");
}

TEST_F(VoicePanelTest, ViewMenuFlipsThePanelAndTheWidth)
{
    form().show();
    form().mnuViewVoice->setChecked(true);
    const QList<QWidget*> panel{form().Frame1, form().sdrPitch, form().sdrSpeed, form().sdrVolume,
                                form().cmdDefaults};
    for (const bool shown : {false, true}) {
        mnuViewVoice_Click(app);
        EXPECT_EQ(form().mnuViewVoice->isChecked(), shown);
        EXPECT_EQ(form().WidthTwips(), shown ? 8310 : 4800);
        for (QWidget* w : panel)
            EXPECT_EQ(w->isHidden(), !shown) << w->objectName().toStdString();
    }
}
