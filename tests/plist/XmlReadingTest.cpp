#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

#include "plist/Samples.h"
#include "plist/Writer.h"

namespace quorvi::plist {
namespace {

using samples::document;
using samples::read;
using samples::readBody;

TEST(XmlReading, ReadsEachType) {
    const auto d =
        readBody("<dict>"
                 "<key>string</key><string>a &lt;b&gt; &amp; &#233;&quot;&apos; \xF0\x9F\x98\x80</string>"
                 "<key>integer</key><integer>-5</integer>"
                 "<key>hexadecimal</key><integer>0x1F</integer>"
                 "<key>real</key><real>2.5</real>"
                 "<key>true</key><true/>"
                 "<key>false</key><false></false>"
                 "<key>data</key><data>AQID\n\t/w==</data>"
                 "<key>array</key><array><integer>1</integer><array/></array>"
                 "<key>dict</key><dict/>"
                 "</dict>")
            .dictionary();
    ASSERT_EQ(d.size(), 9U);
    EXPECT_EQ(d.value("string"), Value(u"a <b> & \u00E9\"' \U0001F600"));
    EXPECT_EQ(d.value("integer"), Value(-5));
    EXPECT_EQ(d.value("hexadecimal"), Value(31));
    EXPECT_EQ(d.value("real"), Value(2.5));
    EXPECT_EQ(d.value("true"), Value(true));
    EXPECT_EQ(d.value("false"), Value(false));
    EXPECT_EQ(d.value("data"), Value(Data{1, 2, 3, 255}));
    ASSERT_EQ(d.array("array").size(), 2U);
    EXPECT_TRUE(d.array("array").value(1).array());
    EXPECT_TRUE(d.dictionary("dict"));
    EXPECT_EQ(d.entries().front().key, "string");
    EXPECT_EQ(d.entries().back().key, "dict");
}

TEST(XmlReading, ReadsEmptyValues) {
    const auto d = readBody("<dict><key></key><string></string><key>s</key><string/><key>i</key><integer/>"
                            "<key>d</key><data></data><key>b</key><data/></dict>")
                       .dictionary();
    ASSERT_EQ(d.size(), 5U);
    EXPECT_EQ(d.value(""), Value(u""));
    EXPECT_EQ(d.value("s"), Value(u""));
    EXPECT_EQ(d.value("i"), Value(0));
    EXPECT_EQ(d.value("d"), Value(Data()));
    EXPECT_EQ(d.value("b"), Value(Data()));
}

TEST(XmlReading, ReadsTheFormsThatXmlAllows) {
    EXPECT_EQ(
        readBody("<string>a<!-- <array> -->b<![CDATA[<dict>&amp;]]>c</string>"), Value(u"ab<dict>&amp;c"));
    EXPECT_EQ(readBody("<!-- <array> \" --><array ><true /></array >").array().size(), 1U);
    EXPECT_EQ(read("<!DOCTYPE plist [\n<!ELEMENT a (b)>\n<!ENTITY c \"]>\">\n]>\n<plist><true/></plist>"),
        Value(true));
    EXPECT_EQ(read("<?xml version=\"1.0\"?><?a \"?>\" ?><plist><true/></plist><!-- end -->"), Value(true));
    EXPECT_EQ(read("\xEF\xBB\xBF" + document("<true/>")), Value(true)) << "byte-order mark";
    EXPECT_EQ(read("\n <dict/>\r\n").dictionary().size(), 0U) << "without the plist element";
    EXPECT_EQ(readBody("<integer>  7</integer>"), Value(7));
    EXPECT_EQ(readBody("<array a=\"/>\"><true/></array>").array().size(), 1U);
}

TEST(XmlReading, IsLenientWithinValues) {
    EXPECT_EQ(readBody("<integer>12abc</integer>"), Value(12));
    EXPECT_EQ(readBody("<integer>abc</integer>"), Value(0));
    EXPECT_EQ(readBody("<string>\xFFz</string>"), Value(u"\uFFFDz"));
}

TEST(XmlReading, LetsTheLaterOfEqualKeysWin) {
    const auto d = readBody("<dict><key>a</key><integer>1</integer><key>b</key><integer>2</integer>"
                            "<key>a</key><integer>3</integer></dict>")
                       .dictionary();
    ASSERT_EQ(d.size(), 2U);
    EXPECT_EQ(d.entries()[0].key, "a");
    EXPECT_EQ(d.integer("a"), 3);
}

TEST(XmlReading, DropsALastKeyWithoutAValue) {
    const auto d = readBody("<dict><key>a</key><integer>1</integer><key>b</key></dict>").dictionary();
    EXPECT_EQ(d.size(), 1U);
    EXPECT_FALSE(d.has("b"));
}

TEST(XmlReading, RefusesWhatIsNoPropertyList) {
    for (const char* text : {"", " ", "x", "{ a = 1; }", "(1, 2)", "<", "<>", "</>", "<plist>", "<plist/>",
             "<plist></plist>", "<html/>", "<plist><html/></plist>", "<plist><dict></array></plist>",
             "<plist><dict></plist></dict>", "<plist><true/>", "<plist><true/><true/></plist>",
             "<plist><true/></plist><plist><true/></plist>", "<plist><true/></plist>x", "<true/></plist>",
             "<plist><dict><true/></dict></plist>", "<plist><string>a</key></plist>",
             "<plist><string>a<b/></string></plist>", "<plist><string>&unknown;</string></plist>",
             "<plist><true/><!-- </plist>", "<plist><plist><true/></plist></plist>", "bplist00", "bplist01"})
        EXPECT_TRUE(read(text).isNothing()) << text;
    EXPECT_TRUE(readPropertyList({}).isNothing());
    EXPECT_TRUE(readBody(std::string("<string>a\0b</string>", 20)).isNothing());
}

/// Builds one of the C library's locales in a temporary folder, to be independent of installed ones.
class NumericLocale : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        std::string folder = testing::TempDir() + "/quorvi-locale-XXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        const auto command = std::string("localedef -c -i ") + GetParam() + " -f UTF-8 '" +
                             (m_folder / (std::string(GetParam()) + ".UTF-8")).string() + "' >/dev/null 2>&1";
        [[maybe_unused]] const int result = std::system(command.c_str());
        setenv("LOCPATH", m_folder.c_str(), 1);
        if (!std::setlocale(LC_ALL, (std::string(GetParam()) + ".UTF-8").c_str()))
            GTEST_SKIP() << "no locale " << GetParam() << " here";
        ASSERT_STRNE(std::localeconv()->decimal_point, ".");
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        std::filesystem::remove_all(m_folder);
    }

  private:
    std::filesystem::path m_folder;
};

TEST_P(NumericLocale, DoesNotChangeTheReadingAndWritingOfReals) {
    EXPECT_EQ(readBody("<real>0.75</real>"), Value(0.75));
    EXPECT_NE(writeXml(Value(0.75)).value_or("").find("<real>0.75</real>"), std::string::npos);
    EXPECT_EQ(Value(u"0.75").real(), 0.75);
    EXPECT_STRNE(std::localeconv()->decimal_point, ".") << "the caller's locale is as it was";
}

INSTANTIATE_TEST_SUITE_P(DecimalSigns, NumericLocale, testing::Values("de_DE", "ps_AF"));

} // namespace
} // namespace quorvi::plist
