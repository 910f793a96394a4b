// Malicious files: each must be refused at once and without a crash.

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "plist/Limits.h"
#include "plist/Samples.h"
#include "plist/XmlBounds.h"

namespace quorvi::plist {
namespace {

using samples::Binary;
using samples::document;
using samples::read;
using samples::readBody;
using samples::repeated;

std::string nestedXml(std::string_view open, std::string_view close, std::size_t depth) {
    return document(repeated(open, depth) + "<true/>" + repeated(close, depth));
}

TEST(HostileXml, IsReadToTheDepthLimitAndNoFurther) {
    EXPECT_TRUE(read(nestedXml("<array>", "</array>", kMaxDepth)).array());
    EXPECT_TRUE(read(nestedXml("<array>", "</array>", kMaxDepth + 1)).isNothing());
    EXPECT_TRUE(
        readBody(repeated("<array>", kMaxDepth) + "<array/>" + repeated("</array>", kMaxDepth)).isNothing());
    const std::string dict = "<dict><key>a</key>";
    EXPECT_TRUE(read(nestedXml(dict, "</dict>", kMaxDepth)).dictionary());
    EXPECT_TRUE(read(nestedXml(dict, "</dict>", kMaxDepth + 1)).isNothing());
}

TEST(HostileXml, IsRefusedWhenNestedWithoutEnd) {
    constexpr std::size_t depth = 200000;
    EXPECT_TRUE(read(nestedXml("<array>", "</array>", depth)).isNothing());
    EXPECT_TRUE(read(nestedXml("<dict><key>a</key>", "</dict>", depth)).isNothing());
    EXPECT_TRUE(read(repeated("<array>", depth)).isNothing()) << "never closed";
    EXPECT_TRUE(read(std::string("<plist>") + repeated("<array a='>'>", depth)).isNothing())
        << "with attributes";
    EXPECT_TRUE(read(std::string("<plist>") + repeated("<array \">\">", depth)).isNothing()) << "with quotes";
    EXPECT_TRUE(read(repeated("<plist>", depth)).isNothing());
}

TEST(HostileXml, CannotHideNestingFromTheBound) {
    const std::string deep = repeated("<array>", 200000);
    for (const char* cover : {"<!-->", "<!--->", "<!-- --", "<?\"?>", "<?x \"?>\"?>", "<!DOCTYPE \">",
             "<!DOCTYPE [\">]>\"]>", "<!DOCTYPE [<!-- \" -->]>", "<array/ >", "<array \"/\">",
             "<string>]]></string>", "<string><![CDATA[]]]]></string>", "<string><!-- --></string>",
             "<string></string \n>", "<true>", "<key/>", "<array></array/>"})
        EXPECT_TRUE(read("<plist>" + std::string(cover) + deep).isNothing()) << cover;
}

TEST(HostileXml, MayHoldWhatOnlyLooksNested) {
    const std::string deep = repeated("<array>", 1000);
    EXPECT_EQ(readBody(std::string("<!--") + deep + "--><true/>"), Value(true));
    EXPECT_EQ(readBody(std::string("<string><![CDATA[") + deep + "]]></string>").string()->size(), 7000U);
    EXPECT_EQ(
        readBody(std::string("<array>") + repeated("<array/>", 1000) + "</array>").array().size(), 1000U);
    EXPECT_EQ(read("<!DOCTYPE plist [" + deep + "]><plist><true/></plist>"), Value(true));
}

TEST(HostileXml, IsBoundedInItsValues) {
    const auto trues = [](std::size_t count) {
        return document(std::string("<array>") + repeated("<true/>", count) + "</array>");
    };
    EXPECT_TRUE(isBoundedXml(trues(kMaxNodes - 1)));
    EXPECT_FALSE(isBoundedXml(trues(kMaxNodes)));
    EXPECT_TRUE(read(trues(kMaxNodes)).isNothing());
    EXPECT_TRUE(isBoundedXml(trues(9), {.nodes = 10}));
    EXPECT_FALSE(isBoundedXml(trues(10), {.nodes = 10})) << "whoever asks for less gets less";
    EXPECT_FALSE(isBoundedXml(trues(1), {.bytes = 20}));
}

TEST(HostileXml, IsBoundedInADictionarysKeys) {
    const auto dict = [](std::size_t count) {
        std::string body = "<dict>";
        for (std::size_t i = 0; i < count; ++i)
            body += std::string("<key>k") + std::to_string(i) + "</key><true/>";
        return body + "</dict>";
    };
    EXPECT_EQ(readBody(dict(23170)).dictionary().size(), 23170U);
    EXPECT_TRUE(readBody(dict(23171)).isNothing());
}

TEST(HostileXml, IsBoundedInATextsEntities) {
    EXPECT_EQ(
        readBody(std::string("<string>") + repeated("&lt;", 50000) + "</string>").string()->size(), 50000U);
    EXPECT_TRUE(readBody(std::string("<string>") + repeated("&lt;", 200000) + "</string>").isNothing());
}

TEST(HostileXml, IsBoundedInItsSize) {
    const std::string blanks(kMaxBytes, ' ');
    EXPECT_TRUE(read(document("<true/>") + blanks).isNothing());
}

std::string nestedBinary(std::uint16_t depth) {
    Binary file;
    for (std::uint16_t i = 1; i <= depth; ++i)
        file.addArray({i});
    file.add("\x09");
    return file.bytes();
}

TEST(HostileBinary, IsReadToTheDepthLimitAndNoFurther) {
    EXPECT_TRUE(read(nestedBinary(kMaxDepth)).array());
    EXPECT_TRUE(read(nestedBinary(kMaxDepth + 1)).isNothing());
    EXPECT_TRUE(read(nestedBinary(65000)).isNothing());
    Binary empty;
    empty.addArray({kMaxDepth, 1}); // the empty array is found near the root first, and then below the limit
    for (std::uint16_t i = 1; i < kMaxDepth; ++i)
        empty.addArray({static_cast<std::uint16_t>(i + 1)});
    empty.addArray({});
    EXPECT_TRUE(read(empty.bytes()).isNothing());
}

TEST(HostileBinary, IsMeasuredAlongItsLongestPath) {
    // A tail of 64 arrays, which the root reaches at once and then again at the end of another chain.
    const auto twoPaths = [](std::uint16_t chain) {
        constexpr std::uint16_t tail = 64;
        const auto chainAt = static_cast<std::uint16_t>(tail + 1);
        Binary file;
        file.addArray({1, chainAt});
        for (std::uint16_t i = 2; i <= tail; ++i)
            file.addArray({i});
        file.addArray({});
        for (std::uint16_t i = 1; i < chain; ++i)
            file.addArray({static_cast<std::uint16_t>(chainAt + i)});
        file.addArray({1});
        return file.bytes();
    };
    EXPECT_TRUE(read(twoPaths(kMaxDepth - 65)).array());
    EXPECT_TRUE(read(twoPaths(kMaxDepth - 64)).isNothing());
}

TEST(HostileBinary, IsRefusedWhenAnObjectHoldsItself) {
    Binary itself;
    itself.addArray({0});
    EXPECT_TRUE(read(itself.bytes()).isNothing());
    Binary pair;
    pair.addArray({1});
    pair.addDictionary({2}, {0});
    pair.addText("a");
    EXPECT_TRUE(read(pair.bytes()).isNothing());
}

TEST(HostileBinary, IsRefusedAtOnceWhenItGrowsExponentially) {
    Binary file;
    for (std::uint16_t i = 1; i <= 100; ++i)
        file.addArray({i, i});
    file.addText("laugh");
    ASSERT_LT(file.bytes().size(), 1200U);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(read(file.bytes()).isNothing());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(HostileBinary, IsRefusedWhenItsTextsGrowBeyondTheLimit) {
    const auto texts = [](std::size_t count) {
        Binary file;
        file.addArray(Binary::References(count, 1));
        file.addText(std::string(1U << 20U, 'x'));
        return file.bytes();
    };
    EXPECT_EQ(read(texts(2)).array().size(), 2U);
    EXPECT_TRUE(read(texts(65)).isNothing());
}

TEST(HostileBinary, IsRefusedWhenDictionariesWithManyKeysRepeat) {
    const auto dictionaries = [](std::size_t count) {
        Binary file;
        file.addArray(Binary::References(count, 1));
        Binary::References keys;
        for (std::uint16_t i = 0; i < 2000; ++i)
            keys.push_back(static_cast<std::uint16_t>(i + 2));
        file.addDictionary(keys, keys);
        for (std::uint16_t i = 0; i < 2000; ++i)
            file.addText(std::to_string(i));
        return file.bytes();
    };
    EXPECT_EQ(read(dictionaries(1)).array().dictionary(0).size(), 2000U);
    EXPECT_TRUE(read(dictionaries(140)).isNothing());
}

TEST(HostileBinary, IsRefusedWithAWrongTrailer) {
    const std::string object = "bplist00\x09";
    const auto file = [&](const std::string& table, const std::string& trailer) {
        return read(object + table + trailer).isNothing();
    };
    const std::string table(1, '\x08');
    EXPECT_FALSE(file(table, Binary::trailer(1, 1, 1, 0, 9))) << "the right one";
    EXPECT_TRUE(file(table, Binary::trailer(0, 1, 1, 0, 9))) << "no offset size";
    EXPECT_TRUE(file(std::string(8, '\0') + table, Binary::trailer(9, 1, 1, 0, 9)))
        << "offset size too large";
    EXPECT_TRUE(file(table, Binary::trailer(1, 0, 1, 0, 9))) << "no reference size";
    EXPECT_TRUE(file(table, Binary::trailer(1, 9, 1, 0, 9))) << "reference size too large";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 0, 0, 9))) << "no objects";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 2, 0, 9))) << "more objects than offsets";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, UINT64_MAX, 0, 9))) << "objects without end";
    EXPECT_TRUE(file(table, Binary::trailer(8, 1, 1ULL << 61U, 0, 9))) << "a table size that wraps";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 1, 1, 9))) << "root past the end";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 1, 0, 10))) << "table past the end";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 1, 0, UINT64_MAX))) << "table far away";
    EXPECT_TRUE(file(table, Binary::trailer(1, 1, 1, 0, 0))) << "table in the header";
    EXPECT_TRUE(file("\x09", Binary::trailer(1, 1, 1, 0, 9))) << "offset in the table";
    EXPECT_TRUE(file("\x07", Binary::trailer(1, 1, 1, 0, 9))) << "offset in the header";
}

