#include "model/ProfileMapping.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;

struct ProfileSlot {
    ProfileRecord record;
    ProfileNameEntry nameEntry;

    ProfileSlot() {
        fillWithGarbage(record);
        fillWithGarbage(nameEntry);
    }
    bool store(const Dictionary& profile, int number = 1) {
        return KyvarProfileDictToStruct(profile, number, &record, &nameEntry);
    }
    [[nodiscard]] Dictionary read(const Dictionary& driver = Dictionary::create()) const {
        return KyvarProfileStructToDict(&record, &nameEntry, driver);
    }
};

Bytes emptySlot(std::uint8_t number) {
    return padded({number}, 56);
}

TEST(KyvarProfileDictToStruct, stores56Bytes) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile(), 4));
    const auto head = padded({4, 3, 2, 2, 12, 12, 28, 60}, 20);
    const auto buttons = joined(padded({1, 1, 0, 0}, 32), {9, 65, 7, 1});
    EXPECT_EQ(bytesOf(slot.record), joined(head, buttons));
}

TEST(KyvarProfileDictToStruct, storesTheNameAndLeavesTheReservedByteAlone) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile(u"Gä")));
    EXPECT_EQ(bytesOf(slot.nameEntry), padded({0xA5, 'G', 0, 0xE4, 0}, 41));
}

TEST(KyvarProfileDictToStruct, storesATwentyUnitNameWithoutTerminator) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile(u"ABCDEFGHIJKLMNOPQRSTU")));
    EXPECT_EQ(slot.nameEntry.name[38], 'T');
    EXPECT_EQ(slot.read().string("name"), u"ABCDEFGHIJKLMNOPQRST");
}

TEST(KyvarProfileDictToStruct, failsWithoutWritingWhenAnArgumentIsMissingOrTheNumberIsOutside) {
    ProfileSlot slot;
    const auto before = bytesOf(slot.record);
    EXPECT_FALSE(slot.store({}));
    EXPECT_FALSE(slot.store(profile(), 0));
    EXPECT_FALSE(slot.store(profile(), 6));
    EXPECT_FALSE(slot.store(profile(), -1));
    EXPECT_FALSE(KyvarProfileDictToStruct(profile(), 1, nullptr, &slot.nameEntry));
    EXPECT_EQ(bytesOf(slot.record), before);
}

TEST(KyvarProfileDictToStruct, failsWithAZeroedRecordWithoutButtonsOrStages) {
    for (const auto* key : {"buttons", "stages"}) {
        const auto spoiled = profile();
        spoiled.remove(key);
        ProfileSlot missing;
        EXPECT_FALSE(missing.store(spoiled)) << key;
        EXPECT_EQ(bytesOf(missing.record), Bytes(56, 0)) << key;

        spoiled.set(key, u"another type");
        ProfileSlot otherType;
        EXPECT_FALSE(otherType.store(spoiled)) << key;
        EXPECT_EQ(bytesOf(otherType.record), Bytes(56, 0)) << key;
    }
}

TEST(KyvarProfileDictToStruct, failsWithAFilledRecordWithoutAName) {
    const auto nameless = profile();
    nameless.remove("name");
    const auto numberAsName = profile();
    numberAsName.set("name", 5);
    for (const auto& spoiled : {nameless, numberAsName, profile(u"")}) {
        ProfileSlot slot;
        EXPECT_FALSE(slot.store(spoiled));
        EXPECT_EQ(slot.record.number, 1);
        EXPECT_EQ(slot.record.buttons[8].command, 65);
        EXPECT_EQ(bytesOf(slot.nameEntry.name), Bytes(40, 0));
    }
}

TEST(KyvarProfileDictToStruct, failsWithAFilledRecordWithoutANameEntry) {
    ProfileSlot slot;
    EXPECT_FALSE(KyvarProfileDictToStruct(profile(), 1, &slot.record, nullptr));
    EXPECT_EQ(slot.record.number, 1);
}

TEST(KyvarProfileDictToStruct, keepsTheFirstFiveOfSevenStages) {
    const auto seven = profile();
    const auto stages = list();
    for (int i = 1; i <= 7; ++i)
        stages.append(stage(100 + 25 * i, 100 + 50 * i));
    seven.set("stages", stages);
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(seven));
    EXPECT_EQ(slot.record.stageCount, 5);
    EXPECT_EQ(bytesOf(slot.record.stages), (Bytes{1, 2, 2, 4, 3, 6, 4, 8, 5, 10}));
    EXPECT_EQ(bytesOf(slot.record.reserved), Bytes(6, 0));
}

TEST(KyvarProfileDictToStruct, countsStagesInOneByte) {
    const auto many = profile();
    const auto stages = list();
    for (int i = 0; i < 256; ++i)
        stages.append(stage(400, 400));
    many.set("stages", stages);
    ProfileSlot none;
    ASSERT_TRUE(none.store(many));
    EXPECT_EQ(bytesOf(none.record.stages), Bytes(10, 0));
    EXPECT_EQ(none.record.stageCount, 0);
    EXPECT_EQ(none.record.defaultStage, 0);

    stages.append(stage(400, 400));
    ProfileSlot one;
    ASSERT_TRUE(one.store(many));
    EXPECT_EQ(one.record.stageCount, 1);
    EXPECT_EQ(one.record.defaultStage, 1);
}

