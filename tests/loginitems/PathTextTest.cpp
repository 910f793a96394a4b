#include "loginitems/PathText.h"

#include <gtest/gtest.h>

#include <clocale>

namespace quorvi::test {

TEST(PathTextTest, Utf8IsTold) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8("/opt/Größe 😀"));
    EXPECT_TRUE(isUtf8("/\xEF\xBF\xBD")); // U+FFFD itself
    EXPECT_FALSE(isUtf8("/\xFF"));
    EXPECT_FALSE(isUtf8("/\xC3"));
    EXPECT_FALSE(isUtf8("/\xC0\xAF"));
    EXPECT_FALSE(isUtf8("/\xED\xA0\x80"));
}

TEST(PathTextTest, CaseIsIgnoredInEveryScript) {
    EXPECT_TRUE(equalIgnoringCase("/Opt/ABC.app", "/oPT/abc.APP"));
    EXPECT_TRUE(equalIgnoringCase("/ÄÖÜ/Ñ", "/äöü/ñ"));
    EXPECT_TRUE(equalIgnoringCase("/ΣΑΣ", "/σας")); // a final sigma is a sigma
    EXPECT_TRUE(equalIgnoringCase("/ЖУК", "/жук"));
    EXPECT_TRUE(equalIgnoringCase("/𐐀", "/𐐨")); // beyond 16 bits
}

TEST(PathTextTest, OtherDifferencesCount) {
    EXPECT_FALSE(equalIgnoringCase("/a", "/b"));
    EXPECT_FALSE(equalIgnoringCase("/a", "/a/"));
    EXPECT_FALSE(equalIgnoringCase("/a[", "/a{")); // 32 apart, as letters of two cases are
    EXPECT_FALSE(equalIgnoringCase("/é", "/e\xCC\x81"));
    EXPECT_FALSE(equalIgnoringCase("/ß", "/ss"));
    EXPECT_FALSE(equalIgnoringCase("/é", "/e"));
}

TEST(PathTextTest, WhatIsNotUtf8IsComparedByItsBytes) {
    EXPECT_TRUE(equalIgnoringCase("/\xFFx", "/\xFFx"));
    EXPECT_FALSE(equalIgnoringCase("/\xFFx", "/\xFFX"));
    EXPECT_FALSE(equalIgnoringCase("/\xFF", "/\xFE"));
    EXPECT_FALSE(equalIgnoringCase("/\xFF", "/\xEF\xBF\xBD"));
}

TEST(PathTextTest, TheProcessLocaleDoesNotMatter) {
    const std::string old = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"C", "C.UTF-8", "tr_TR.UTF-8"}) {
        std::setlocale(LC_ALL, name); // one that is not installed changes nothing, which is fine as well
        EXPECT_TRUE(equalIgnoringCase("/Ä/I", "/ä/i"));
    }
    std::setlocale(LC_ALL, old.c_str());
}

} // namespace quorvi::test
