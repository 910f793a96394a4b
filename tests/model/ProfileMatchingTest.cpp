#include "model/ProfileMatching.h"

#include <gtest/gtest.h>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;

const std::u16string kEditor = u"Editor";
const std::u16string kEditorId = u"com.example.editor";
const std::u16string kSignature = u"EDIT";
const std::u16string kExecutable = u"editor";
const std::u16string kNoText;

Dictionary bound(std::initializer_list<std::pair<const char*, plist::Value>> driver) {
    return dict({{"driver", dict(driver)}});
}

int matchApplication(const Array& profiles, const std::u16string& application) {
    return KyvarMatchProfile(profiles, false, &application, nullptr, nullptr, nullptr);
}

TEST(KyvarMatchProfile, prefersTheProfileThatAgreesOnMoreKeys) {
    const auto profiles = list({bound({{"application", kEditor}}),
        bound({{"application", kEditor}, {"identifier", kEditorId}}), bound({{"identifier", kEditorId}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, &kEditorId, nullptr, nullptr), 1);
}

TEST(KyvarMatchProfile, looksAtEachOfTheFourKeys) {
    const auto profiles = list({bound({{"application", kEditor}}), bound({{"identifier", kEditorId}}),
        bound({{"signature", kSignature}}), bound({{"executable", kExecutable}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, &kEditorId, nullptr, nullptr), 1);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, nullptr, &kSignature, nullptr), 2);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, nullptr, nullptr, nullptr, &kExecutable), 3);
}

TEST(KyvarMatchProfile, countsAllFourKeys) {
    const auto three =
        bound({{"application", kEditor}, {"identifier", kEditorId}, {"signature", kSignature}});
    const auto four = bound({{"application", kEditor}, {"identifier", kEditorId}, {"signature", kSignature},
        {"executable", kExecutable}});
    EXPECT_EQ(
        KyvarMatchProfile(list({three, four}), false, &kEditor, &kEditorId, &kSignature, &kExecutable), 1);
}

TEST(KyvarMatchProfile, prefersTheEarliestOfEqualScores) {
    const auto profiles = list({bound({{"identifier", kEditorId}}), bound({{"application", kEditor}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, &kEditorId, nullptr, nullptr), 0);
}

TEST(KyvarMatchProfile, excludesAProfileThatContradictsOneKey) {
    const auto profiles = list({bound({{"application", u"Other"}, {"identifier", kEditorId}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, &kEditorId, nullptr, nullptr), -1);
    const auto lastKey = list({bound({{"application", kEditor}, {"executable", u"other"}})});
    EXPECT_EQ(KyvarMatchProfile(lastKey, false, &kEditor, nullptr, nullptr, &kExecutable), -1);
}

TEST(KyvarMatchProfile, comparesCase) {
    EXPECT_EQ(matchApplication(list({bound({{"application", u"editor"}})}), kEditor), -1);
}

TEST(KyvarMatchProfile, neitherAddsNorExcludesForAKeyThatDoesNotDecide) {
    // Empty, of another type, or not asked for.
    const auto profiles = list({bound(
        {{"application", kEditor}, {"identifier", u""}, {"signature", 7}, {"executable", kExecutable}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, &kEditorId, &kSignature, nullptr), 0);
}

TEST(KyvarMatchProfile, takesAnEmptyArgumentAsGiven) {
    EXPECT_EQ(matchApplication(list({bound({{"application", kEditor}})}), kNoText), -1);
    EXPECT_EQ(KyvarMatchProfile(list({bound({{"application", kEditor}, {"identifier", kEditorId}})}), false,
                  &kNoText, &kEditorId, nullptr, nullptr),
        -1);
    EXPECT_EQ(matchApplication(list({bound({{"application", u""}})}), kNoText), -1);
}

TEST(KyvarMatchProfile, neverChoosesAProfileThatIsNotBound) {
    EXPECT_EQ(matchApplication(list({bound({}), bound({{"identifier", kEditorId}})}), kEditor), -1);
    EXPECT_EQ(KyvarMatchProfile(
                  list({bound({{"application", kEditor}})}), false, nullptr, nullptr, nullptr, nullptr),
        -1);
}

TEST(KyvarMatchProfile, passesOverProfilesWithoutADriverDictionary) {
    const auto profiles = list({5, dict(), dict({{"driver", list()}}), bound({{"application", kEditor}})});
    EXPECT_EQ(matchApplication(profiles, kEditor), 3);
    EXPECT_EQ(matchApplication({}, kEditor), -1);
}

TEST(KyvarMatchProfile, choosesOnlyAutomaticProfilesWhenAsked) {
    const auto profiles =
        list({bound({{"application", kEditor}}), bound({{"application", kEditor}, {"autoswitch", false}}),
            bound({{"application", kEditor}, {"autoswitch", true}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &kEditor, nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(KyvarMatchProfile(profiles, false, &kEditor, nullptr, nullptr, nullptr), 0);
    profiles.remove(2);
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &kEditor, nullptr, nullptr, nullptr), -1);
}

TEST(KyvarMatchProfile, readsAutoswitchWithTheBooleanConversion) {
    const auto profiles = list({bound({{"application", kEditor}, {"autoswitch", 1}})});
    EXPECT_EQ(KyvarMatchProfile(profiles, true, &kEditor, nullptr, nullptr, nullptr), 0);
}

} // namespace
} // namespace quorvi
