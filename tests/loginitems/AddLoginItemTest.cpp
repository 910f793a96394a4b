#include <gtest/gtest.h>

#include "loginitems/LoginItemLists.h"
#include "loginitems/LoginItems.h"

namespace quorvi::test {

namespace {

class AddLoginItemTest : public ::testing::TestWithParam<ListKind> {
  protected:
    /// As the panel registers its helper.
    Status add(const std::string& path, bool replace = true) {
        return AddLoginItem(m_list->store(), path, std::nullopt, false, replace, &m_registered);
    }

    std::unique_ptr<ListOnDisk> m_list = GetParam().make();
    bool m_registered = false;
};

INSTANTIATE_TEST_SUITE_P(Lists, AddLoginItemTest, ::testing::ValuesIn(kListKinds),
    [](const auto& list) { return list.param.name; });

} // namespace

TEST_P(AddLoginItemTest, AnEmptyPlaceTakesTheFirstItem) {
    m_registered = true;
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper, false}}));
    EXPECT_FALSE(m_registered);
}

TEST_P(AddLoginItemTest, HidingIsWritten) {
    EXPECT_EQ(AddLoginItem(m_list->store(), kHelper, std::nullopt, true, true, nullptr), 0);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper, true}}));
}

TEST_P(AddLoginItemTest, TheOnlyMatchBeingExactChangesNothingNotEvenHiding) {
    m_list->seed({{"/a/Other.app"}, {kHelper, true}});
    const auto before = m_list->snapshot();
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_TRUE(m_registered);
    EXPECT_EQ(m_list->snapshot(), before);
}

TEST_P(AddLoginItemTest, AnExactMatchMayDifferInCase) {
    m_list->seed({{"/OPT/Quorvi/kyvarquorvihelper.APP"}});
    const auto before = m_list->snapshot();
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_TRUE(m_registered);
    EXPECT_EQ(m_list->snapshot(), before);
}

TEST_P(AddLoginItemTest, CopiesElsewhereAreReplacedByOne) {
    m_list->seed({{"/a/KyvarQuorviHelper.app", true}, {"/b/Other.app"}, {"/c/KyvarQuorviHelper.app"}});
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper, false}, {"/b/Other.app"}}));
    EXPECT_FALSE(m_registered);
}

TEST_P(AddLoginItemTest, WithoutReplaceCopiesElsewhereAreKept) {
    m_list->seed({{"/a/KyvarQuorviHelper.app", true}, {"/c/KyvarQuorviHelper.app"}});
    EXPECT_EQ(add(kHelper, false), 0);
    EXPECT_EQ(m_list->contents(),
        (Items{{"/a/KyvarQuorviHelper.app", true}, {"/c/KyvarQuorviHelper.app"}, {kHelper}}));
    EXPECT_FALSE(m_registered);
}

TEST_P(AddLoginItemTest, TheFirstMatchTakesTheItemAlsoWhenTheExactOneIsSecond) {
    for (const bool replace : {true, false}) {
        m_list->seed({{"/x/Other.app"}, {"/a/KyvarQuorviHelper.app"}, {"/y/Other.app"}, {kHelper, true}});
        EXPECT_EQ(add(kHelper, replace), 0);
        EXPECT_EQ(m_list->contents(), (Items{{"/x/Other.app"}, {kHelper, false}, {"/y/Other.app"}}));
        EXPECT_TRUE(m_registered);
    }
}

TEST_P(AddLoginItemTest, TwoExactMatchesBecomeOneWithoutReplaceToo) {
    m_list->seed({{kHelper, true}, {"/OPT/quorvi/KyvarQuorviHelper.app", true}});
    EXPECT_EQ(add(kHelper, false), 0);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper, false}}));
    EXPECT_TRUE(m_registered);
}

TEST_P(AddLoginItemTest, TheNameIsComparedWithCase) {
    m_list->seed({{"/a/kyvarquorvihelper.app"}});
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/kyvarquorvihelper.app"}, {kHelper}}));
}

TEST_P(AddLoginItemTest, TheNameMatchesAsAnEndingOfAnyPath) {
    m_list->seed({{"/a/OldKyvarQuorviHelper.app"}});
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper}}));
}

TEST_P(AddLoginItemTest, AClosingSlashBelongsToTheName) {
    m_list->seed({{"/a/KyvarQuorviHelper.app"}, {"/b/KyvarQuorviHelper.app/"}});
    EXPECT_EQ(add("/opt/quorvi/KyvarQuorviHelper.app/"), 0);
    EXPECT_EQ(
        m_list->contents(), (Items{{"/a/KyvarQuorviHelper.app"}, {"/opt/quorvi/KyvarQuorviHelper.app/"}}));
}

TEST_P(AddLoginItemTest, APathWithoutASlashIsTheName) {
    m_list->seed({{"/a/Helper.app"}, {"/b/Other.app"}});
    EXPECT_EQ(add("Helper.app"), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"Helper.app"}, {"/b/Other.app"}}));
}

