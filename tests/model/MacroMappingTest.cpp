#include "model/MacroMapping.h"

#include <gtest/gtest.h>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;

struct MacroSlot {
    MacroHeader header;
    MacroBody body;

    MacroSlot() {
        fillWithGarbage(header);
        fillWithGarbage(body);
    }
    bool store(const Dictionary& macro) { return KyvarMacroDictToStruct(macro, &header, &body); }
    [[nodiscard]] Dictionary read() const { return KyvarMacroStructToDict(&header, &body); }
    void setLength(int length) {
        header.length = {static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length)};
    }
};

TEST(KyvarMacroDictToStruct, storesHeaderAndBody) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    EXPECT_EQ(bytesOf(slot.header), (Bytes{7, 0, 56, 0}));
    const auto name = padded({'J', 0, 'u', 0, 'm', 0, 'p', 0}, 40);
    const auto delay = padded({1, 2, 3}, 10);
    const auto steps = padded({1, 4, 17, 20, 0, 4}, 128);
    EXPECT_EQ(bytesOf(slot.body), joined(joined(name, delay), steps));
}

TEST(KyvarMacroDictToStruct, storesTheLengthHighByteFirst) {
    MacroSlot slot;
    const auto full = macro(69);
    const auto steps = list();
    for (int i = 0; i < 128; ++i)
        steps.append(dict({{"command", 129}}));
    full.set("steps", steps);
    ASSERT_TRUE(slot.store(full));
    EXPECT_EQ(bytesOf(slot.header), (Bytes{69, 0, 178, 0}));
    EXPECT_EQ(bytesOf(slot.body.steps), Bytes(128, 129));
}

TEST(KyvarMacroDictToStruct, namesANamelessMacroWithAQuestionMark) {
    const auto nameless = macro(1);
    nameless.remove("name");
    const auto numberAsName = macro(1);
    numberAsName.set("name", 5);
    for (const auto& spoiled : {nameless, numberAsName, macro(1, u"")}) {
        MacroSlot slot;
        ASSERT_TRUE(slot.store(spoiled));
        EXPECT_EQ(bytesOf(slot.body.name), padded({0x3F, 0}, 40));
    }
}

TEST(KyvarMacroDictToStruct, takesAnEmptyDictionary) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(dict()));
    EXPECT_EQ(bytesOf(slot.header), (Bytes{0, 0, 50, 0}));
    EXPECT_EQ(bytesOf(slot.body), padded({0x3F}, 178));
}

TEST(KyvarMacroDictToStruct, takesStepsOfAnotherTypeForNone) {
    MacroSlot slot;
    const auto spoiled = macro(1);
    spoiled.set("steps", dict({{"command", 1}}));
    ASSERT_TRUE(slot.store(spoiled));
    EXPECT_EQ(slot.header.length[1], 50);
    EXPECT_EQ(bytesOf(slot.body.steps), Bytes(128, 0));
}

TEST(KyvarMacroDictToStruct, keepsTheLowBitsOfIdentifierAndDelay) {
    MacroSlot slot;
    const auto spoiled = macro(256 + 9);
    spoiled.set("delay", 0x11223344);
    ASSERT_TRUE(slot.store(spoiled));
    EXPECT_EQ(slot.header.macroId, 9);
    EXPECT_EQ(bytesOf(slot.body.delay), (Bytes{0x22, 0x33, 0x44}));
    spoiled.set("delay", -1);
    ASSERT_TRUE(slot.store(spoiled));
    EXPECT_EQ(bytesOf(slot.body.delay), (Bytes{0xFF, 0xFF, 0xFF}));
}

TEST(KyvarMacroDictToStruct, failsOnlyWithoutAnArgument) {
    MacroSlot slot;
    const auto header = bytesOf(slot.header);
    const auto body = bytesOf(slot.body);
    EXPECT_FALSE(slot.store({}));
    EXPECT_FALSE(KyvarMacroDictToStruct(macro(1), nullptr, &slot.body));
    EXPECT_FALSE(KyvarMacroDictToStruct(macro(1), &slot.header, nullptr));
    EXPECT_EQ(bytesOf(slot.header), header);
    EXPECT_EQ(bytesOf(slot.body), body);
}

TEST(KyvarMacroStructToDict, readsTheWholeMacro) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    EXPECT_EQ(Value(slot.read()), Value(macro(7)));
}

TEST(KyvarMacroStructToDict, givesNothingForASlotThatIsNotUsed) {
    MacroSlot slot;
    slot.header = {};
    slot.body = {};
    EXPECT_FALSE(slot.read());
}

TEST(KyvarMacroStructToDict, refusesAnIdentifierAbove69) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(69)));
    EXPECT_TRUE(slot.read());
    slot.header.macroId = 70;
    EXPECT_FALSE(slot.read());
    slot.header.macroId = 255;
    EXPECT_FALSE(slot.read());
}

TEST(KyvarMacroStructToDict, refusesANameThatMarksTheSlotAsUnused) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    slot.body.name[0] = 0xFF;
    EXPECT_TRUE(slot.read());
    slot.body.name[1] = 0xFF;
    EXPECT_FALSE(slot.read());
}

TEST(KyvarMacroStructToDict, refusesALengthOutside1To178) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    for (const int length : {0, 179, 256, 65535}) {
        slot.setLength(length);
        EXPECT_FALSE(slot.read()) << length;
    }
}

TEST(KyvarMacroStructToDict, readsNoStepsFromALengthUpTo50) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    for (const int length : {1, 49, 50}) {
        slot.setLength(length);
        const auto read = slot.read();
        ASSERT_TRUE(read) << length;
        EXPECT_EQ(Value(read.array("steps")), Value(list())) << length;
    }
}

TEST(KyvarMacroStructToDict, readsStepsUpToTheLengthOnly) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    const auto pressOnly = list({dict({{"command", 1}, {"argument", 4}})});
    slot.setLength(52);
    EXPECT_EQ(Value(slot.read().array("steps")), Value(pressOnly));
    slot.setLength(53); // the delay's argument is cut off
    EXPECT_EQ(Value(slot.read().array("steps")), Value(pressOnly));
}

TEST(KyvarMacroStructToDict, readsAllStepBytesOfTheGreatestLength) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    slot.body.steps.fill(128);
    slot.setLength(178);
    EXPECT_EQ(slot.read().array("steps").size(), 128U);
    slot.body.steps[127] = 19; // its argument would lie behind the body
    EXPECT_EQ(slot.read().array("steps").size(), 127U);
}

TEST(KyvarMacroStructToDict, givesAnEmptyNameForAZeroName) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    slot.body.name.fill(0);
    const auto read = slot.read();
    ASSERT_NE(read.value("name").string(), nullptr);
    EXPECT_EQ(read.string("name"), u"");
}

TEST(KyvarMacroStructToDict, givesNothingWithoutAnArgument) {
    MacroSlot slot;
    ASSERT_TRUE(slot.store(macro(7)));
    EXPECT_FALSE(KyvarMacroStructToDict(nullptr, &slot.body));
    EXPECT_FALSE(KyvarMacroStructToDict(&slot.header, nullptr));
}

} // namespace
} // namespace quorvi
