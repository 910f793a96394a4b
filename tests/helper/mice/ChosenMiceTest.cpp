// The file of the chosen mice.
#include "helper/mice/ChosenMice.h"

#include <gtest/gtest.h>

#include "helper/mice/Connection.h"
#include "model/Trees.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

class ChosenMiceFile : public testing::Test {
  protected:
    void write(const plist::Dictionary& tree) const {
        std::filesystem::create_directories(file.parent_path());
        writeFile(file, plist::writeXml(tree).value());
    }
    [[nodiscard]] plist::Dictionary written() const {
        return plist::readPropertyListFile(file).value.dictionary();
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "kyvar-quorvi/mice.plist";
};

TEST_F(ChosenMiceFile, ComesBackAsItWasWritten) {
    const ChosenMouse mouse{"Test mouse", true, 3200, {272, 273, 274, 279, 0, 30, 31}};
    ChosenMice mice(file);
    EXPECT_FALSE(mice.anyInUse());
    ASSERT_TRUE(mice.set("1e7d:2dcb", mouse));
    const ChosenMice again(file);
    EXPECT_EQ(again.models(), std::vector<std::string>{"1e7d:2dcb"});
    EXPECT_TRUE(again.anyInUse());
    const auto read = again.find("1e7d:2dcb");
    EXPECT_EQ(read.name, "Test mouse");
    EXPECT_EQ(read.dpi, 3200);
    EXPECT_EQ(read.codes, mouse.codes);
    EXPECT_FALSE(again.find("1e7d:0000").inUse);
}

TEST_F(ChosenMiceFile, KeepsWhatItDoesNotKnow) {
    write(dict({{"later", 7}, {"mice", dict({{"1e7d:2dcb", dict({{"colour", u"green"}})}})}}));
    ChosenMice mice(file);
    ASSERT_TRUE(mice.set("1e7d:2dcb", {"Test mouse", true, 0, engine::usualButtonCodes}));
    EXPECT_EQ(written().integer("later"), 7);
    EXPECT_EQ(written().dictionary("mice").dictionary("1e7d:2dcb").string("colour"), u"green");
}

TEST_F(ChosenMiceFile, IsReadWhateverItHolds) {
    write(dict({{"mice", dict({{"a", 3}, {"b", dict({{"inuse", u"yes"}, {"dpi", 99}, {"codes", 5}})},
                             {"c", dict({{"dpi", 70000}, {"codes", list({1, 2, 3, 4, 5, 6, 768})}})}})}}));
    const ChosenMice mice(file);
    EXPECT_EQ(mice.models(), (std::vector<std::string>{"b", "c"}));
    EXPECT_TRUE(mice.find("b").inUse);
    EXPECT_EQ(mice.find("b").dpi, 0);
    EXPECT_EQ(mice.find("b").codes, engine::usualButtonCodes);
    EXPECT_EQ(mice.find("c").dpi, 0);
    EXPECT_EQ(mice.find("c").codes, engine::usualButtonCodes);
}

TEST_F(ChosenMiceFile, ThatIsDamagedIsKeptAsideWhenThereIsSomethingToWrite) {
    std::filesystem::create_directories(file.parent_path());
    writeFile(file, "damaged");
    ChosenMice mice(file);
    EXPECT_TRUE(mice.models().empty());
    EXPECT_EQ(readFile(file), "damaged");
    ASSERT_TRUE(mice.set("1e7d:2dcb", {}));
    EXPECT_EQ(readFile(file.parent_path() / "mice.kept-1.plist"), "damaged");
    EXPECT_TRUE(written().dictionary("mice").has("1e7d:2dcb"));
}

TEST_F(ChosenMiceFile, HoldsNoMoreThanItMay) {
    ChosenMice mice(file);
    for (std::size_t i = 0; i < ChosenMice::most; ++i)
        ASSERT_TRUE(mice.set(modelOf(1, static_cast<std::uint16_t>(i)), {}));
    EXPECT_FALSE(mice.set("ffff:ffff", {}));
    EXPECT_TRUE(mice.set(modelOf(1, 1), {"Known", true, 0, engine::usualButtonCodes}));
    EXPECT_EQ(mice.models().size(), ChosenMice::most);
}

TEST_F(ChosenMiceFile, ThatCannotBeWrittenChangesNothing) {
    writeFile(folder / "kyvar-quorvi", "no folder");
    ChosenMice mice(file);
    EXPECT_FALSE(mice.set("1e7d:2dcb", {"Test mouse", true, 0, engine::usualButtonCodes}));
    EXPECT_FALSE(mice.anyInUse());
}

TEST_F(ChosenMiceFile, LiesInTheUsersFolderForSuch) {
    const EnvironmentVariable home("HOME", "/home/anna");
    {
        const EnvironmentVariable set("XDG_CONFIG_HOME", "/elsewhere");
        EXPECT_EQ(chosenMicePath(), "/elsewhere/kyvar-quorvi/mice.plist");
    }
    for (const auto& unusable : {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const EnvironmentVariable set("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(chosenMicePath(), "/home/anna/.config/kyvar-quorvi/mice.plist");
    }
}

TEST(MouseConnection, IsThatOfTheKernelsListOfDevices) {
    constexpr char devices[] =
        "I: Bus=0011 Vendor=0001 Product=0001 Version=ab41\nN: Name=\"AT keyboard\"\n\n"
        "I: Bus=0003 Vendor=1e7d Product=2dcb Version=0111\nN: Name=\"I: Bus=0005\"\n\n"
        "I: Bus=0005 Vendor=1e7d Product=2dcc Version=0111\n";
    EXPECT_EQ(connectionIn(devices, 0x1e7d, 0x2dcb), "usb");
    EXPECT_EQ(connectionIn(devices, 0x1e7d, 0x2dcc), "bluetooth");
    EXPECT_EQ(connectionIn(devices, 1, 1), "internal");
    EXPECT_EQ(connectionIn(devices, 0x1e7d, 0x2dcd), "");
    EXPECT_EQ(connectionIn("I: Bus=", 1, 1), "");
}

} // namespace
} // namespace quorvi::test