TEST_P(AddLoginItemTest, ASingleClosingSlashDoesNotMakeAnEmptyName) {
    m_list->seed({{"/a/Other.app"}, {"/b/Helper/"}});
    EXPECT_EQ(add("Helper/"), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/Other.app"}, {"Helper/"}}));
}

TEST_P(AddLoginItemTest, TheSecondSuffixFindsAnOlderName) {
    m_list->seed({{"/b/Other.app"}, {"/a/OldHelper.app"}});
    EXPECT_EQ(AddLoginItem(m_list->store(), kHelper, "/OldHelper.app", false, true, nullptr), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/b/Other.app"}, {kHelper}}));
}

TEST_P(AddLoginItemTest, TheSecondSuffixIsComparedWithCase) {
    m_list->seed({{"/a/oldhelper.app"}});
    EXPECT_EQ(AddLoginItem(m_list->store(), kHelper, "/OldHelper.app", false, true, nullptr), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/oldhelper.app"}, {kHelper}}));
}

TEST_P(AddLoginItemTest, AnEmptySecondSuffixMatchesNothing) {
    m_list->seed({{"/a/Other.app"}});
    EXPECT_EQ(AddLoginItem(m_list->store(), kHelper, "", false, true, nullptr), 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/Other.app"}, {kHelper}}));
}

TEST_P(AddLoginItemTest, OnlySixteenMatchesAreSeen) {
    Items items = copiesOfHelper(18);
    items.insert(items.begin() + 8, {"/b/Other.app"}); // no match, so it does not count
    m_list->seed(items);
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_EQ(m_list->contents(),
        (Items{{kHelper}, {"/b/Other.app"}, {"/17/KyvarQuorviHelper.app"}, {"/18/KyvarQuorviHelper.app"}}));
}

TEST_P(AddLoginItemTest, AnExactMatchBehindSixteenOthersIsNotSeen) {
    Items items = copiesOfHelper(16);
    items.push_back({kHelper, true});
    m_list->seed(items);
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_FALSE(m_registered);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper, false}, {kHelper, true}}));
}

TEST_P(AddLoginItemTest, AnExactMatchAsTheSixteenthIsSeen) {
    Items items = copiesOfHelper(15);
    items.push_back({kHelper});
    m_list->seed(items);
    EXPECT_EQ(add(kHelper, false), 0);
    EXPECT_TRUE(m_registered);
    EXPECT_EQ(m_list->contents(), (Items{{kHelper}}));
}

TEST_P(AddLoginItemTest, ARepeatedCallChangesNothing) {
    EXPECT_EQ(add(kHelper), 0);
    const auto before = m_list->snapshot();
    EXPECT_EQ(add(kHelper), 0);
    EXPECT_TRUE(m_registered);
    EXPECT_EQ(m_list->snapshot(), before);
}

TEST_P(AddLoginItemTest, PathsWithBlanksAndOtherScriptsAreTakenAsTheyAre) {
    const std::string path = " /home/zoë maß/日本 & <Q>/Helper.app ";
    EXPECT_EQ(add(path), 0);
    EXPECT_EQ(m_list->contents(), (Items{{path}}));
}

TEST_P(AddLoginItemTest, APathThatTheListCannotSayIsRefusedBeforeAnythingIsWritten) {
    m_list->seed({{"/a/KyvarQuorviHelper.app"}, {"/c/KyvarQuorviHelper.app"}});
    const auto before = m_list->snapshot();
    EXPECT_EQ(add("/opt/\x01/KyvarQuorviHelper.app"), -108);
    EXPECT_EQ(m_list->snapshot(), before);
}

TEST(AddLoginItemStatusTest, AMissingPathIsAParameterError) {
    MemoryStore store;
    bool registered = true;
    EXPECT_EQ(AddLoginItem(store, std::nullopt, "x", false, true, &registered), -50);
    EXPECT_EQ(store.reads, 0);
    EXPECT_TRUE(registered);
}

TEST(AddLoginItemStatusTest, APathWithoutANameIsAnInputError) {
    MemoryStore store;
    EXPECT_EQ(AddLoginItem(store, "", std::nullopt, false, true, nullptr), -36);
    EXPECT_EQ(AddLoginItem(store, "/opt/\xFF.app", std::nullopt, false, true, nullptr), -36);
    EXPECT_EQ(store.reads, 0);
}

TEST(AddLoginItemStatusTest, AFailedReadEndsThere) {
    MemoryStore store;
    for (const Status status : {Status{-43}, Status{-192}, Status{-36}}) {
        store.readStatus = status;
        EXPECT_EQ(AddLoginItem(store, kHelper, std::nullopt, false, true, nullptr), status);
    }
    EXPECT_EQ(store.writes, 0);
}

TEST(AddLoginItemStatusTest, TheStatusOfTheWriteIsNotChecked) {
    MemoryStore store;
    store.writeStatus = -34;
    bool registered = true;
    EXPECT_EQ(AddLoginItem(store, kHelper, std::nullopt, false, true, &registered), 0);
    EXPECT_EQ(store.writes, 1);
    EXPECT_FALSE(registered);
}

TEST(AddLoginItemStatusTest, DataThatCannotBeMadeIsAMemoryError) {
    MemoryStore store;
    store.writeStatus = -108;
    EXPECT_EQ(AddLoginItem(store, kHelper, std::nullopt, false, true, nullptr), -108);
}

TEST(AddLoginItemStatusTest, ElementsWithoutAPathAreSkippedAndKept) {
    MemoryStore store;
    store.list = {{std::nullopt, false, 0, false}, {kHelper, false, 1, false}, {std::nullopt, true, 2, false},
        {"/a/KyvarQuorviHelper.app", false, 3, false}};
    EXPECT_EQ(AddLoginItem(store, kHelper, std::nullopt, true, true, nullptr), 0);
    ASSERT_EQ(store.list.size(), 3U);
    EXPECT_EQ(store.list[0].origin, 0U);
    EXPECT_FALSE(store.list[0].changed);
    EXPECT_EQ(store.list[1].origin, 1U);
    EXPECT_TRUE(store.list[1].changed);
    EXPECT_EQ(store.list[1].path, kHelper);
    EXPECT_EQ(store.list[2].origin, 2U);
    EXPECT_FALSE(store.list[2].changed);
}

} // namespace quorvi::test