TEST(HostileBinary, IsRefusedWhenALengthRunsPastTheEnd) {
    for (const std::string object : {"\x45z", "\x55z", "\x65z", "\xA5z", "\xD5z", "\x5F", "\x5F\x10",
             "\x5F\x20\x01", "\x5F\x14\x01", "\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
             "\xAF\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "\xDF\x13\x80\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "\x13z",
             "\x23z", "\x33z", "\x80", "\xF0", "\x70", "\x1F", "\x2F", "\x60"}) {
        Binary file;
        file.add(object);
        EXPECT_TRUE(read(file.bytes()).isNothing()) << testing::PrintToString(object);
    }
}

TEST(HostileBinary, IsRefusedWhenItsObjectsShareTheirBytes) {
    // An array of a thousand objects, all of which are the one array of 60,000 truths.
    std::string file = "bplist00";
    constexpr std::uint64_t others = 1000;
    file += Binary::head(0xA0, others);
    for (std::uint64_t i = 1; i <= others; ++i)
        file += samples::bigEndian(i, 2);
    const auto sharedAt = file.size();
    file += Binary::head(0xA0, 60000) + repeated(samples::bigEndian(others + 1, 2), 60000);
    const auto truthAt = file.size();
    file += '\x09';
    const auto tableAt = file.size();
    file += samples::bigEndian(8, 4) + repeated(samples::bigEndian(sharedAt, 4), others) +
            samples::bigEndian(truthAt, 4) + Binary::trailer(4, 2, others + 2, 0, tableAt);
    EXPECT_TRUE(read(file).isNothing());
}

