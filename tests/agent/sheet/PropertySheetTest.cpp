#include "agent/sheet/PropertySheet.h"

#include "agent/EngineSettings.h"
#include "agent/sheet/OutputPage.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace agent;

TEST(PropertySheetTest, OutputSwitchesDefaultOnAndAreSavedAtOnceInTheEnginesFile)
{
    EngineSettings& settings = EngineSettings::shared();
    settings.clear();
    {
        PropertySheet sheet;
        OutputPage& page = *sheet.outputPage();
        for (const QCheckBox* box :
             {page.speechOutputBox(), page.balloonBox(), page.soundEffectsBox()})
            EXPECT_TRUE(box->isChecked()) << box->text().toStdString();
        const auto labels = page.findChildren<QLabel*>();
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->text().contains(u"below 80 words per minute"_qs);
        })) << "the help tells of the slowest rate";

        QSignalSpy changed(&settings, &EngineSettings::changed);
        page.speechOutputBox()->setChecked(false);
        page.soundEffectsBox()->setChecked(false);
        EXPECT_EQ(changed.size(), 2);
    }
    // The page shows the settings it finds.
    PropertySheet reopened;
    EXPECT_FALSE(reopened.outputPage()->speechOutputBox()->isChecked());
    EXPECT_TRUE(reopened.outputPage()->balloonBox()->isChecked());
    EXPECT_FALSE(reopened.outputPage()->soundEffectsBox()->isChecked());

    settings.setBalloonEnabled(false);
    EXPECT_FALSE(settings.balloonEnabled());
    QFile file(EngineSettings::filePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("Balloon=false")) << text.constData();
}

TEST(PropertySheetTest, PagesAreSelectedByNameAndTheSpeechPageHostsTheGivenControls)
{
    PropertySheet sheet;
    EXPECT_EQ(sheet.page(), u"Output"_qs);
    EXPECT_TRUE(sheet.setPage(u"Speech"_qs));
    auto* controls = new QLabel(u"listening key"_qs);
    sheet.setSpeechPage(controls);
    EXPECT_EQ(sheet.page(), u"Speech"_qs) << "the speech page stays selected";
    EXPECT_TRUE(sheet.setPage(u"output"_qs));
    EXPECT_EQ(sheet.page(), u"Output"_qs);
    EXPECT_FALSE(sheet.setPage(u"Copyright"_qs));
    EXPECT_EQ(sheet.page(), u"Output"_qs);
}
