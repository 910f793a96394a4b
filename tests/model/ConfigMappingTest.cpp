#include "model/ConfigMapping.h"

#include <gtest/gtest.h>

#include <bit>
#include <memory>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;
using plist::Value;

class ConfigMapping : public testing::Test {
  protected:
    ConfigMapping() { fillWithGarbage(*m_record); }

    bool store(const Dictionary& tree) { return KyvarConfigDictToStruct(tree, m_record.get()); }
    [[nodiscard]] Dictionary read() const { return KyvarConfigStructToDict(m_record.get()); }
    [[nodiscard]] ConfigRecord& record() { return *m_record; }
    [[nodiscard]] Bytes bytesAt(std::size_t offset, std::size_t count) const {
        const auto all = bytesOf(*m_record);
        const auto first = all.begin() + static_cast<std::ptrdiff_t>(offset);
        return {first, first + static_cast<std::ptrdiff_t>(count)};
    }

  private:
    std::unique_ptr<ConfigRecord> m_record = std::make_unique<ConfigRecord>();
};

Array profilesNamed(std::initializer_list<const char16_t*> names) {
    const auto profiles = list();
    for (const auto* name : names)
        profiles.append(profile(name));
    return profiles;
}

TEST_F(ConfigMapping, putsEveryFieldAtItsOffset) {
    ASSERT_TRUE(store(tree()));
    const Bytes firmware = std::endian::native == std::endian::little ? Bytes{0x02, 0x01} : Bytes{0x01, 0x02};
    EXPECT_EQ(bytesAt(0, 2), firmware);
    EXPECT_EQ(bytesAt(2, 5), (Bytes{2, 1, 3, 28, 60}));
    EXPECT_EQ(bytesAt(7, 41), padded({0, 'G', 0, 'a', 0, 'm', 0, 'e', 0}, 41));
    EXPECT_EQ(bytesAt(212, 8), (Bytes{1, 3, 2, 2, 12, 12, 28, 60}));
    EXPECT_EQ(bytesAt(212 + 20, 4), (Bytes{1, 1, 0, 0}));
    EXPECT_EQ(bytesAt(492, 8), (Bytes{7, 0, 56, 0, 0, 0, 0, 0}));
    EXPECT_EQ(bytesAt(772, 8), (Bytes{'J', 0, 'u', 0, 'm', 0, 'p', 0}));
    EXPECT_EQ(bytesAt(772 + 40, 3), (Bytes{1, 2, 3}));
    EXPECT_EQ(bytesAt(772 + 50, 7), (Bytes{1, 4, 17, 20, 0, 4, 0}));
    EXPECT_EQ(bytesAt(772 + 178, 12460 - 178), Bytes(12460 - 178, 0));
}

TEST_F(ConfigMapping, clearsTheSlotsBehindTheLastProfile) {
    ASSERT_TRUE(store(tree(profilesNamed({u"A", u"B"}), list())));
    for (std::size_t slot = 2; slot < 5; ++slot) {
        Bytes emptyName(41, 0xFF);
        emptyName[0] = 0;
        EXPECT_EQ(bytesAt(7 + 41 * slot, 41), emptyName);
        EXPECT_EQ(bytesAt(212 + 56 * slot, 56), padded({static_cast<std::uint8_t>(slot + 1)}, 56));
    }
}

TEST_F(ConfigMapping, givesTheSlotOfAProfileThatDoesNotConvertToTheNext) {
    const auto profiles = profilesNamed({u"A", u"", u"B"});
    profiles.insert(0, 5);
    profiles.append(dict({{"name", u"without buttons"}}));
    ASSERT_TRUE(store(tree(profiles, list())));
    EXPECT_EQ(bytesAt(7, 3), (Bytes{0, 'A', 0}));
    EXPECT_EQ(bytesAt(7 + 41, 3), (Bytes{0, 'B', 0}));
    EXPECT_EQ(bytesAt(212, 1), (Bytes{1}));
    EXPECT_EQ(bytesAt(212 + 56, 1), (Bytes{2}));
    EXPECT_EQ(bytesAt(7 + 41 * 2, 3), (Bytes{0, 0xFF, 0xFF}));
}

TEST_F(ConfigMapping, clearsWhatAFailedProfileLeftInTheLastFreeSlot) {
    ASSERT_TRUE(store(tree(profilesNamed({u"A", u""}), list())));
    EXPECT_EQ(bytesAt(212 + 56, 56), padded({2}, 56));
    EXPECT_EQ(bytesAt(7 + 42, 40), Bytes(40, 0xFF));
}

TEST_F(ConfigMapping, carriesFiveProfiles) {
    ASSERT_TRUE(store(tree(profilesNamed({u"A", u"B", u"C", u"D", u"E", u"F"}), list())));
    EXPECT_EQ(bytesAt(7 + 41 * 4, 3), (Bytes{0, 'E', 0}));
    EXPECT_EQ(bytesAt(212 + 56 * 4, 1), (Bytes{5}));
    EXPECT_EQ(read().array("profiles").size(), 5U);
}

TEST_F(ConfigMapping, carriesTwelveMacrosThatConvert) {
    const auto macros = list({u"no macro", 5});
    for (int id = 0; id < 13; ++id)
        macros.append(macro(id + 20));
    ASSERT_TRUE(store(tree(list({profile()}), macros)));
    EXPECT_EQ(bytesAt(492, 4), (Bytes{20, 0, 56, 0}));
    EXPECT_EQ(bytesAt(492 + 4 * 11, 8), (Bytes{31, 0, 56, 0, 0, 0, 0, 0}));
    EXPECT_EQ(bytesAt(772 + 178 * 12, 178), Bytes(178, 0));
    EXPECT_EQ(read().array("macros").size(), 12U);
}

