#include "core/Conversions.h"

#include <gtest/gtest.h>

using namespace Conversions;

TEST(ConversionsTest, ValTakesTheLeadingNumber)
{
    EXPECT_EQ(Val(QStringLiteral("42")), 42);
    EXPECT_EQ(Val(QStringLiteral("42.5")), 42.5);
    EXPECT_EQ(Val(QStringLiteral("  -3abc")), -3);
    EXPECT_EQ(Val(QStringLiteral("1 2")), 1);
    EXPECT_EQ(Val(QString()), 0);
    EXPECT_EQ(Val(QStringLiteral("abc")), 0);
    EXPECT_EQ(Val(QStringLiteral("-")), 0);
    EXPECT_EQ(Val(QStringLiteral("True")), 0);
}

TEST(ConversionsTest, SingleTextIsTheShortestForm)
{
    EXPECT_EQ(SingleText(3.1f), QStringLiteral("3.1"));
    EXPECT_EQ(SingleText(11.0f), QStringLiteral("11"));
    EXPECT_EQ(SingleText(10.2f), QStringLiteral("10.2"));
    EXPECT_EQ(NumberText(3), QStringLiteral(" 3"));
    EXPECT_EQ(NumberText(-3), QStringLiteral("-3"));
}
