#include "core/ReportError.h"

#include "core/App.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

using platform::BoxIcon;
using platform::RuntimeError;

namespace
{

struct Row {
    std::int32_t number;
    QString source;
    float where;
    bool fatal;
    QString boxTitle; // empty: no box
    bool ends;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.number << " from " << row.source.toStdString() << " at " << row.where
         << (row.fatal ? " fatal" : "");
}

class ReportErrorTest : public ::testing::TestWithParam<Row>
{
};

const QString agentSource = QStringLiteral("Agent.Control.1");
const QString other = QStringLiteral("Quorl");

TEST_P(ReportErrorTest, ShowsTheBoxThatFitsAndEndsWhenFatal)
{
    const Row& row = GetParam();
    fakes::FakePlatform fp;
    App app(fp.platform);
    const RuntimeError error(row.number, row.source, QStringLiteral("Something went wrong"));

    bool ended = false;
    try {
        ReportError(app, row.fatal, row.where, error);
    } catch (const fakes::ProgramEnded&) {
        ended = true;
    }
    EXPECT_EQ(ended, row.ends);
    if (row.boxTitle.isEmpty()) {
        EXPECT_TRUE(fp.dialogs.boxes.empty());
    } else {
        ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
        EXPECT_EQ(fp.dialogs.boxes[0].title, row.boxTitle);
    }
}

INSTANTIATE_TEST_SUITE_P(
    EveryRow, ReportErrorTest,
    ::testing::Values(
        Row{platform::hresult(0x80040317), agentSource, 2, false, "Speech Input Error", false},
        Row{platform::hresult(0x80040317), agentSource, 3.1f, true, "Speech Input Error", true},
        Row{platform::hresult(0x80040317), other, 2, false, "", false},
        Row{platform::hresult(0x80040317), other, 3.1f, true, "", true},
        Row{platform::hresult(0x8002801D), other, 3.1f, true, "", true},
        Row{platform::hresult(0x8002801D), other, 11, true, "", false},
        Row{platform::hresult(0x80042502), agentSource, 11, true, "", false},
        Row{platform::hresult(0x80042502), agentSource, 3.2f, true, "", true},
        Row{platform::hresult(0x80042502), agentSource, 6, false, "", false},
        Row{339, other, 3.1f, true, "Microsoft Agent Not Installed", true},
        Row{339, other, 6, false, "Microsoft Agent Not Installed", false},
        Row{400, other, 3.1f, true, "", false}, Row{400, other, 2, false, "", false},
        Row{50003, other, 11, true, "", false}, Row{50003, other, 3.1f, true, "", true},
        Row{53, other, 4.2f, true, "Unknown Error", true},
        Row{53, other, 2, false, "Unknown Error", false}));

TEST(ReportErrorText, AgentMissingBoxHasSixLines)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    ReportError(app, false, 3.1f, RuntimeError(339, other, QString()));
    const fakes::Box& box = fp.dialogs.boxes.at(0);
    EXPECT_EQ(box.icon, BoxIcon::Critical);
    EXPECT_EQ(box.text,
              QStringLiteral("You didn't install Microsoft Agent. Please goto '") + HomePageUrl +
                  QStringLiteral("' \r\n"
                                 "and go to the 'Agent Installation' section to install three "
                                 "components:\r\n"
                                 "1) Install Microsoft Agent Services version 1.5\r\n"
                                 "2) Install the TruVoice Text-To-Speech Engine\r\n"
                                 "3) Install the Command and Control Engine\r\n"
                                 "Please email ") +
                  SupportAddress + QStringLiteral(" if you are still having trouble."));
}

TEST(ReportErrorText, GeneralBoxNamesPlaceNumberAndSource)
{
    struct Case {
        float where;
        std::int32_t number;
        QString tail;
    };
    for (const Case& c : {Case{3.1f, 53, "( Unknown ( 3.1 ) 53, Quorl)"},
                          Case{11, -2147467259, "( Unknown ( 11 ) -2147467259, Quorl)"},
                          Case{10.2f, 5, "( Unknown ( 10.2 ) 5, Quorl)"}}) {
        fakes::FakePlatform fp;
        App app(fp.platform);
        ReportError(app, false, c.where, RuntimeError(c.number, other, QStringLiteral("Bad file")));
        EXPECT_EQ(fp.dialogs.boxes.at(0).text,
                  QStringLiteral("Bad file\r\nPlease report the following error to '") +
                      SupportAddress + QStringLiteral("' \r\n") + c.tail);
    }
}

TEST(ReportErrorText, SoundSystemBox)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    ReportError(app, false, 6,
                RuntimeError(platform::errors::SoundSystemBusy, agentSource, QString()));
    const fakes::Box& box = fp.dialogs.boxes.at(0);
    EXPECT_EQ(box.icon, BoxIcon::Warning);
    EXPECT_EQ(box.text, QStringLiteral("Some other application is using your sound system, this "
                                       "caused an error in Agent's Speech Input component. Please "
                                       "close all other applications that are using your sound "
                                       "card."));
}

} // namespace