std::string sampleXml() {
    return document(
        "<dict><!-- c --><key>a</key><array><integer>1</integer><string>x&amp;y<![CDATA[z]]></string></array>"
        "<key>b</key><dict><key>c</key><data>AQID</data><key>d</key><date>2020-01-02T03:04:05Z</date>"
        "</dict></dict>");
}

std::string sampleBinary() {
    Binary file;
    file.addDictionary({1, 2}, {3, 4});
    file.addText("a");
    file.addUtf16(u"\u00E9");
    file.addArray({1, 2, 5});
    file.addDictionary({1}, {5});
    file.add(std::string("\x33\x41") + std::string(7, '\0'));
    return file.bytes();
}

TEST(HostileInput, IsRefusedWhenCutShortAnywhere) {
    const std::string xml = sampleXml();
    ASSERT_TRUE(read(xml).dictionary());
    for (std::size_t length = 0; length < xml.size() - 1; ++length) // all but the last line end
        EXPECT_TRUE(read(xml.substr(0, length)).isNothing()) << length;
    const std::string binary = sampleBinary();
    ASSERT_TRUE(read(binary).dictionary());
    for (std::size_t length = 0; length < binary.size(); ++length)
        EXPECT_TRUE(read(binary.substr(0, length)).isNothing()) << length;
}

TEST(HostileInput, NeverCrashesTheReader) {
    std::mt19937 random(1);
    const std::string seeds[] = {sampleXml(), sampleBinary(), std::string(200, '\0'), nestedBinary(20),
        nestedXml("<array>", "</array>", 20)};
    const std::string pieces[] = {"<array>", "</array>", "<dict>", "\"", "<!--", "-->", "]]>", "/>", "<", ">",
        "\xFF", std::string(1, '\0'), "\xAF", "&#x;", "&"};
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = seeds[random() % std::size(seeds)];
        for (unsigned change = random() % 6; change-- > 0;) {
            const std::size_t at = random() % bytes.size();
            if (random() % 2 == 0)
                bytes[at] = static_cast<char>(random());
            else
                bytes.replace(at, random() % 3, pieces[random() % std::size(pieces)]);
        }
        const Value value = read(bytes);
        ASSERT_EQ(value, value) << round;
    }
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        EXPECT_TRUE(read(bytes).isNothing());
    }
}

} // namespace
} // namespace quorvi::plist
