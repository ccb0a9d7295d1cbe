#include "core/RegFunctions.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

using namespace RegFunctions;

struct RegFunctionsTest : ::testing::Test {
    fakes::FakeStore store;
    Settings settings{store};
};

TEST_F(RegFunctionsTest, MissingKeyReadsEmptyAndCreatesNothing)
{
    const KeyValue value = ReadKeyValue(store, platform::HKEY_CURRENT_USER, SettingsKey, "X");
    EXPECT_TRUE(std::holds_alternative<Empty>(value));
    EXPECT_FALSE(store.hasKey(SettingsKey));
    EXPECT_TRUE(store.writes.isEmpty());
}

TEST_F(RegFunctionsTest, GetSettingStoresItsDefaultWhenMissingOrEmptyButNotWhenBlank)
{
    EXPECT_EQ(settings.Get("Splash", "1"), "1");
    EXPECT_EQ(store.value("Splash"), "1");

    store.setValue("Greeting", QString());
    EXPECT_EQ(ToString(settings.Read("Greeting")), QString());
    EXPECT_EQ(settings.Get("Greeting", "0"), "0");
    EXPECT_EQ(store.value("Greeting"), "0");

    store.setValue("GreetingText", " ");
    EXPECT_EQ(settings.Get("GreetingText", "hello"), " ");
    EXPECT_EQ(store.value("GreetingText"), " ");
}

TEST_F(RegFunctionsTest, DataIsReadUpToTheFirstNulAndBinaryAsSixteenBits)
{
    store.setRaw("A", platform::RegistryStore::String, QByteArray("ab\0cd", 5));
    store.setRaw("B", platform::RegistryStore::String, QByteArray("\0cd", 3));
    EXPECT_EQ(settings.ReadText("A"), "ab");
    EXPECT_EQ(settings.ReadText("B"), QString());
    EXPECT_EQ(TrimAtNull("plain"), "plain");

    store.setRaw("Odd", platform::RegistryStore::Binary, QByteArray("\xfe\xff\x07", 3));
    const KeyValue value = settings.Read("Odd");
    ASSERT_TRUE(std::holds_alternative<std::int16_t>(value));
    EXPECT_EQ(std::get<std::int16_t>(value), -2);
    EXPECT_EQ(ToString(value), "-2");
}

TEST_F(RegFunctionsTest, NamesMatchWithoutRegardToCase)
{
    settings.Write("ShutDown", "0");
    EXPECT_EQ(settings.ReadText("Shutdown"), "0");
    settings.Write("SHUTDOWN", "1");
    EXPECT_EQ(settings.ReadText("shutdown"), "1");
    EXPECT_EQ(store.valueCount(), 1);
}
