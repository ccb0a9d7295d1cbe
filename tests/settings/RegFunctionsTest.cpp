#include "core/RegFunctions.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

using namespace RegFunctions;
using platform::HKEY_CURRENT_USER;

namespace
{

struct RegFunctionsTest : ::testing::Test {
    fakes::FakeStore store;
    Settings settings{store};
};

TEST_F(RegFunctionsTest, MissingKeyReadsEmptyAndCreatesNothing)
{
    const KeyValue value = ReadKeyValue(store, HKEY_CURRENT_USER, SettingsKey, QStringLiteral("X"));
    EXPECT_TRUE(std::holds_alternative<Empty>(value));
    EXPECT_FALSE(store.hasKey(SettingsKey));
    EXPECT_TRUE(store.writes.isEmpty());
}

TEST_F(RegFunctionsTest, GetSettingStoresItsDefaultWhenMissingOrEmpty)
{
    EXPECT_EQ(settings.Get(QStringLiteral("Splash"), QStringLiteral("1")), QStringLiteral("1"));
    EXPECT_EQ(store.value(QStringLiteral("Splash")), QStringLiteral("1"));

    store.setValue(QStringLiteral("Greeting"), QString());
    EXPECT_EQ(ToString(settings.Read(QStringLiteral("Greeting"))), QString());
    EXPECT_EQ(settings.Get(QStringLiteral("Greeting"), QStringLiteral("0")), QStringLiteral("0"));
    EXPECT_EQ(store.value(QStringLiteral("Greeting")), QStringLiteral("0"));
}

TEST_F(RegFunctionsTest, OneBlankIsAValue)
{
    store.setValue(QStringLiteral("GreetingText"), QStringLiteral(" "));
    EXPECT_EQ(settings.Get(QStringLiteral("GreetingText"), QStringLiteral("hello")),
              QStringLiteral(" "));
    EXPECT_EQ(store.value(QStringLiteral("GreetingText")), QStringLiteral(" "));
}

TEST_F(RegFunctionsTest, DataIsReadUpToTheFirstNul)
{
    store.setRaw(QStringLiteral("A"), platform::RegistryStore::String, QByteArray("ab\0cd", 5));
    store.setRaw(QStringLiteral("B"), platform::RegistryStore::String, QByteArray("\0cd", 3));
    EXPECT_EQ(settings.ReadText(QStringLiteral("A")), QStringLiteral("ab"));
    EXPECT_EQ(settings.ReadText(QStringLiteral("B")), QString());
    EXPECT_EQ(TrimAtNull(QStringLiteral("plain")), QStringLiteral("plain"));
}

TEST_F(RegFunctionsTest, NamesMatchWithoutRegardToCase)
{
    settings.Write(QStringLiteral("ShutDown"), QStringLiteral("0"));
    EXPECT_EQ(settings.ReadText(QStringLiteral("Shutdown")), QStringLiteral("0"));
    settings.Write(QStringLiteral("SHUTDOWN"), QStringLiteral("1"));
    EXPECT_EQ(settings.ReadText(QStringLiteral("shutdown")), QStringLiteral("1"));
    EXPECT_EQ(store.valueCount(), 1);
}

TEST_F(RegFunctionsTest, BinaryValueReadsAsSixteenBitInteger)
{
    store.setRaw(QStringLiteral("Odd"), platform::RegistryStore::Binary,
                 QByteArray("\xfe\xff\x07", 3));
    const KeyValue value = settings.Read(QStringLiteral("Odd"));
    ASSERT_TRUE(std::holds_alternative<std::int16_t>(value));
    EXPECT_EQ(std::get<std::int16_t>(value), -2);
    EXPECT_EQ(ToString(value), QStringLiteral("-2"));
}

} // namespace
