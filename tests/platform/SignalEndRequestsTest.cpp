#include "platform/linux/SignalEndRequests.h"

#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

using platform::SignalEndRequests;

// SIGTERM is sent to the running program by the end-to-end closing script.
TEST(SignalEndRequestsTest, AHangUpReachesTheEventLoop)
{
    SignalEndRequests requests;
    int terminations = 0;
    int sessionEnds = 0;
    requests.Watch([&] { ++terminations; }, [&] { ++sessionEnds; });
    ASSERT_EQ(std::raise(SIGHUP), 0);
    EXPECT_EQ(terminations, 0) << "the handler runs from the event loop, not the signal";
    EXPECT_TRUE(QTest::qWaitFor([&] { return terminations == 1; }, 5000));
    EXPECT_EQ(sessionEnds, 0);
}
