#include "model/RandomTrees.h"

#include <gtest/gtest.h>

#include <memory>

#include "model/ConfigMapping.h"
#include "model/NaiveEncoder.h"
#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;

constexpr int kTreeCount = 2000;

TEST(RandomTrees, giveTheSameRecordFromTwoEncoders) {
    RandomTrees trees(20241);
    const auto record = std::make_unique<ConfigRecord>();
    int converted = 0;
    for (int i = 0; i < kTreeCount; ++i) {
        const auto tree = trees.next();
        const auto expected = naiveEncode(tree);
        fillWithGarbage(*record);
        ASSERT_EQ(KyvarConfigDictToStruct(tree, record.get()), expected.converts) << "tree " << i;
        ASSERT_EQ(bytesOf(*record), expected.bytes) << "tree " << i;
        converted += expected.converts ? 1 : 0;
    }
    // Both outcomes must have been tried many times.
    EXPECT_GT(converted, kTreeCount / 2);
    EXPECT_LT(converted, kTreeCount - kTreeCount / 20);
}

// The first trip may still narrow a wide form whose number is small, or drop a delay of 0; then nothing
// changes.
TEST(RandomTrees, settleAfterARoundTrip) {
    RandomTrees trees(7);
    const auto record = std::make_unique<ConfigRecord>();
    const auto roundTrip = [&](const plist::Dictionary& tree) {
        return KyvarConfigDictToStruct(tree, record.get()) ? KyvarConfigStructToDict(record.get())
                                                           : plist::Dictionary();
    };
    int tried = 0;
    for (int i = 0; i < kTreeCount / 5; ++i) {
        const auto settled = roundTrip(roundTrip(trees.next()));
        if (!settled)
            continue;
        ASSERT_TRUE(plist::Value(roundTrip(settled)) == plist::Value(settled)) << "tree " << i;
        ++tried;
    }
    EXPECT_GT(tried, kTreeCount / 10);
}

TEST(RandomRecords, areReadWithoutLookingBehindTheirEnd) {
    RandomTrees random(99);
    // On the heap and of the exact size, so that a sanitizer sees any read beyond it.
    const auto record = std::make_unique<ConfigRecord>();
    auto* bytes = reinterpret_cast<std::uint8_t*>(record.get());
    std::size_t macros = 0;
    for (int i = 0; i < 40; ++i) {
        for (std::size_t at = 0; at < sizeof(ConfigRecord); ++at)
            bytes[at] = static_cast<std::uint8_t>(random.below(256));
        // Most random lengths are refused; these reach the last step byte.
        for (auto& header : record->macroHeaders)
            header.length = {0, static_cast<std::uint8_t>(170 + random.below(12))};
        const auto tree = KyvarConfigStructToDict(record.get());
        ASSERT_TRUE(tree);
        macros += tree.array("macros").size();
    }
    EXPECT_GT(macros, 200U);
}

} // namespace
} // namespace quorvi
