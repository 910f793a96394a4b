// Compared with the general reader: every accepted table must be read equally.
#include "plist/PlainTexts.h"

#include <gtest/gtest.h>

#include <random>

#include "base/Unicode.h"
#include "plist/Samples.h"

namespace quorvi::plist {
namespace {

std::optional<Texts> plainTexts(std::string_view xml) {
    return readPlainTexts({reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size()});
}

std::string tableOf(std::string_view body) {
    return samples::document("<dict>" + std::string(body) + "</dict>");
}

std::string textOf(std::string_view key, std::string_view text) {
    return "<key>" + std::string(key) + "</key><string>" + std::string(text) + "</string>";
}

Texts textsOfTree(const Dictionary& tree) {
    Texts texts;
    for (const auto& [key, value] : tree.entries())
        if (const auto* text = value.string())
            texts.emplace(toUtf16(key), *text);
    return texts;
}

/// Returns whether the bytes were accepted; fails if the tree then differs.
bool isTakenAsTheTreeHasIt(const std::string& xml) {
    const auto texts = plainTexts(xml);
    if (!texts)
        return false;
    const Value tree = samples::read(xml);
    EXPECT_TRUE(tree.dictionary()) << xml;
    EXPECT_EQ(tree.dictionary().size(), texts->size()) << xml;
    EXPECT_EQ(textsOfTree(tree.dictionary()), *texts) << xml;
    return true;
}

const std::string kTable =
    tableOf("\n <!-- Of <b>things</b> --><!---->\n <key>A</key>\n\t<string>a b</string>\r\n" +
            textOf("Gr\u00F6\u00DFe &amp;&#13;&lt;&gt;&quot;&apos;", "\U0001F600 ]]> &amp;lt;") +
            textOf("line\nfeed", "\xFF?\xED\xA0\x80!") + "<!-- end --> ");

} // namespace

TEST(PlainTexts, AreThoseOfTheTree) {
    ASSERT_TRUE(isTakenAsTheTreeHasIt(kTable));
    EXPECT_EQ(plainTexts(kTable)->at(u"Gr\u00F6\u00DFe &\r<>\"'"), u"\U0001F600 ]]> &lt;");
    EXPECT_TRUE(isTakenAsTheTreeHasIt(tableOf("")));
}

TEST(PlainTexts, LeaveWhatIsNotUsualToTheTree) {
    for (const std::string& body : {textOf("A", ""), textOf("", "a"), textOf("A", " a"), textOf("A", "a\n"),
             textOf("A", "&eacute;"), textOf("A", "&#233;"), textOf("A", "&"), textOf("A", "<![CDATA[a]]>"),
             textOf("A", "a<!-- b -->"), textOf("A", "a") + textOf("A", "b"),
             textOf("\xFE", "a") + textOf("\xFF", "b"), std::string("<key>A</key><string/>"),
             std::string("<key>A</key><true/>"), std::string("<key>A</key>"),
             std::string("<key>A</key><dict></dict>"), std::string("<string>a</string>"),
             textOf("A", std::string("a\0b", 3)), std::string("<!-- <key>A</key>")})
        EXPECT_FALSE(plainTexts(tableOf(body))) << body;
    const std::string body = "<dict>" + textOf("A", "a") + "</dict>";
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    const std::string list = "<plist version=\"1.0\">" + body + "</plist>";
    EXPECT_TRUE(plainTexts(head + list));
    for (const std::string& xml : {std::string(), list, "\xEF\xBB\xBF" + head + list, head + list + "x",
             head + body, head + list + list, head + "<!DOCTYPE plist [<!ENTITY a \"b\">]>" + list,
             head + "<!DOCTYPE plist \"a>\" >" + list, head + "<!DOCTYPE plist",
             head + "<plist version=\"1.0\">" + body})
        EXPECT_FALSE(plainTexts(xml)) << xml;
}

TEST(PlainTexts, AreFewerThanATreeRefuses) {
    std::string body;
    for (int i = 0; i < 4096; ++i)
        body += textOf(std::to_string(i), "a");
    EXPECT_TRUE(isTakenAsTheTreeHasIt(tableOf(body)));
    EXPECT_FALSE(plainTexts(tableOf(body + textOf("one more", "a"))));
}

TEST(PlainTexts, OfDamagedTablesAreThoseOfTheTree) {
    constexpr std::string_view kPieces[] = {"<", ">", "&", ";", "\"", "/", "--", "<!--", "-->", "<key>",
        "</key>", "<string>", "</string>", "<string/>", "&amp;", "&#13;", "&lt;", "]]>", "<![CDATA[", " ",
        "\n", "\r", "A", "?>"};
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    int taken = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string xml = kTable;
        for (auto changes = 1 + below(2); changes > 0; --changes)
            xml.replace(below(xml.size()), below(4), kPieces[below(std::size(kPieces))]);
        taken += isTakenAsTheTreeHasIt(xml) ? 1 : 0;
    }
    EXPECT_GT(taken, 1000);
}

} // namespace quorvi::plist
