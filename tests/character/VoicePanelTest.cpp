#include "character/VoicePanel.h"

#include "character/ApplyVoiceDefaults.h"
#include "character/CharacterFixture.h"

#include <QAction>
#include <QGroupBox>
#include <QPushButton>
#include <QSlider>
#include <algorithm>
#include <gtest/gtest.h>

namespace
{

struct VoicePanelTest : CharacterFixture, ::testing::Test {
};

TEST_F(VoicePanelTest, DefaultsTakeTheCharactersVoiceAndTheTopVolume)
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
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=95\\"));
    EXPECT_EQ(app.SpeedTag, QStringLiteral("\\spd=170\\"));
    EXPECT_EQ(app.VolumeTag, QStringLiteral("\\vol=65535\\"));
}

TEST_F(VoicePanelTest, ACharactersVoiceBeyondTheSlidersStaysInTheTags)
{
    character().pitch = 30;
    character().speed = 300;
    cmdDefaults_Click(app);
    EXPECT_EQ(form().sdrPitch->value(), 50);
    EXPECT_EQ(form().sdrSpeed->value(), 250);
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=30\\"));
    EXPECT_EQ(app.SpeedTag, QStringLiteral("\\spd=300\\"));
}

TEST_F(VoicePanelTest, DefaultsPassOverAMissingCharacter)
{
    app.Character = nullptr;
    form().sdrPitch->setValue(300);
    form().sdrVolume->setValue(10);
    EXPECT_NO_THROW(ApplyVoiceDefaults(app));
    EXPECT_EQ(form().sdrPitch->value(), 300);
    EXPECT_EQ(form().sdrVolume->value(), 65535);
    EXPECT_EQ(app.VolumeTag, QStringLiteral("\\vol=65535\\"));
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(VoicePanelTest, SlidersRebuildTheirOwnTagOnly)
{
    form().sdrPitch->setValue(250);
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=250\\"));
    EXPECT_EQ(app.SpeedTag, QStringLiteral("\\spd=150\\"));
    form().sdrSpeed->setValue(51);
    EXPECT_EQ(app.SpeedTag, QStringLiteral("\\spd=51\\"));
    form().sdrVolume->setValue(2);
    EXPECT_EQ(app.VolumeTag, QStringLiteral("\\vol=2\\"));
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=250\\"));
}

TEST_F(VoicePanelTest, ViewMenuFlipsThePanelAndTheWidth)
{
    form().show();
    form().mnuViewVoice->setChecked(true);
    mnuViewVoice_Click(app);
    EXPECT_FALSE(form().mnuViewVoice->isChecked());
    EXPECT_EQ(form().WidthTwips(), 4800);
    for (QWidget* w :
         {static_cast<QWidget*>(form().Frame1), static_cast<QWidget*>(form().sdrPitch),
          static_cast<QWidget*>(form().sdrSpeed), static_cast<QWidget*>(form().sdrVolume),
          static_cast<QWidget*>(form().cmdDefaults)})
        EXPECT_TRUE(w->isHidden());
    mnuViewVoice_Click(app);
    EXPECT_TRUE(form().mnuViewVoice->isChecked());
    EXPECT_EQ(form().WidthTwips(), 8310);
    EXPECT_FALSE(form().Frame1->isHidden());
    EXPECT_FALSE(form().cmdDefaults->isHidden());
}

} // namespace
