#include "platform/Languages.h"

#include <gtest/gtest.h>

#include "support/EnvironmentVariable.h"

namespace quorvi::test {

namespace {

using Names = std::vector<std::string>;
using Setting = std::optional<std::string>;

Names languagesFor(
    const Setting& language, const Setting& all, const Setting& messages, const Setting& lang) {
    const EnvironmentVariable v1("LANGUAGE", language);
    const EnvironmentVariable v2("LC_ALL", all);
    const EnvironmentVariable v3("LC_MESSAGES", messages);
    const EnvironmentVariable v4("LANG", lang);
    return preferredLanguages();
}

constexpr auto kUnset = std::nullopt;

} // namespace

TEST(PreferredLanguagesTest, TheFirstLocaleThatIsSetCounts) {
    EXPECT_EQ(languagesFor(kUnset, "de_DE.UTF-8", "fr_FR", "it_IT"), Names{"de_DE"});
    EXPECT_EQ(languagesFor(kUnset, "", "fr_FR@euro", "it_IT"), Names{"fr_FR"});
    EXPECT_EQ(languagesFor(kUnset, kUnset, "", "it_IT.UTF-8@euro"), Names{"it_IT"});
    EXPECT_EQ(languagesFor(kUnset, kUnset, kUnset, kUnset), Names{});
}

TEST(PreferredLanguagesTest, TheListComesBeforeTheLocale) {
    EXPECT_EQ(
        languagesFor("fr:it_IT.UTF-8::fr", kUnset, kUnset, "de_DE.UTF-8"), (Names{"fr", "it_IT", "de_DE"}));
    EXPECT_EQ(languagesFor("", kUnset, kUnset, "de"), Names{"de"});
}

TEST(PreferredLanguagesTest, AnUntranslatedLocaleIgnoresTheList) {
    for (const char* locale : {"C", "C.UTF-8", "POSIX"})
        EXPECT_EQ(languagesFor("fr:de", locale, kUnset, "it_IT"), Names{});
}

TEST(PreferredLanguagesTest, NothingFollowsEnglish) {
    EXPECT_EQ(languagesFor("en_US:de", kUnset, kUnset, "de_DE.UTF-8"), Names{"en_US"});
    EXPECT_EQ(languagesFor("fr:en-GB:de", kUnset, kUnset, "de_DE.UTF-8"), (Names{"fr", "en-GB"}));
    EXPECT_EQ(languagesFor("enm", kUnset, kUnset, "de"), (Names{"enm", "de"}));
}

TEST(PreferredLanguagesTest, WhatIsNoNameIsLeftOut) {
    EXPECT_EQ(languagesFor("../../x:fr", kUnset, kUnset, "de"), (Names{"fr", "de"}));
}

TEST(LocalizationNamesTest, BothSpellingsThenTheLanguageAlone) {
    EXPECT_EQ(localizationNames("pt_BR"), (Names{"pt_BR", "pt-BR", "pt"}));
    EXPECT_EQ(localizationNames("pt-BR"), (Names{"pt-BR", "pt_BR", "pt"}));
    EXPECT_EQ(localizationNames("de"), Names{"de"});
}

TEST(PreferredLocalesTest, ModifiersAreKept) {
    const EnvironmentVariable v1("LANGUAGE", "sr_RS.UTF-8@latin:sr@latin:sr_RS.UTF-8@latin:de");
    const EnvironmentVariable v2("LC_ALL", "ca_ES.UTF-8@valencia");
    EXPECT_EQ(preferredLocales(), (Names{"sr_RS@latin", "sr@latin", "de", "ca_ES@valencia"}));
    EXPECT_EQ(preferredLanguages(), (Names{"sr_RS", "sr", "de", "ca_ES"}));
}

TEST(PreferredLocalesTest, NothingComesAfterEnglish) {
    const EnvironmentVariable v1("LANGUAGE", "fr:en_GB@oed:de");
    const EnvironmentVariable v2("LC_ALL", "it_IT");
    EXPECT_EQ(preferredLocales(), (Names{"fr", "en_GB@oed"}));
}

TEST(PreferredLocalesTest, APlainLocaleHasNone) {
    const EnvironmentVariable v1("LANGUAGE", "de");
    const EnvironmentVariable v2("LC_ALL", "C.UTF-8");
    EXPECT_EQ(preferredLocales(), Names{});
}

TEST(DesktopEntryLocalesTest, TheMoreExactNameComesFirst) {
    EXPECT_EQ(desktopEntryLocales("sr_RS@latin"), (Names{"sr_RS@latin", "sr_RS", "sr@latin", "sr"}));
    EXPECT_EQ(desktopEntryLocales("pt_BR"), (Names{"pt_BR", "pt"}));
    EXPECT_EQ(desktopEntryLocales("ca@valencia"), (Names{"ca@valencia", "ca"}));
    EXPECT_EQ(desktopEntryLocales("de"), Names{"de"});
}

} // namespace quorvi::test
