#include "applications/ExecKey.h"

#include <gtest/gtest.h>

namespace quorvi::test {

namespace {

using Words = std::vector<std::string>;

} // namespace

TEST(ExecLineTest, TheProgramIsQuoted) {
    EXPECT_EQ(execLine("/a b"), "\"/a b\"");
    EXPECT_EQ(execLine("/a\"b"), "\"/a\\\"b\"");
    EXPECT_EQ(execLine("/a`b"), "\"/a\\`b\"");
    EXPECT_EQ(execLine("/a$b"), "\"/a\\$b\"");
    EXPECT_EQ(execLine("/a\\b"), "\"/a\\\\b\"");
}

TEST(ExecLineTest, WhatAProgramsPathMustNotHoldIsGivenAsAnArgument) {
    EXPECT_EQ(execLine("/100%/x"), "nice -n 0 \"/100%%/x\"");
    EXPECT_EQ(execLine("/a=b"), "nice -n 0 \"/a=b\"");
}

TEST(ExecWordsTest, BlanksSeparateWords) {
    EXPECT_EQ(execWords("prog"), Words{"prog"});
    EXPECT_EQ(execWords("  prog  -a\tb\n%U "), (Words{"prog", "-a", "b", "%U"}));
    EXPECT_EQ(execWords(""), Words{});
    EXPECT_EQ(execWords("   "), Words{});
}

TEST(ExecWordsTest, QuotedTextIsOneWordAndItsEscapesAreResolved) {
    EXPECT_EQ(execWords(R"("/opt/My App/run" --x)"), (Words{"/opt/My App/run", "--x"}));
    EXPECT_EQ(execWords(R"("a\"b\`c\$d\\e")"), Words{R"(a"b`c$d\e)"});
    EXPECT_EQ(execWords(R"("a\qb")"), Words{R"(a\qb)"});
    EXPECT_EQ(execWords(R"("")"), Words{""});
    EXPECT_EQ(execWords(R"(a" b "c)"), Words{"a b c"});
}

TEST(ExecWordsTest, WhatDesktopsTakeBeyondTheRulesIsTakenToo) {
    EXPECT_EQ(execWords(R"('/opt/My App/run' x)"), (Words{"/opt/My App/run", "x"}));
    EXPECT_EQ(execWords(R"('a\$b"c')"), Words{R"(a\$b"c)"});
    EXPECT_EQ(execWords(R"(/opt/My\ App/run x)"), (Words{"/opt/My App/run", "x"}));
    EXPECT_EQ(execWords("a\\"), Words{"a\\"});
}

TEST(ExecWordsTest, PercentSignsAreDoubledAndOtherFieldCodesStay) {
    EXPECT_EQ(execWords("100%% %f \"50%%\" %"), (Words{"100%", "%f", "50%", "%"}));
}

TEST(ExecWordsTest, AnOpenQuoteGivesNothing) {
    for (const char* exec : {"\"", "\"abc", "prog 'x", "\"a\\\"", "'"})
        EXPECT_EQ(execWords(exec), std::nullopt) << exec;
}

TEST(ExecWordsTest, WhatIsWrittenIsRead) {
    for (const char* path :
        {"/plain", "/two  words", "/q\"d", "/it's", "/b\\s\\\\", "/$HOME`id`", "/Größe 日本"})
        EXPECT_EQ(execWords(execLine(path)), Words{path});
    EXPECT_EQ(execWords(execLine("/100%/a=b")), (Words{"nice", "-n", "0", "/100%/a=b"}));
}

TEST(ExecProgramNameTest, IsTheFirstWordWithoutItsFolders) {
    EXPECT_EQ(execProgramName("prog %U"), "prog");
    EXPECT_EQ(execProgramName("/usr/bin/prog-2.0 --new-window"), "prog-2.0");
    EXPECT_EQ(execProgramName("\"/opt/My App/Größe 日本\" %f"), "Größe 日本");
    EXPECT_EQ(execProgramName("bin/prog"), "prog");
    EXPECT_EQ(execProgramName("/usr/bin/prog/"), "prog");
}

TEST(ExecProgramNameTest, IsNothingWhereNothingIsStarted) {
    EXPECT_EQ(execProgramName(""), "");
    EXPECT_EQ(execProgramName("  "), "");
    EXPECT_EQ(execProgramName("\"\" x"), "");
    EXPECT_EQ(execProgramName("\"prog"), "");
}

TEST(ExecProgramNameTest, LooksThroughEnv) {
    EXPECT_EQ(execProgramName("env A=B prog"), "prog");
    EXPECT_EQ(execProgramName("/usr/bin/env A=B \"C=D E\" /opt/x/prog F=G"), "prog");
    EXPECT_EQ(execProgramName("env prog"), "prog");
    EXPECT_EQ(execProgramName("env -i A=B prog"), "prog");
    EXPECT_EQ(execProgramName("env -u NAME --chdir /srv -C / prog"), "prog");
    EXPECT_EQ(execProgramName("env --unset=NAME -- A=B prog"), "prog");
    EXPECT_EQ(execProgramName("env --unset NAME -u OTHER -- -prog"), "-prog");
    EXPECT_EQ(execProgramName("env A=B env C=D prog"), "prog");
}

TEST(ExecProgramNameTest, AnEnvThatStartsNothingIsTheProgram) {
    EXPECT_EQ(execProgramName("env"), "env");
    EXPECT_EQ(execProgramName("env A=B"), "env");
    EXPECT_EQ(execProgramName("env -u"), "env");
    EXPECT_EQ(execProgramName("environment A=B x"), "environment");
}

} // namespace quorvi::test
