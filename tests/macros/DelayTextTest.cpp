#include "macros/DelayText.h"

#include <gtest/gtest.h>

#include <map>

#include "base/Unicode.h"
#include "model/Limits.h"

namespace quorvi {
namespace {

std::u16string english(std::u16string_view text) {
    return std::u16string(text);
}

/// Some of the Russian texts.
std::u16string russian(std::u16string_view text) {
    static const std::map<std::u16string_view, std::u16string> texts{{u"^1 ms", u"^1 мс"}, {u"^1 s", u"^1 с"},
        {u"s, sec, second, seconds", u"с, сек, секунда, секунды"}, {u"min, minute, minutes", u"мин, минуты"}};
    const auto found = texts.find(text);
    return found == texts.end() ? std::u16string(text) : found->second;
}

const DelayLanguage kEnglish{u'.', english};
const DelayLanguage kGerman{u',', english};
const DelayLanguage kRussian{u',', russian};

std::string written(std::int32_t milliseconds, const DelayLanguage& language = kEnglish) {
    return toUtf8(delayText(milliseconds, language));
}

std::int32_t read(std::u16string_view text, const DelayLanguage& language = kEnglish) {
    const auto result = delayInText(text, language);
    const auto* milliseconds = std::get_if<std::int32_t>(&result);
    return milliseconds ? *milliseconds : -1;
}

DelayFault fault(std::u16string_view text, const DelayLanguage& language = kEnglish) {
    const auto result = delayInText(text, language);
    EXPECT_TRUE(std::holds_alternative<DelayFault>(result)) << toUtf8(text);
    const auto* why = std::get_if<DelayFault>(&result);
    return why ? *why : DelayFault{};
}

TEST(DelayText, CountsMillisecondsBelowASecond) {
    EXPECT_EQ(written(1), "1 ms");
    EXPECT_EQ(written(75), "75 ms");
    EXPECT_EQ(written(999), "999 ms");
}

TEST(DelayText, HasAsManyPlacesAsItTakes) {
    EXPECT_EQ(written(1000), "1 s");
    EXPECT_EQ(written(1500), "1.5 s");
    EXPECT_EQ(written(1050), "1.05 s");
    EXPECT_EQ(written(1001), "1.001 s");
    EXPECT_EQ(written(60000), "60 s");
    EXPECT_EQ(written(16777215), "16777.215 s");
}

TEST(DelayText, OfNoDelayIsZero) {
    EXPECT_EQ(written(0), "0");
    EXPECT_EQ(written(-5), "0");
}

TEST(DelayText, HasTheSignAndTheUnitsOfTheLanguage) {
    EXPECT_EQ(written(1500, kGerman), "1,5 s");
    EXPECT_EQ(written(1500, kRussian), "1,5 с");
    EXPECT_EQ(written(75, kRussian), "75 мс");
}

TEST(DelayText, IsReadBackAsWritten) {
    for (const DelayLanguage& language : {kEnglish, kGerman, kRussian})
        for (std::int32_t delay = 0; delay <= static_cast<std::int32_t>(limits::longestDelay);
             delay += delay < 20000 ? 1 : 997)
            ASSERT_EQ(read(delayText(delay, language), language), delay);
}

TEST(DelayText, IsReadWithAndWithoutAUnit) {
    EXPECT_EQ(read(u"75"), 75);
    EXPECT_EQ(read(u"75 ms"), 75);
    EXPECT_EQ(read(u"75ms"), 75);
    EXPECT_EQ(read(u"  75  MS "), 75);
    EXPECT_EQ(read(u"0"), 0);
    EXPECT_EQ(read(u"1.5 s"), 1500);
    EXPECT_EQ(read(u"2 sec"), 2000);
    EXPECT_EQ(read(u"2 sec."), 2000);
    EXPECT_EQ(read(u"3 Seconds"), 3000);
    EXPECT_EQ(read(u"1 min"), 60000);
    EXPECT_EQ(read(u".5s"), 500);
    EXPECT_EQ(read(u"0.00005 min"), 3);
    EXPECT_EQ(read(u"007"), 7);
}

TEST(DelayText, IsReadInTheUsersLanguageAndInEnglish) {
    EXPECT_EQ(read(u"75 мс", kRussian), 75);
    EXPECT_EQ(read(u"1,5 С", kRussian), 1500);
    EXPECT_EQ(read(u"2 секунды", kRussian), 2000);
    EXPECT_EQ(read(u"2 СЕК.", kRussian), 2000);
    EXPECT_EQ(read(u"1 мин", kRussian), 60000);
    EXPECT_EQ(read(u"1,5 s", kRussian), 1500);
    EXPECT_EQ(fault(u"2 секунды"), DelayFault::nonsense);
}

TEST(DelayText, TakesPointAndCommaForADecimalSign) {
    for (const DelayLanguage& language : {kEnglish, kGerman}) {
        EXPECT_EQ(read(u"1.5 s", language), 1500);
        EXPECT_EQ(read(u"1,5 s", language), 1500);
        EXPECT_EQ(read(u"0.125 s", language), 125);
        EXPECT_EQ(read(u"0,125 s", language), 125);
    }
}

TEST(DelayText, GroupsThreeDigitsByTheOtherSign) {
    EXPECT_EQ(read(u"1,500"), 1500);
    EXPECT_EQ(read(u"1.500", kGerman), 1500);
    EXPECT_EQ(read(u"1.500 s"), 1500);
    EXPECT_EQ(read(u"1,500 s", kGerman), 1500);
    EXPECT_EQ(read(u"1,000.5 s"), 1000500);
    EXPECT_EQ(read(u"16,777,215"), 16777215);
    EXPECT_EQ(read(u"1 500"), 1500);
    EXPECT_EQ(read(u"1\u202F500\u00A0ms"), 1500);
    EXPECT_EQ(read(u"1’500"), 1500);
    for (const auto* text : {u"1 5", u"1,5,0", u"15,00,000", u"1'50", u"1,,5", u"1.5.0", u",", u".", u"5."})
        EXPECT_EQ(fault(text), DelayFault::nonsense) << toUtf8(text);
}

TEST(DelayText, IsReadInTheDigitsOfOtherScripts) {
    EXPECT_EQ(read(u"٧٥"), 75);
    EXPECT_EQ(read(u"\u200F١٫٥ s"), 1500);
    EXPECT_EQ(read(u"۷۵ ms"), 75);
    EXPECT_EQ(read(u"７５"), 75);
    EXPECT_EQ(read(u"１．５　Ｓ"), 1500);
    EXPECT_EQ(read(u"१५"), 15);
}

TEST(DelayText, BelowZeroIsRefused) {
    EXPECT_EQ(fault(u"-5"), DelayFault::negative);
    EXPECT_EQ(fault(u"− 1.5 s"), DelayFault::negative);
    EXPECT_EQ(fault(u"-"), DelayFault::nonsense);
    EXPECT_EQ(fault(u"--5"), DelayFault::nonsense);
}

TEST(DelayText, NonsenseIsRefused) {
    for (const auto* text : {u"", u"   ", u"ms", u"abc", u"5 parsecs", u"5 5 ms", u"1e3", u"0x10", u"5 m s x",
             u"5-", u"1 min 30 s", u"+5", u"^1", u"5 ^1"})
        EXPECT_EQ(fault(text), DelayFault::nonsense) << toUtf8(text);
}

TEST(DelayText, PartsOfAMillisecondAreRefused) {
    EXPECT_EQ(fault(u"1.5"), DelayFault::tooFine);
    EXPECT_EQ(fault(u"0.0001 s"), DelayFault::tooFine);
    EXPECT_EQ(fault(u"0.00001 min"), DelayFault::tooFine);
    EXPECT_EQ(fault(u"1.000000000000000000000000001 s"), DelayFault::tooFine);
    EXPECT_EQ(read(u"75.000 ms"), 75);
    EXPECT_EQ(read(u"0.0010000000000000000000000 s"), 1);
}

TEST(DelayText, BeyondWhatIsStoredIsRefused) {
    EXPECT_EQ(read(u"16777215"), 16777215);
    EXPECT_EQ(read(u"16777.215 s"), 16777215);
    EXPECT_EQ(fault(u"16777216"), DelayFault::tooLong);
    EXPECT_EQ(fault(u"16777.216 s"), DelayFault::tooLong);
    EXPECT_EQ(fault(u"280 min"), DelayFault::tooLong);
    EXPECT_EQ(fault(u"99999999999999999999999999999999 s"), DelayFault::tooLong);
    EXPECT_EQ(read(u"00000000000000000000000000000075"), 75);
}

TEST(FactorText, IsReadInThousandths) {
    EXPECT_EQ(factorInText(u"0.5", u'.'), 500);
    EXPECT_EQ(factorInText(u" 2 ", u'.'), 2000);
    EXPECT_EQ(factorInText(u"1,25", u','), 1250);
    EXPECT_EQ(factorInText(u".001", u'.'), 1);
    EXPECT_EQ(factorInText(u"\u0662\u066B\u0665", u'.'), 2500); // Arabic
}

TEST(FactorText, ThatIsNoneIsRefused) {
    for (const char16_t* text :
        {u"", u"0", u"-1", u"two", u"0.0005", u"2 s", u"1.2.3", u"20000", u"99999999999999999999"})
        EXPECT_EQ(factorInText(text, u'.'), std::nullopt) << toUtf8(text);
}

} // namespace
} // namespace quorvi
