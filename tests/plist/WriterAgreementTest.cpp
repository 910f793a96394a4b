// Compares our writer with libplist's, byte for byte, and with the reader's bounds: every written text can be
// read, and every readable tree is written.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <limits>
#include <random>
#include <sstream>

#include "model/RandomTrees.h"
#include "plist/LibplistWriter.h"
#include "plist/Limits.h"
#include "plist/Samples.h"
#include "plist/Writer.h"
#include "plist/XmlBounds.h"
#include "plist/XmlText.h"

namespace quorvi::plist {
namespace {

using samples::Binary;
using samples::libplistXml;
using samples::read;
using samples::readBody;
using samples::repeated;

constexpr std::uint32_t kTrees = 2000;

/// Trees of every type, with texts, keys and numbers that are easy to write wrongly.
class RandomValues {
  public:
    explicit RandomValues(std::uint32_t seed) : m_random(seed) {}

    // NOLINTNEXTLINE(misc-no-recursion): bounded by the levels
    Value value(int levels = 12) {
        switch (below(levels > 0 ? 12 : 8)) {
        case 0:
            return below(2) == 0;
        case 1:
            return static_cast<std::int64_t>(m_random() << below(64));
        case 2:
            return real();
        case 3:
            return data();
        case 4:
            return carried();
        case 5:
        case 6:
        case 7:
            return text();
        case 8:
        case 9:
            return array(levels - 1);
        default:
            return dictionary(levels - 1);
        }
    }

  private:
    std::size_t below(std::size_t count) { return m_random() % count; }

    Value real() {
        using Limits = std::numeric_limits<double>;
        static constexpr std::array reals{0.0, -0.0, 1.5, -0.1, 1e-7, 1e20, 123456789.125, Limits::max(),
            Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()};
        return reals[below(reals.size())];
    }
    Value data() {
        Data bytes(below(140));
        for (auto& byte : bytes)
            byte = static_cast<std::uint8_t>(m_random());
        return bytes;
    }
    Value carried() {
        static const std::array values{readBody("<date>1969-12-31T23:59:59Z</date>"),
            readBody("<date>hardly a date</date>"), readBody("<integer>18446744073709551615</integer>"),
            uid()};
        return values[below(values.size())];
    }
    static Value uid() {
        Binary file;
        file.add("\x80\x07");
        return read(file.bytes());
    }
    Value text() {
        static constexpr std::array<char16_t, 17> units{u'a', u' ', u'<', u'>', u'&', u'"', u'\'', u'\r',
            u'\n', u'\t', u'\0', 0x1, 0x7F, 0x4E2D, 0xD83D, 0xDE00, 0xFFFF};
        std::u16string result(below(20), u'a');
        for (auto& unit : result)
            unit = units[below(units.size())];
        return result;
    }
    std::string key() {
        static constexpr std::string_view bytes("ab<>&\n\0\x01\x7F\xC3\xA9\xFF", 12);
        std::string result(below(6), 'k');
        for (auto& byte : result)
            byte = bytes[below(bytes.size())];
        return result;
    }
    Array array(int levels) {
        auto result = Array::create();
        for (auto count = below(5); count-- > 0;)
            result.append(value(levels));
        return result;
    }
    Dictionary dictionary(int levels) {
        auto result = Dictionary::create();
        for (auto count = below(6); count-- > 0;)
            result.set(key(), value(levels));
        return result;
    }

    std::mt19937_64 m_random;
};

TEST(WriterAgreement, WritesRandomValuesAsLibplistDoes) {
    RandomValues values(20261);
    for (std::uint32_t i = 0; i < kTrees; ++i) {
        const Value value = values.value();
        ASSERT_EQ(writeXml(value).value_or("nothing"), libplistXml(value)) << "value " << i;
    }
}

TEST(WriterAgreement, WritesRandomConfigurationsAsLibplistDoes) {
    test::RandomTrees trees(20262);
    for (std::uint32_t i = 0; i < kTrees / 20; ++i) {
        const Value tree = trees.next();
        ASSERT_EQ(writeXml(tree).value_or("nothing"), libplistXml(tree)) << "tree " << i;
    }
}

TEST(WriterAgreement, WritesEverySampleFileAsLibplistDoes) {
    int files = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(QUORVI_TEST_DATA)) {
        if (file.path().extension() != ".plist")
            continue;
        const Value value = readPropertyListFile(file.path()).value;
        ASSERT_EQ(writeXml(value).value_or(""), libplistXml(value)) << file.path();
        files += value.isNothing() ? 0 : 1;
    }
    EXPECT_GT(files, 20);
}

TEST(WriterAgreement, WritesDataAtEveryDepthAsLibplistDoes) {
    for (std::size_t length = 0; length < 140; ++length) {
        Value value(Data(length, 0xA5));
        for (int depth = 0; depth < 11; ++depth) {
            ASSERT_EQ(writeXml(value), libplistXml(value)) << length << " bytes, depth " << depth;
            const auto array = Array::create();
            array.append(value);
            value = array;
        }
    }
}

/// The writer's expected text, without limits.
std::string xmlOf(std::string_view body) {
    return std::string(XmlText::kProlog).append(body).append(XmlText::kEpilog);
}

/// Expects that the writer returns the text exactly if the reader's bounds allow it; returns whether they do.
bool agreeOn(const Value& value, const std::string& text) {
    const bool bounded = isBoundedXml(text);
    const auto written = writeXml(value);
    EXPECT_EQ(written.has_value(), bounded);
    EXPECT_TRUE(!written || *written == text);
    return bounded;
}

bool agreeOnDictionaries(std::size_t count) {
    const auto array = Array::create();
    const auto dictionary = Dictionary::create();
    dictionary.set("k", Dictionary::create());
    for (std::size_t i = 0; i < count; ++i)
        array.append(dictionary);
    const std::string text = "\t<dict>\n\t\t<key>k</key>\n\t\t<dict/>\n\t</dict>\n";
    return agreeOn(array, xmlOf("<array>\n" + repeated(text, count) + "</array>\n"));
}

TEST(WriterBounds, AreTheReadersForTheNumberOfValuesAndKeys) {
    EXPECT_TRUE(agreeOnDictionaries((kMaxNodes - 1) / 3));
    EXPECT_FALSE(agreeOnDictionaries((kMaxNodes - 1) / 3 + 1));
}

/// A UID is one value of a tree, and a dictionary with a key and a number in the text.
bool agreeOnUids(std::size_t count) {
    Binary file;
    file.add("\x80\x07");
    const Value uid = read(file.bytes());
    const auto array = Array::create();
    for (std::size_t i = 0; i < count; ++i)
        array.append(uid);
    const std::string text = "\t<dict>\n\t\t<key>CF$UID</key>\n\t\t<integer>7</integer>\n\t</dict>\n";
    return agreeOn(array, xmlOf("<array>\n" + repeated(text, count) + "</array>\n"));
}

TEST(WriterBounds, AreTheReadersForTheNumberOfUids) {
    EXPECT_TRUE(agreeOnUids((kMaxNodes - 1) / 3));
    EXPECT_FALSE(agreeOnUids((kMaxNodes - 1) / 3 + 1));
}

bool agreeOnKeys(std::size_t count) {
    const auto dictionary = Dictionary::create();
    std::string body = "<dict>\n";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string key = "k" + std::to_string(i);
        dictionary.append(key, true);
        body += "\t<key>" + key + "</key>\n\t<true/>\n";
    }
    return agreeOn(dictionary, xmlOf(body + "</dict>\n"));
}