TEST(KyvarProfileDictToStruct, lowersADefaultStageAboveTheCount) {
    const auto spoiled = profile();
    spoiled.set("stages", list({stage(400, 400), stage(800, 800), stage(1600, 1600)}));
    const auto defaultStageFor = [&](int stored) {
        spoiled.set("defaultstage", stored);
        ProfileSlot slot;
        EXPECT_TRUE(slot.store(spoiled));
        return int{slot.record.defaultStage};
    };
    EXPECT_EQ(defaultStageFor(9), 3);
    EXPECT_EQ(defaultStageFor(3), 3);
    EXPECT_EQ(defaultStageFor(1), 1);
    EXPECT_EQ(defaultStageFor(0), 0);
    EXPECT_EQ(defaultStageFor(-1), 3);  // 255 in a byte
    EXPECT_EQ(defaultStageFor(257), 1); // 1 in a byte
}

TEST(KyvarProfileDictToStruct, countsAStageThatIsNoDictionaryAndLeavesItZero) {
    const auto spoiled = profile();
    spoiled.set("stages", list({stage(400, 400), 7, stage(800, 800), dict()}));
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(spoiled));
    EXPECT_EQ(slot.record.stageCount, 4);
    EXPECT_EQ(bytesOf(slot.record.stages), (Bytes{12, 12, 0, 0, 28, 28, 0xFC, 0xFC, 0, 0}));
}

TEST(KyvarProfileDictToStruct, storesTheLowEightBitsOfAssignments) {
    const auto spoiled = profile();
    spoiled.set("buttons", dict({{"01", assignment(256 + 34, -1, 511)}, {"02", dict()}, {"03", u"34"},
                               {"3", assignment(1, 1, 1)}, {"10", assignment(1, 1, 1)}}));
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(spoiled));
    EXPECT_EQ(bytesOf(slot.record.buttons), padded({1, 34, 255, 255, 2, 0, 0, 0}, 36));
}

TEST(KyvarProfileStructToDict, readsTheWholeProfile) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile(), 1));
    const auto none = assignment(0, 0, 0);
    const auto driver = dict({{"autoswitch", true}});
    const auto firstStage = dict({{"dpix", 400}, {"dpiy", 400}, {"independentxy", false}});
    const auto secondStage = dict({{"dpix", 800}, {"dpiy", 1600}, {"independentxy", true}});
    EXPECT_EQ(Value(slot.read(driver)),
        Value(dict({{"name", u"Game"}, {"ledstate", 3}, {"defaultstage", 2},
            {"stages", list({firstStage, secondStage})},
            {"buttons",
                dict({{"01", assignment(1, 0, 0)}, {"02", none}, {"03", none}, {"04", none}, {"05", none},
                    {"06", none}, {"07", none}, {"08", none}, {"09", assignment(65, 7, 1)}})},
            {"driver", driver}})));
}

TEST(KyvarProfileStructToDict, refersToTheDriverDictionaryPassedIn) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile()));
    const auto driver = Dictionary::create();
    EXPECT_TRUE(slot.read(driver).dictionary("driver").isSameAs(driver));
}

TEST(KyvarProfileStructToDict, givesAnEmptyNameForAZeroName) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile()));
    slot.nameEntry.name.fill(0);
    const auto read = slot.read();
    ASSERT_NE(read.value("name").string(), nullptr);
    EXPECT_EQ(read.string("name"), u"");
}

TEST(KyvarProfileStructToDict, givesNothingForAnEmptySlot) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile()));
    slot.nameEntry.name[0] = 0xFF;
    EXPECT_TRUE(slot.read());
    slot.nameEntry.name[1] = 0xFF;
    EXPECT_FALSE(slot.read());
}

TEST(KyvarProfileStructToDict, readsFiveStagesOfAHostileCount) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile()));
    slot.record.stageCount = 200;
    EXPECT_EQ(slot.read().array("stages").size(), 5U);
    slot.record.stageCount = 0;
    const auto none = slot.read().array("stages");
    EXPECT_TRUE(none);
    EXPECT_EQ(none.size(), 0U);
}

TEST(KyvarProfileStructToDict, givesNothingWithoutAnArgument) {
    ProfileSlot slot;
    ASSERT_TRUE(slot.store(profile()));
    EXPECT_FALSE(KyvarProfileStructToDict(nullptr, &slot.nameEntry, dict()));
    EXPECT_FALSE(KyvarProfileStructToDict(&slot.record, nullptr, dict()));
    EXPECT_FALSE(slot.read({}));
}

TEST(clearProfileSlot, keepsTheNumberAndMarksTheName) {
    ProfileSlot slot;
    clearProfileSlot(5, slot.record, slot.nameEntry);
    EXPECT_EQ(bytesOf(slot.record), emptySlot(5));
    EXPECT_EQ(bytesOf(slot.nameEntry.name), Bytes(40, 0xFF));
    EXPECT_FALSE(slot.read());
}

} // namespace
} // namespace quorvi
