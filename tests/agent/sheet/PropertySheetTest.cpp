#include "agent/sheet/PropertySheet.h"

#include "agent/EngineSettings.h"
#include "agent/sheet/OutputPage.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace agent
{
class PropertySheetTest : public ::testing::Test
{
protected:
    void SetUp() override { EngineSettings::shared().clear(); }
};

TEST_F(PropertySheetTest, SettingsFileLivesInTheEnginesConfigFolder)
{
    EXPECT_EQ(EngineSettings::filePath(),
              qEnvironmentVariable("XDG_CONFIG_HOME") + u"/character-engine/engine.conf"_qs);
    EngineSettings::shared().setBalloonEnabled(false);
    QFile file(EngineSettings::filePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("[Output]")) << text.constData();
    EXPECT_TRUE(text.contains("Balloon=false")) << text.constData();
}

TEST_F(PropertySheetTest, SwitchesDefaultOnAndPersist)
{
    using Getter = bool (EngineSettings::*)() const;
    using Setter = void (EngineSettings::*)(bool);
    const std::vector<std::pair<Getter, Setter>> switches{
        {&EngineSettings::speechOutputEnabled, &EngineSettings::setSpeechOutputEnabled},
        {&EngineSettings::balloonEnabled, &EngineSettings::setBalloonEnabled},
        {&EngineSettings::soundEffectsEnabled, &EngineSettings::setSoundEffectsEnabled},
    };
    for (const auto& [get, set] : switches) {
        EXPECT_TRUE((EngineSettings::shared().*get)());
        (EngineSettings::shared().*set)(false);
        EXPECT_FALSE((EngineSettings::shared().*get)());
    }
    EngineSettings::shared().setValue(u"SpeechInput/Threshold"_qs, 5);
    EXPECT_EQ(EngineSettings::shared().value(u"SpeechInput/Threshold"_qs, 0).toInt(), 5);
    EXPECT_EQ(EngineSettings::shared().value(u"SpeechInput/Missing"_qs, 7).toInt(), 7);
}

TEST_F(PropertySheetTest, PagesAreSelectedByName)
{
    PropertySheet sheet;
    EXPECT_EQ(sheet.page(), u"Output"_qs);
    EXPECT_TRUE(sheet.setPage(u"Speech"_qs));
    EXPECT_EQ(sheet.page(), u"Speech"_qs);
    EXPECT_TRUE(sheet.setPage(u"output"_qs));
    EXPECT_EQ(sheet.page(), u"Output"_qs);
    EXPECT_FALSE(sheet.setPage(u"Copyright"_qs));
    EXPECT_EQ(sheet.page(), u"Output"_qs);
}

TEST_F(PropertySheetTest, SpeechPageHostsTheGivenControls)
{
    PropertySheet sheet;
    sheet.setPage(u"Speech"_qs);
    auto* controls = new QLabel(u"listening key"_qs);
    sheet.setSpeechPage(controls);
    auto* tabs = sheet.findChild<QTabWidget*>();
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->currentWidget(), controls);
    EXPECT_EQ(sheet.page(), u"Speech"_qs);
    EXPECT_EQ(tabs->indexOf(controls), 1);
}

TEST_F(PropertySheetTest, OutputChoicesAreSavedAtOnce)
{
    {
        PropertySheet sheet;
        QSignalSpy changed(&EngineSettings::shared(), &EngineSettings::changed);
        EXPECT_TRUE(sheet.outputPage()->speechOutputBox()->isChecked());
        sheet.outputPage()->speechOutputBox()->setChecked(false);
        sheet.outputPage()->soundEffectsBox()->setChecked(false);
        EXPECT_EQ(changed.size(), 2);
        EXPECT_FALSE(EngineSettings::shared().speechOutputEnabled());
        EXPECT_TRUE(EngineSettings::shared().balloonEnabled());
        EXPECT_FALSE(EngineSettings::shared().soundEffectsEnabled());
    }
    PropertySheet reopened;
    EXPECT_FALSE(reopened.outputPage()->speechOutputBox()->isChecked());
    EXPECT_TRUE(reopened.outputPage()->balloonBox()->isChecked());
    EXPECT_FALSE(reopened.outputPage()->soundEffectsBox()->isChecked());
}

TEST_F(PropertySheetTest, HelpTellsOfTheSlowestRate)
{
    PropertySheet sheet;
    bool found = false;
    for (const QLabel* label : sheet.outputPage()->findChildren<QLabel*>())
        found = found || label->text().contains(u"below 80 words per minute"_qs);
    EXPECT_TRUE(found);
}

} // namespace agent
