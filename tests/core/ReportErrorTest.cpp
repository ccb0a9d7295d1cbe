#include "core/ReportError.h"

#include "core/App.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

using platform::RuntimeError;

const QString agentSource = "Agent.Control.1", other = "Quorl";

// Reports the error on a fresh platform; the boxes shown, and whether the program ended.
std::pair<fakes::FakeDialogs, bool> report(bool fatal, float where, const RuntimeError& error)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    try {
        ReportError(app, fatal, where, error);
    } catch (const fakes::ProgramEnded&) {
        return {fp.dialogs, true};
    }
    return {fp.dialogs, false};
}

TEST(ReportErrorTest, ShowsTheBoxThatFitsAndEndsWhenFatal)
{
    const std::int32_t speechInput = platform::hresult(0x80040317),
                       typeMismatch = platform::hresult(0x8002801D),
                       noSuchCommand = platform::hresult(0x80042502);
    const struct {
        std::int32_t number;
        QString source;
        float where;
        bool fatal;
        QStringList boxTitles;
        bool ends;
    } rows[] = {
        // MainTest runs the errors at start-up (11) and 339, CommandDispatchTest a busy sound.
        {speechInput, other, 2, false, {}, false},
        {typeMismatch, other, 3.1f, true, {}, true},
        {typeMismatch, other, 11, true, {}, false},
        {noSuchCommand, agentSource, 3.2f, true, {}, true},
        {400, other, 3.1f, true, {}, false},
        {50003, other, 3.1f, true, {}, true},
        {53, other, 4.2f, true, {"Unknown Error"}, true},
        {53, other, 2, false, {"Unknown Error"}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.number << " from " << row.source.toStdString()
                                        << " at " << row.where << (row.fatal ? " fatal" : ""));
        const auto [dialogs, ended] =
            report(row.fatal, row.where, {row.number, row.source, "Oops"});
        EXPECT_EQ(ended, row.ends);
        EXPECT_EQ(dialogs.titles(), row.boxTitles);
    }
}

TEST(ReportErrorTest, TextsOfTheBoxes)
{
    const fakes::Box missing = report(false, 3.1f, {339, other, {}}).first.boxes.at(0);
    EXPECT_EQ(missing.icon, platform::BoxIcon::Critical);
    EXPECT_EQ(missing.text, "You didn't install Microsoft Agent. Please goto '" + HomePageUrl +
                                "' \r\n"
                                "and go to the 'Agent Installation' section to install three "
                                "components:\r\n"
                                "1) Install Microsoft Agent Services version 1.5\r\n"
                                "2) Install the TruVoice Text-To-Speech Engine\r\n"
                                "3) Install the Command and Control Engine\r\n"
                                "Please email " +
                                SupportAddress + " if you are still having trouble.");

    const fakes::Box sound =
        report(false, 6, {platform::errors::SoundSystemBusy, agentSource, {}}).first.boxes.at(0);
    EXPECT_EQ(sound.icon, platform::BoxIcon::Warning);
    EXPECT_EQ(sound.text, "Some other application is using your sound system, this caused an error "
                          "in Agent's Speech Input component. Please close all other applications "
                          "that are using your sound card.");

    // The general box names the place, the number and the source.
    EXPECT_EQ(report(false, 3.1f, {53, other, "Bad file"}).first.boxes.at(0).text,
              "Bad file\r\nPlease report the following error to '" + SupportAddress +
                  "' \r\n( Unknown ( 3.1 ) 53, Quorl)");
}
