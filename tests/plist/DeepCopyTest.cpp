#include "plist/DeepCopy.h"

#include <gtest/gtest.h>

#include "plist/Limits.h"
#include "plist/Samples.h"

namespace quorvi::plist {
namespace {

Dictionary sample() {
    return samples::readBody(
        "<dict><key>list</key><array><dict><key>a</key><integer>1</integer></dict></array>"
        "<key>date</key><date>2020-01-02T03:04:05Z</date><key>text</key><string>x</string></dict>")
        .dictionary();
}

TEST(DeepCopy, HoldsTheSameContent) {
    const auto source = sample();
    const auto copy = mutableDeepCopy(source);
    EXPECT_EQ(Value(copy), Value(source));
    EXPECT_EQ(deepCopy(5), Value(5));
    EXPECT_EQ(deepCopy(Array::create()), Value(Array::create()));
}

TEST(DeepCopy, SharesNoContainerWithItsSource) {
    const auto source = sample();
    const auto copy = mutableDeepCopy(source);
    EXPECT_FALSE(copy.isSameAs(source));
    EXPECT_FALSE(copy.array("list").isSameAs(source.array("list")));
    copy.array("list").dictionary(0).set("a", 2);
    copy.array("list").append(3);
    copy.remove("text");
    EXPECT_EQ(Value(source), Value(sample()));
    source.set("text", u"y");
    EXPECT_FALSE(copy.has("text"));
}

TEST(DeepCopy, SeparatesWhatTheSourceShares) {
    const auto shared = Dictionary::create();
    const auto array = Array::create();
    array.append(shared);
    array.append(shared);
    const auto copy = deepCopy(array).array();
    ASSERT_EQ(copy.size(), 2U);
    EXPECT_FALSE(copy.dictionary(0).isSameAs(copy.dictionary(1)));
}

TEST(DeepCopy, IsNothingForATreeThatHoldsNothing) {
    EXPECT_TRUE(deepCopy(Value()).isNothing());
    EXPECT_FALSE(mutableDeepCopy(Dictionary()));
    const auto source = sample();
    source.array("list").append(Value());
    EXPECT_FALSE(mutableDeepCopy(source));
    source.array("list").remove(1);
    EXPECT_TRUE(mutableDeepCopy(source));
    source.array("list").dictionary(0).set("none", Value());
    EXPECT_FALSE(mutableDeepCopy(source));
}

TEST(DeepCopy, ReachesTheDepthLimitAndNoFurther) {
    const auto nested = [](std::size_t depth) {
        Value value(true);
        for (std::size_t i = 0; i < depth; ++i) {
            const auto d = Dictionary::create();
            d.set("k", value);
            value = d;
        }
        return value;
    };
    EXPECT_EQ(deepCopy(nested(kMaxDepth)), nested(kMaxDepth));
    EXPECT_TRUE(deepCopy(nested(kMaxDepth + 1)).isNothing());
}

TEST(DeepCopy, EndsOnAContainerWithinItself) {
    const auto d = Dictionary::create();
    d.set("self", d);
    d.set("again", d);
    EXPECT_FALSE(mutableDeepCopy(d));
    d.removeAll();
}

TEST(DeepCopy, EndsOnATreeThatSharesExponentially) {
    Value value(true);
    for (int i = 0; i < 60; ++i) {
        const auto array = Array::create();
        array.append(value);
        array.append(value);
        value = array;
    }
    EXPECT_TRUE(deepCopy(value).isNothing());
}

} // namespace
} // namespace quorvi::plist