TEST(WriterBounds, AreTheReadersForTheKeysOfADictionary) {
    EXPECT_TRUE(agreeOnKeys(23170));
    EXPECT_FALSE(agreeOnKeys(23171));
}

bool agreeOnEntities(std::size_t count) {
    return agreeOn(std::u16string(count, u'&'), xmlOf("<string>" + repeated("&amp;", count) + "</string>\n"));
}

TEST(WriterBounds, AreTheReadersForTheEntitiesOfAText) {
    std::size_t most = 1;
    while (entityWork(most + 1, 5 * (most + 1)) <= kMaxWork)
        ++most;
    EXPECT_TRUE(agreeOnEntities(most));
    EXPECT_FALSE(agreeOnEntities(most + 1));
}

/// Arrays within each other, the lines in the innermost one.
std::string nestedXml(std::size_t depth, const std::string& innermost) {
    std::string body;
    for (std::size_t i = 0; i < depth; ++i)
        body += std::string(i, '\t') + "<array>\n";
    std::istringstream lines(innermost);
    for (std::string line; std::getline(lines, line);)
        body += std::string(depth, '\t') + line + "\n";
    for (std::size_t i = depth; i-- > 0;)
        body += std::string(i, '\t') + "</array>\n";
    return xmlOf(body);
}

bool agreeOnDepth(std::size_t depth, Value value, const std::string& innermost) {
    for (std::size_t i = 0; i < depth; ++i) {
        const auto array = Array::create();
        array.append(std::move(value));
        value = array;
    }
    return agreeOn(value, nestedXml(depth, innermost));
}

TEST(WriterBounds, AreTheReadersForTheDepth) {
    EXPECT_TRUE(agreeOnDepth(kMaxDepth, true, "<true/>"));
    EXPECT_TRUE(agreeOnDepth(kMaxDepth - 1, Dictionary::create(), "<dict/>"));
    EXPECT_FALSE(agreeOnDepth(kMaxDepth, Dictionary::create(), "<dict/>"));
    EXPECT_FALSE(agreeOnDepth(kMaxDepth, Array::create(), "<array/>"));
    Binary uid;
    uid.add("\x80\x07");
    const auto uidText = "<dict>\n\t<key>CF$UID</key>\n\t<integer>7</integer>\n</dict>";
    EXPECT_TRUE(agreeOnDepth(kMaxDepth - 1, read(uid.bytes()), uidText));
    EXPECT_FALSE(agreeOnDepth(kMaxDepth, read(uid.bytes()), uidText));
}

/// Most of the text stands before deep values, where it is soon written and read.
bool agreeOnSize(std::size_t size) {
    constexpr std::size_t depth = 120;
    const std::size_t count = size / (depth + 9) - 200;
    const auto array = Array::create();
    for (std::size_t i = 0; i < count; ++i)
        array.append(true);
    const auto linesWith = [&](const std::string& text) {
        return "<array>\n" + repeated("\t<true/>\n", count) + "\t<string>" + text + "</string>\n</array>";
    };
    const std::size_t missing = size - nestedXml(depth, linesWith("")).size();
    array.append(std::u16string(missing, u'a'));
    return agreeOnDepth(depth, array, linesWith(std::string(missing, 'a')));
}

TEST(WriterBounds, AreTheReadersForTheSize) {
    EXPECT_TRUE(agreeOnSize(kMaxBytes));
    EXPECT_FALSE(agreeOnSize(kMaxBytes + 1));
}

} // namespace
} // namespace quorvi::plist
