#include "plist/Value.h"

#include <gtest/gtest.h>

#include "plist/Samples.h"

namespace quorvi::plist {
namespace {

TEST(Value, ReadsNilHandlesAsNothing) {
    const Dictionary dictionary;
    EXPECT_FALSE(dictionary);
    EXPECT_EQ(dictionary.size(), 0U);
    EXPECT_FALSE(dictionary.has("a"));
    EXPECT_TRUE(dictionary.value("a").isNothing());
    EXPECT_EQ(dictionary.integer("a"), 0);
    EXPECT_FALSE(dictionary.boolean("a"));
    EXPECT_EQ(dictionary.real("a"), 0);
    EXPECT_EQ(dictionary.string("a"), u"");
    EXPECT_FALSE(dictionary.dictionary("a").array("b"));
    EXPECT_TRUE(dictionary.entries().empty());
    const Array array;
    EXPECT_FALSE(array);
    EXPECT_EQ(array.size(), 0U);
    EXPECT_TRUE(array.value(0).isNothing());
    EXPECT_FALSE(array.dictionary(0));
    EXPECT_TRUE(array.items().empty());
}

TEST(Value, IgnoresWritesToNilHandles) {
    const Dictionary dictionary;
    dictionary.set("a", 1);
    dictionary.append("a", 1);
    dictionary.remove("a");
    dictionary.removeAll();
    dictionary.reserve(5);
    EXPECT_EQ(dictionary.size(), 0U);
    const Array array;
    array.append(1);
    array.insert(0, 1);
    array.replace(0, 1);
    array.remove(0);
    array.removeAll();
    array.reserve(5);
    EXPECT_EQ(array.size(), 0U);
}

TEST(Value, IsNothingWhenMadeOfANilHandle) {
    EXPECT_TRUE(Value(Dictionary()).isNothing());
    EXPECT_TRUE(Value(Array()).isNothing());
    EXPECT_TRUE(Value(CarriedRef()).isNothing());
}

TEST(Value, ReadsAnotherTypeAsNothing) {
    const Value number(5);
    EXPECT_EQ(number.string(), nullptr);
    EXPECT_EQ(number.data(), nullptr);
    EXPECT_FALSE(number.dictionary());
    EXPECT_FALSE(number.array());
    EXPECT_EQ(*Value(u"text").string(), u"text");
    EXPECT_EQ(*Value(Data{1, 2}).data(), (Data{1, 2}));
}

TEST(Dictionary, SharesItsStorageAmongCopiesOfTheHandle) {
    const auto tree = Dictionary::create();
    tree.set("profile", Dictionary::create());
    const auto profile = tree.dictionary("profile");
    profile.set("name", u"first");
    EXPECT_EQ(tree.dictionary("profile").string("name"), u"first");
    EXPECT_TRUE(profile.isSameAs(tree.dictionary("profile")));
    EXPECT_FALSE(profile.isSameAs(Dictionary::create()));
    EXPECT_TRUE(Dictionary().isSameAs(Dictionary()));
}

TEST(Dictionary, KeepsAHandleAliveAfterItsRemovalFromTheTree) {
    const auto tree = Dictionary::create();
    tree.set("profile", Dictionary::create());
    const auto profile = tree.dictionary("profile");
    profile.set("stage", 3);
    tree.remove("profile");
    EXPECT_FALSE(tree.has("profile"));
    EXPECT_EQ(profile.integer("stage"), 3);
}

TEST(Dictionary, ReplacesInPlaceAndAppendsAtTheEnd) {
    const auto d = Dictionary::create();
    d.set("a", 1);
    d.set("b", 2);
    d.set("a", 3);
    ASSERT_EQ(d.size(), 2U);
    EXPECT_EQ(d.entries()[0].key, "a");
    EXPECT_EQ(d.integer("a"), 3);
    EXPECT_EQ(d.entries()[1].key, "b");
    d.removeAll();
    EXPECT_EQ(d.size(), 0U);
}

TEST(Dictionary, ComparesKeysExactly) {
    const auto d = Dictionary::create();
    d.set("Name", 1);
    EXPECT_FALSE(d.has("name"));
    EXPECT_FALSE(d.has("Nam"));
    EXPECT_TRUE(d.has("Name"));
}

TEST(Dictionary, RemovesByAViewOfItsOwnKey) {
    const auto d = Dictionary::create();
    for (const char* key : {"a", "b", "c"})
        d.set(key, 1);
    d.remove(d.entries()[0].key);
    ASSERT_EQ(d.size(), 2U);
    EXPECT_TRUE(d.has("b"));
    EXPECT_TRUE(d.has("c"));
}

TEST(Dictionary, KeepsItsEntriesWhenItOutgrowsTheirRoom) {
    const auto d = Dictionary::create();
    const Dictionary other = d;
    const auto key = [](std::int32_t number) { return "key" + std::to_string(number); };
    for (std::int32_t i = 0; i < 20; ++i)
        d.append(key(i), std::u16string(20, static_cast<char16_t>(u'a' + i)));
    ASSERT_EQ(other.size(), 20U);
    for (std::int32_t i = 0; i < 20; ++i)
        EXPECT_EQ(other.string(key(i)), std::u16string(20, static_cast<char16_t>(u'a' + i)));
    d.removeAll();
    d.reserve(40);
    d.set("a", other);
    EXPECT_TRUE(other.dictionary("a").isSameAs(d));
    d.removeAll();
}

TEST(Dictionary, AppendsNothingToANilHandle) {
    const Dictionary nil;
    nil.append("a", 1);
    EXPECT_EQ(nil.size(), 0U);
    Array().append(1);
    EXPECT_EQ(Array().size(), 0U);
}

TEST(Array, InsertsReplacesAndRemovesWithinItsBounds) {
    const auto array = Array::create();
    array.append(1);
    array.insert(0, 0);
    array.insert(99, 2);
    ASSERT_EQ(array.size(), 3U);
    for (std::int32_t i = 0; i < 3; ++i)
        EXPECT_EQ(array.value(static_cast<std::size_t>(i)).integer(), i);
    array.replace(1, 7);
    array.replace(3, 9);
    array.remove(3);
    array.remove(0);
    ASSERT_EQ(array.size(), 2U);
    EXPECT_EQ(array.value(0).integer(), 7);
    EXPECT_EQ(array.value(1).integer(), 2);
    EXPECT_TRUE(array.value(2).isNothing());
}

TEST(Array, SharesItsStorageAmongCopiesOfTheHandle) {
    const auto array = Array::create();
    const Array other = array;
    other.append(1);
    EXPECT_EQ(array.size(), 1U);
    EXPECT_TRUE(array.isSameAs(other));
}

Dictionary sample(std::int32_t number) {
    const auto items = Array::create();
    items.append(number);
    items.append(u"text");
    const auto d = Dictionary::create();
    d.set("number", number);
    d.set("items", items);
    return d;
}

TEST(Value, ComparesContent) {
    EXPECT_EQ(Value(sample(1)), Value(sample(1)));
    EXPECT_FALSE(Value(sample(1)) == Value(sample(2)));
    EXPECT_FALSE(Value(1) == Value(true));
    EXPECT_FALSE(Value(1) == Value(1.0));
    EXPECT_FALSE(Value(1) == Value());
    EXPECT_FALSE(Value(sample(1)) == Value(Array::create()));
    EXPECT_EQ(Value(), Value());
    EXPECT_EQ(Value(Data{1}), Value(Data{1}));
}

TEST(Value, ComparesDictionariesWhateverTheOrderOfTheirKeys) {
    const auto reversed = Dictionary::create();
    reversed.set("items", sample(1).value("items"));
    reversed.set("number", 1);
    EXPECT_EQ(Value(sample(1)), Value(reversed));
    reversed.set("more", 1);
    EXPECT_FALSE(Value(sample(1)) == Value(reversed));
    reversed.remove("number");
    EXPECT_FALSE(Value(sample(1)) == Value(reversed));
}

TEST(Value, ComparesANothingUnderAKeyAsItsOwn) {
    const auto a = Dictionary::create();
    a.set("k", Value());
    const auto b = Dictionary::create();
    b.set("k", Value());
    EXPECT_EQ(Value(a), Value(b));
    b.set("k", 1);
    EXPECT_FALSE(Value(a) == Value(b));
}

TEST(Value, ComparesCarriedValuesByContent) {
    const auto date = [](const char* text) { return samples::readBody(text); };
    EXPECT_EQ(date("<date>2020-01-02T03:04:05Z</date>"), date("<date>2020-01-02T03:04:05Z</date>"));
    EXPECT_FALSE(date("<date>2020-01-02T03:04:05Z</date>") == date("<date>2020-01-02T03:04:06Z</date>"));
    EXPECT_FALSE(
        date("<date>2020-01-02T03:04:05Z</date>") == date("<integer>18446744073709551615</integer>"));
}

TEST(Value, ComparesAContainerWithinItselfAsItself) {
    const auto array = Array::create();
    array.append(array);
    EXPECT_EQ(Value(array), Value(array));
    array.removeAll(); // else it would keep itself alive
}

} // namespace
} // namespace quorvi::plist