TEST_F(ConfigMapping, keepsTheLowSixteenBitsOfTheFirmware) {
    const auto spoiled = tree();
    spoiled.set("firmware", 0x7ABCDEF0);
    ASSERT_TRUE(store(spoiled));
    EXPECT_EQ(read().integer("firmware"), 0xDEF0);
    spoiled.set("firmware", -1);
    ASSERT_TRUE(store(spoiled));
    EXPECT_EQ(read().integer("firmware"), 0xFFFF);
}

TEST_F(ConfigMapping, takesATreeWithoutVersionFirmwareAndMacros) {
    const auto spoiled = tree();
    spoiled.remove("version");
    spoiled.remove("firmware");
    spoiled.remove("macros");
    ASSERT_TRUE(store(spoiled));
    EXPECT_EQ(bytesAt(0, 2), (Bytes{0, 0}));
    EXPECT_EQ(bytesAt(492, 12740), Bytes(12740, 0));
}

TEST_F(ConfigMapping, failsWithoutSettingsAndKeepsWhatWasConverted) {
    const auto spoiled = tree();
    spoiled.set("settings", list());
    EXPECT_FALSE(store(spoiled));
    spoiled.remove("settings");
    EXPECT_FALSE(store(spoiled));
    EXPECT_NE(bytesAt(0, 2), (Bytes{0, 0}));
    EXPECT_EQ(bytesAt(2, 13230), Bytes(13230, 0));
}

TEST_F(ConfigMapping, failsWithoutAProfileAndClearsAllSlots) {
    const auto spoiled = tree();
    for (const auto& profiles : {Value(), Value(u"profiles"), Value(list()), Value(profilesNamed({u""}))}) {
        spoiled.set("profiles", profiles);
        EXPECT_FALSE(store(spoiled));
        EXPECT_EQ(bytesAt(492, 4), (Bytes{7, 0, 56, 0}));
        EXPECT_EQ(bytesAt(212 + 56 * 4, 56), padded({5}, 56));
        EXPECT_EQ(bytesAt(7 + 41 * 4 + 1, 40), Bytes(40, 0xFF));
    }
}

TEST_F(ConfigMapping, failsWithoutAnArgument) {
    const auto before = bytesAt(0, 13232);
    EXPECT_FALSE(store({}));
    EXPECT_EQ(bytesAt(0, 13232), before);
    EXPECT_FALSE(KyvarConfigDictToStruct(tree(), nullptr));
    EXPECT_FALSE(KyvarConfigStructToDict(nullptr));
}

TEST_F(ConfigMapping, readsATreeWithAllKeys) {
    ASSERT_TRUE(store(tree()));
    const auto result = read();
    EXPECT_EQ(result.size(), 5U);
    EXPECT_EQ(result.integer("version"), 6);
    EXPECT_EQ(result.integer("firmware"), 0x0102);
    EXPECT_EQ(result.dictionary("settings").integer("pollingrate"), 1000);
    ASSERT_EQ(result.array("profiles").size(), 1U);
    const auto readProfile = result.array("profiles").dictionary(0);
    EXPECT_EQ(readProfile.string("name"), u"Game");
    EXPECT_EQ(readProfile.value("driver"), Value(dict()));
    EXPECT_EQ(Value(result.array("macros")), Value(list({macro(7)})));
}

TEST_F(ConfigMapping, givesEachProfileADriverDictionaryOfItsOwn) {
    ASSERT_TRUE(store(tree(profilesNamed({u"A", u"B"}), list())));
    const auto profiles = read().array("profiles");
    EXPECT_FALSE(
        profiles.dictionary(0).dictionary("driver").isSameAs(profiles.dictionary(1).dictionary("driver")));
}

TEST_F(ConfigMapping, readsProfilesAndMacrosAroundEmptySlots) {
    ASSERT_TRUE(store(tree(profilesNamed({u"A", u"B", u"C"}), list({macro(1), macro(2)}))));
    record().profileNames[1].name.fill(0xFF);
    record().macroHeaders[69] = record().macroHeaders[1];
    record().macroBodies[69] = record().macroBodies[1];
    record().macroHeaders[0].macroId = 255;
    const auto result = read();
    ASSERT_EQ(result.array("profiles").size(), 2U);
    EXPECT_EQ(result.array("profiles").dictionary(1).string("name"), u"C");
    ASSERT_EQ(result.array("macros").size(), 2U);
    EXPECT_EQ(result.array("macros").dictionary(1).integer("macroid"), 2);
}

TEST_F(ConfigMapping, readsARecordOfZerosAsFiveNamelessProfiles) {
    record() = {};
    const auto result = read();
    EXPECT_EQ(result.array("profiles").size(), 5U);
    EXPECT_EQ(result.array("macros").size(), 0U);
}

TEST_F(ConfigMapping, readsARecordOfOnesAsNoProfileAndNoMacro) {
    auto* first = reinterpret_cast<std::uint8_t*>(&record());
    std::fill(first, first + sizeof(ConfigRecord), std::uint8_t{0xFF});
    const auto result = read();
    EXPECT_EQ(result.integer("firmware"), 65535);
    EXPECT_EQ(result.dictionary("settings").integer("dpix"), 6475);
    EXPECT_EQ(Value(result.array("profiles")), Value(list()));
    EXPECT_EQ(Value(result.array("macros")), Value(list()));
}

} // namespace
} // namespace quorvi
