#include "model/SettingsMapping.h"

#include <gtest/gtest.h>

#include <limits>

#include "model/PollingRate.h"
#include "model/Sensitivity.h"
#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;

TEST(Sensitivity, convertsTheEndsOfTheRange) {
    EXPECT_EQ(dpiToCode(100), 0);
    EXPECT_EQ(dpiToCode(6475), 255);
    EXPECT_EQ(codeToDpi(0), 100);
    EXPECT_EQ(codeToDpi(255), 6475);
}

TEST(Sensitivity, truncatesTowardOneHundred) {
    EXPECT_EQ(dpiToCode(124), 0);
    EXPECT_EQ(dpiToCode(125), 1);
    EXPECT_EQ(dpiToCode(824), 28);
    EXPECT_EQ(dpiToCode(76), 0);
    EXPECT_EQ(dpiToCode(75), 0xFF);
    EXPECT_EQ(dpiToCode(0), 0xFC);
}

TEST(Sensitivity, keepsTheLowEightBits) {
    EXPECT_EQ(dpiToCode(6500), 0);
    EXPECT_EQ(dpiToCode(std::numeric_limits<std::int32_t>::max()), 0x4D); // 85899341
    EXPECT_EQ(dpiToCode(std::numeric_limits<std::int32_t>::min()), 0xAB); // -85899349
}

struct RateCase {
    int hertz;
    int code;
    int readBack;
};

class PollingRates : public testing::TestWithParam<RateCase> {};

TEST_P(PollingRates, convertBothWays) {
    EXPECT_EQ(pollingRateToCode(GetParam().hertz), GetParam().code);
    EXPECT_EQ(codeToPollingRate(static_cast<std::uint8_t>(GetParam().code)), GetParam().readBack);
}

INSTANTIATE_TEST_SUITE_P(Rates, PollingRates,
    testing::Values(RateCase{125, 8, 125}, RateCase{500, 2, 500}, RateCase{1000, 1, 1000},
        RateCase{250, 2, 500}, RateCase{0, 2, 500}, RateCase{-125, 2, 500}));

TEST(PollingRate, readsUnknownCodesAs500) {
    EXPECT_EQ(codeToPollingRate(0), 500);
    EXPECT_EQ(codeToPollingRate(4), 500);
    EXPECT_EQ(codeToPollingRate(255), 500);
}

TEST(KyvarSettingsDictToStruct, storesFiveBytes) {
    SettingsRecord record;
    fillWithGarbage(record);
    ASSERT_TRUE(KyvarSettingsDictToStruct(settings(), &record));
    EXPECT_EQ(bytesOf(record), (Bytes{2, 1, 3, 28, 60}));
}

TEST(KyvarSettingsDictToStruct, readsMissingKeysAsZero) {
    SettingsRecord record;
    fillWithGarbage(record);
    ASSERT_TRUE(KyvarSettingsDictToStruct(dict(), &record));
    EXPECT_EQ(bytesOf(record), (Bytes{0, 2, 0, 0xFC, 0xFC}));
}

TEST(KyvarSettingsDictToStruct, keepsTheLowEightBits) {
    SettingsRecord record;
    const auto tree = dict({{"profileid", 257}, {"stage", -1}, {"dpix", 100 + 25 * 258}, {"dpiy", 100}});
    ASSERT_TRUE(KyvarSettingsDictToStruct(tree, &record));
    EXPECT_EQ(bytesOf(record), (Bytes{1, 2, 255, 2, 0}));
}

TEST(KyvarSettingsDictToStruct, convertsValuesOfOtherTypes) {
    SettingsRecord record;
    const auto tree = dict({{"profileid", u"3"}, {"pollingrate", 125.9}, {"stage", true},
        {"dpix", u" 800 dpi"}, {"dpiy", list()}});
    ASSERT_TRUE(KyvarSettingsDictToStruct(tree, &record));
    EXPECT_EQ(bytesOf(record), (Bytes{3, 8, 1, 28, 0xFC}));
}

TEST(KyvarSettingsDictToStruct, ignoresTheIndependentFlag) {
    SettingsRecord record;
    const auto tree = settings();
    tree.set("independentxy", false);
    ASSERT_TRUE(KyvarSettingsDictToStruct(tree, &record));
    EXPECT_EQ(record.dpiXCode, 28);
    EXPECT_EQ(record.dpiYCode, 60);
}

TEST(KyvarSettingsDictToStruct, failsWithoutAnArgument) {
    SettingsRecord record = {9, 9, 9, 9, 9};
    EXPECT_FALSE(KyvarSettingsDictToStruct({}, &record));
    EXPECT_EQ(bytesOf(record), (Bytes{9, 9, 9, 9, 9}));
    EXPECT_FALSE(KyvarSettingsDictToStruct(settings(), nullptr));
}

TEST(KyvarSettingsStructToDict, readsTheTableBackward) {
    const SettingsRecord record = {2, 8, 3, 28, 60};
    EXPECT_EQ(plist::Value(KyvarSettingsStructToDict(&record)),
        plist::Value(dict({{"profileid", 2}, {"pollingrate", 125}, {"stage", 3}, {"dpix", 800},
            {"dpiy", 1600}, {"independentxy", true}})));
}

TEST(KyvarSettingsStructToDict, isNotIndependentWhenTheCodesAreEqual) {
    const SettingsRecord record = {255, 4, 255, 255, 255};
    EXPECT_EQ(plist::Value(KyvarSettingsStructToDict(&record)),
        plist::Value(dict({{"profileid", 255}, {"pollingrate", 500}, {"stage", 255}, {"dpix", 6475},
            {"dpiy", 6475}, {"independentxy", false}})));
}

TEST(KyvarSettingsStructToDict, givesNothingWithoutARecord) {
    EXPECT_FALSE(KyvarSettingsStructToDict(nullptr));
}

TEST(SettingsMapping, turnsAPollingRateOf250Into500) {
    const auto tree = settings();
    tree.set("pollingrate", 250);
    SettingsRecord record;
    ASSERT_TRUE(KyvarSettingsDictToStruct(tree, &record));
    EXPECT_EQ(record.pollingCode, 2);
    EXPECT_EQ(KyvarSettingsStructToDict(&record).integer("pollingrate"), 500);
}

} // namespace
} // namespace quorvi
