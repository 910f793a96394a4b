// Grouping nodes into mice, the nodes to grab, and the names of mice.
#include "inputd/devices/MouseGroups.h"

#include <gtest/gtest.h>

namespace quorvi::inputd {
namespace {

const Ancestor kInput{"/sys/i/input5", "input", ""};
const Ancestor kHid{"/sys/h/0003:046D:C08B.0003", "hid", ""};
const Ancestor kReceiver{"/sys/h/0003:046D:C52B.0001", "hid", ""};
const Ancestor kInterface{"/sys/u/1-1/1-1:1.0", "usb", "usb_interface"};
const Ancestor kPlug{"/sys/u/1-1", "usb", "usb_device"};
const Ancestor kHub{"/sys/u/usb1", "usb", "usb_device"};

std::string groupOfAll(std::initializer_list<Ancestor> ancestors) {
    return groupOf({ancestors.begin(), ancestors.size()});
}

TEST(MouseGroups, AMouseWithACableIsItsUsbDeviceWithAllInterfaces) {
    EXPECT_EQ(groupOfAll({kInput, kHid, kInterface, kPlug, kHub}), kPlug.path);
}

TEST(MouseGroups, AMouseBehindAReceiverIsNotTheKeyboardBehindTheSame) {
    EXPECT_EQ(groupOfAll({kInput, kHid, kReceiver, kInterface, kPlug, kHub}), kHid.path);
}

TEST(MouseGroups, AMouseByRadioIsItsHidDeviceAndOneOfNeitherKindIsItself) {
    EXPECT_EQ(groupOfAll({kInput, kHid}), kHid.path);
    EXPECT_EQ(groupOfAll({kInput}), kInput.path);
    EXPECT_EQ(groupOfAll({}), "");
}

NodeFacts node(const std::string& path, const std::string& group, bool isMouse) {
    NodeFacts facts;
    facts.node = path;
    facts.name = "A mouse";
    facts.group = group;
    facts.place = "1-1";
    facts.vendor = 0x46D;
    facts.product = 0xC08B;
    facts.isMouse = isMouse;
    if (isMouse)
        for (const auto code : {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA})
            facts.keys.set(static_cast<std::size_t>(code));
    return facts;
}

TEST(MouseGroups, NodesOfOneGroupAreOneMouseAndKeyboardsAloneAreNone) {
    auto keyboard = node("event2", "g1", false);
    keyboard.dpi = 800;
    const auto mice =
        groupMice(std::vector{keyboard, node("event3", "g1", true), node("event4", "g2", false)});
    ASSERT_EQ(mice.size(), 1U);
    EXPECT_EQ(mice[0].id, "046d:c08b:1-1");
    EXPECT_EQ(mice[0].dpi, 800);
    ASSERT_EQ(mice[0].nodes.size(), 2U);
    EXPECT_EQ(mice[0].nodes[0].node, "event3");
}

TEST(MouseGroups, OurOwnDevicesAreNoMice) {
    auto own = node("event9", "g9", true);
    own.name = "Quorvi virtual pointer";
    EXPECT_TRUE(groupMice(std::vector{own}).empty());
}

TEST(MouseGroups, ASerialNumberGoesBeforeThePlaceAndEqualOnesAreToldApart) {
    auto one = node("event1", "/g1", true);
    one.unique = "0000";
    auto two = node("event2", "/g2", true);
    two.unique = "0000";
    auto three = node("event3", "/g3", true);
    three.unique = "0000";
    const auto mice = groupMice(std::vector{three, one, two});
    ASSERT_EQ(mice.size(), 3U);
    EXPECT_EQ(mice[0].id, "046d:c08b:0000");
    EXPECT_EQ(mice[1].id, "046d:c08b:0000@/g2");
    EXPECT_EQ(mice[2].id, "046d:c08b:0000@/g3");
}

TEST(MouseGroups, WhatADeviceSaysOfItselfIsMadePrintable) {
    auto odd = node("event1", "g1", true);
    odd.name = "A\xFFm\nouse\x7F";
    odd.unique = "a b\xC3\x28\n";
    const auto mice = groupMice(std::vector{odd});
    ASSERT_EQ(mice.size(), 1U);
    EXPECT_EQ(mice[0].name, "A?m?ouse?");
    EXPECT_EQ(mice[0].id, "046d:c08b:a_b_(_");
}

TEST(NodesToGrab, AreTheMiceAndOnlyThoseOthersThatHaveAnInput) {
    auto keyboard = node("event4", "g1", false);
    keyboard.keys.set(KEY_F13);
    auto volume = node("event5", "g1", false);
    volume.keys.set(KEY_VOLUMEUP);
    const auto mice = groupMice(std::vector{node("event3", "g1", true), keyboard, volume});
    ASSERT_EQ(mice.size(), 1U);
    auto codes = engine::usualButtonCodes;
    EXPECT_EQ(nodesToGrab(mice[0], codes), std::vector<std::string>{"event3"});
    codes[3] = KEY_F13;
    EXPECT_EQ(nodesToGrab(mice[0], codes), (std::vector<std::string>{"event3", "event4"}));
    codes[4] = 0;
    EXPECT_EQ(nodesToGrab(mice[0], codes), (std::vector<std::string>{"event3", "event4"}));
}

TEST(NodesToGrab, ACodeThatTheMouseHasItselfIsNotLookedForElsewhere) {
    auto keyboard = node("event4", "g1", false);
    keyboard.keys.set(BTN_SIDE);
    const auto mice = groupMice(std::vector{node("event3", "g1", true), keyboard});
    EXPECT_EQ(nodesToGrab(mice.at(0), engine::usualButtonCodes), std::vector<std::string>{"event3"});
}

TEST(KeyBits, AreReadFromTheKernelsWordsHighestFirst) {
    const auto bits = parseKeyBits("1f0000 0 0 0 8000000000000002");
    EXPECT_TRUE(bits.test(1));
    EXPECT_TRUE(bits.test(63));
    EXPECT_TRUE(bits.test(BTN_LEFT));
    EXPECT_TRUE(bits.test(BTN_EXTRA));
    EXPECT_EQ(bits.count(), 7U);
}

TEST(KeyBits, OfWhatIsNoSuchTextAreNone) {
    EXPECT_TRUE(parseKeyBits("").none());
    EXPECT_TRUE(parseKeyBits("1 g").none());
    EXPECT_TRUE(parseKeyBits("0x1").none());
    EXPECT_TRUE(parseKeyBits("1 ffffffffffffffffff").none());
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "ffffffffffffffff ";
    EXPECT_TRUE(parseKeyBits(many + "1").test(0));
}

} // namespace
} // namespace quorvi::inputd
