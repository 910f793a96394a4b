// Other programs' keys in the settings file, however large and deep.
#include <gtest/gtest.h>

#include "model/ConfigFileFixture.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;
namespace fs = std::filesystem;

Value manyKeys() {
    const auto many = Dictionary::create();
    for (int i = 0; i < 17'000; ++i)
        many.append("key " + std::to_string(i),
            Value(i % 2 == 0 ? Value(i) : Value(u"<\u00E9 & \U0001F5B1> of somebody else's")));
    return many;
}

/// Nested dictionaries and arrays, alternating.
Value nested(int levels) {
    Value inside = plist::Data{0, 255, 10};
    for (int level = 0; level < levels; ++level)
        inside = level % 2 == 0 ? Value(dict({{"before", 0.1}, {"below", inside}, {"after", true}}))
                                : Value(list({inside, u"beside"}));
    return inside;
}

class KeysOfOthers : public ConfigFileTest {
  protected:
    /// The expected content.
    [[nodiscard]] static Dictionary contentWith(const Value& theirs, int light) {
        return dict({{"theirs", theirs}, {"quorvi", settings(light)}, {"last", -1}});
    }
    /// Loads the file and saves it twice: once parsed, once from memory.
    void expectToSurvive(const Value& theirs) {
        ASSERT_EQ(Value(load()), Value(settings(1)));
        for (int light = 2; light < 4; ++light) {
            ASSERT_TRUE(file.save(settings(light)));
            EXPECT_EQ(readFile(path()), plist::writeXml(contentWith(theirs, light)).value());
        }
        ConfigFile another("quorvi", path());
        EXPECT_EQ(Value(another.load(kVersion, {})), Value(settings(3)));
        put(contentWith(theirs, 4)); // another writer's
        ASSERT_TRUE(file.save(settings(3)));
        EXPECT_EQ(readFile(path()), plist::writeXml(contentWith(theirs, 4)).value());
        EXPECT_EQ(folder.names(), std::set<std::string>{"file.plist"});
    }
};

TEST_F(KeysOfOthers, surviveThoughTheyAreSeventeenThousand) {
    put(contentWith(manyKeys(), 1));
    ASSERT_GT(fs::file_size(path()), 1U << 20U); // more than is remembered
    expectToSurvive(manyKeys());
}

TEST_F(KeysOfOthers, surviveThoughThereAreSeventeenThousandBesideTheTree) {
    const auto many = manyKeys().dictionary();
    many.set("quorvi", settings(1));
    put(many);
    ASSERT_EQ(Value(load()), Value(settings(1)));
    ASSERT_TRUE(file.save(settings(2)));
    many.set("quorvi", settings(2));
    EXPECT_EQ(readFile(path()), plist::writeXml(many).value());
}

TEST_F(KeysOfOthers, surviveThoughTheyAre128LevelsDeep) {
    put(contentWith(nested(128), 1));
    expectToSurvive(nested(128));
}

} // namespace
} // namespace quorvi
