#include "model/ProfileMatching.h"

#include <gtest/gtest.h>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;

const std::u16string editor = u"Editor";
const std::u16string editorId = u"com.example.editor";
const std::u16string signature = u"EDIT";
const std::u16string executable = u"editor";
const std::u16string noText;

Dictionary bound(std::initializer_list<std::pair<const char*, plist::Value>> driver) {
    return dict({{"driver", dict(driver)}});
}

int matchApplication(const Array& profiles, const std::u16string& application) {
    return KyvarMatchProfile(profiles, false, &application, nullptr, nullptr, nullptr);
}

TEST(KyvarMatchProfile, prefersTheProfileThatAgreesOnMoreKeys) {
    const auto profiles = list({bound({{"application", editor}}),
        bound({{"application", editor}, {"identifier", editorId}}), bound({{"identifier", editorId}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, &editorId, nullptr, nullptr), 1);
}

TEST(KyvarMatchProfile, looksAtEachOfTheFourKeys) {
    const auto profiles = list({bound({{"application", editor}}), bound({{"identifier", editorId}}),
        bound({{"signature", signature}}), bound({{"executable", executable}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, &editorId, nullptr, nullptr), 1);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, nullptr, &signature, nullptr), 2);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, nullptr, nullptr, &executable), 3);
}

TEST(KyvarMatchProfile, countsAllFourKeys) {
    const auto three = bound({{"application", editor}, {"identifier", editorId}, {"signature", signature}});
    const auto four = bound({{"application", editor}, {"identifier", editorId}, {"signature", signature},
        {"executable", executable}});
    EXPECT_EQ(KyvarMatchProfile(list({three, four}), false, &editor, &editorId, &signature, &executable), 1);
}

TEST(KyvarMatchProfile, prefersTheEarliestOfEqualScores) {
    const auto profiles = list({bound({{"identifier", editorId}}), bound({{"application", editor}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, &editorId, nullptr, nullptr), 0);
}

TEST(KyvarMatchProfile, excludesAProfileThatContradictsOneKey) {
    const auto profiles = list({bound({{"application", u"Other"}, {"identifier", editorId}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, &editorId, nullptr, nullptr), -1);
    const auto lastKey = list({bound({{"application", editor}, {"executable", u"other"}})});
    EXPECT_EQ(KyvarMatchProfile(lastKey, false, &editor, nullptr, nullptr, &executable), -1);
}

TEST(KyvarMatchProfile, comparesCase) {
    EXPECT_EQ(matchApplication(list({bound({{"application", u"editor"}})}), editor), -1);
}

TEST(KyvarMatchProfile, neitherAddsNorExcludesForAKeyThatDoesNotDecide) {
    // Empty, of another type, or not asked for.
    const auto profiles = list({bound(
        {{"application", editor}, {"identifier", u""}, {"signature", 7}, {"executable", executable}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, &editorId, &signature, nullptr), 0);
}

TEST(KyvarMatchProfile, takesAnEmptyArgumentAsGiven) {
    EXPECT_EQ(matchApplication(list({bound({{"application", editor}})}), noText), -1);
    EXPECT_EQ(KyvarMatchProfile(list({bound({{"application", editor}, {"identifier", editorId}})}), false,
                  &noText, &editorId, nullptr, nullptr),
        -1);
    EXPECT_EQ(matchApplication(list({bound({{"application", u""}})}), noText), -1);
}

TEST(KyvarMatchProfile, neverChoosesAProfileThatIsNotBound) {
    EXPECT_EQ(matchApplication(list({bound({}), bound({{"identifier", editorId}})}), editor), -1);
    EXPECT_EQ(KyvarMatchProfile(
                  list({bound({{"application", editor}})}), false, nullptr, nullptr, nullptr, nullptr),
        -1);
}

TEST(KyvarMatchProfile, passesOverProfilesWithoutADriverDictionary) {
    const auto profiles = list({5, dict(), dict({{"driver", list()}}), bound({{"application", editor}})});
    EXPECT_EQ(matchApplication(profiles, editor), 3);
    EXPECT_EQ(matchApplication({}, editor), -1);
}

TEST(KyvarMatchProfile, choosesOnlyAutomaticProfilesWhenAsked) {
    const auto profiles =
        list({bound({{"application", editor}}), bound({{"application", editor}, {"autoswitch", false}}),
            bound({{"application", editor}, {"autoswitch", true}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &editor, nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &editor, nullptr, nullptr, nullptr), 0);
    profiles.remove(2);
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &editor, nullptr, nullptr, nullptr), -1);
}

TEST(KyvarMatchProfile, readsAutoswitchWithTheBooleanConversion) {
    const auto profiles = list({bound({{"application", editor}, {"autoswitch", 1}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &editor, nullptr, nullptr, nullptr), 0);
}

} // namespace
} // namespace quorvi
