#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

using ProcessList = BusTest;

TEST_F(ProcessList, HoldsTheOwnersOfPrefixedNamesInOrder) {
    EXPECT_TRUE(bus->processes().empty());
    const auto other = EventBus::connect();
    ASSERT_EQ(other->ownName("Zebra"), NameResult::owned);
    ASSERT_EQ(bus->ownName("Beta"), NameResult::owned);
    ASSERT_EQ(bus->ownName("Alpha"), NameResult::owned);
    const std::vector<ProcessEntry> expected{
        {bus->processSerialNumber(), "Alpha"},
        {bus->processSerialNumber(), "Beta"},
        {other->processSerialNumber(), "Zebra"},
    };
    EXPECT_EQ(bus->processes(), expected);
}

TEST_F(ProcessList, KnowsWhoWaitsForAName) {
    EXPECT_TRUE(bus->processesInLine("KyvarQuorviPane").empty());
    const auto first = EventBus::connect();
    const auto second = EventBus::connect();
    ASSERT_EQ(first->ownName("KyvarQuorviPane"), NameResult::owned);
    ASSERT_EQ(second->ownName("KyvarQuorviPane"), NameResult::queued);
    EXPECT_EQ(bus->processesInLine("KyvarQuorviPane"),
        (std::vector{first->processSerialNumber(), second->processSerialNumber()}));
    EXPECT_TRUE(bus->processesInLine("KyvarQuorviPan").empty());
    EXPECT_TRUE(bus->processesInLine("no name").empty());
}

TEST_F(ProcessList, IsWalkedFromNoProcessToItsEnd) {
    const auto other = EventBus::connect();
    ASSERT_EQ(bus->ownName("First"), NameResult::owned);
    ASSERT_EQ(bus->ownName("FirstAgain"), NameResult::owned);
    ASSERT_EQ(other->ownName("Second"), NameResult::owned);

    ProcessSerialNumber psn;
    EXPECT_EQ(bus->getNextProcess(psn), noErr);
    EXPECT_EQ(psn, bus->processSerialNumber());
    EXPECT_EQ(bus->getNextProcess(psn), noErr);
    EXPECT_EQ(psn, other->processSerialNumber()) << "a process with two names comes once";
    EXPECT_EQ(bus->getNextProcess(psn), -600);
    EXPECT_EQ(psn, ProcessSerialNumber{});
}

TEST_F(ProcessList, GivesTheNameOfAProcess) {
    ASSERT_EQ(bus->ownName("KyvarQuorviPane"), NameResult::owned);
    std::string name = "untouched";
    EXPECT_EQ(bus->getProcessInformation({1, 99999}, name), procNotFound);
    EXPECT_EQ(name, "untouched");
    EXPECT_EQ(bus->getProcessInformation(bus->processSerialNumber(), name), noErr);
    EXPECT_EQ(name, "KyvarQuorviPane");
}

TEST_F(ProcessList, FindsAProcessInAnyCaseOfItsName) {
    const auto helper = EventBus::connect();
    ASSERT_EQ(helper->ownName("kYVARqUORVIhELPER"), NameResult::owned);
    ProcessSerialNumber psn;
    EXPECT_EQ(bus->findProcessByName("KyvarQuorviHelper", &psn), noErr);
    EXPECT_EQ(psn, helper->processSerialNumber());
    EXPECT_EQ(bus->findProcessByName("KyvarQuorviHelper", nullptr), noErr);
}

TEST_F(ProcessList, DoesNotFindAProcessWhoseNameIsLonger) {
    const auto helper = EventBus::connect();
    ASSERT_EQ(helper->ownName("KyvarQuorviHelper2"), NameResult::owned);
    ProcessSerialNumber psn{7, 7};
    EXPECT_EQ(bus->findProcessByName("KyvarQuorviHelper", &psn), procNotFound);
    EXPECT_EQ(psn, (ProcessSerialNumber{7, 7}));
}

TEST_F(ProcessList, FindsEachOfTwoNamesOfAProcess) {
    ASSERT_EQ(bus->ownName("A"), NameResult::owned);
    ASSERT_EQ(bus->ownName("B"), NameResult::owned);
    EXPECT_EQ(bus->findProcessByName("a", nullptr), noErr);
    EXPECT_EQ(bus->findProcessByName("b", nullptr), noErr);
}

TEST_F(ProcessList, LosesAProcessThatLeaves) {
    auto other = EventBus::connect();
    ASSERT_EQ(other->ownName("Other"), NameResult::owned);
    ASSERT_EQ(bus->processes().size(), 1u);
    other.reset();
    EXPECT_TRUE(waitFor(*bus, [&] { return bus->processes().empty(); }));
}

TEST_F(ProcessList, GivesANameToTheNextInLine) {
    const auto second = EventBus::connect();
    const auto third = EventBus::connect();
    EXPECT_EQ(bus->ownName("KyvarQuorviPane"), NameResult::owned);
    EXPECT_EQ(bus->ownName("KyvarQuorviPane"), NameResult::owned) << "again";
    EXPECT_EQ(second->ownName("KyvarQuorviPane"), NameResult::queued);
    EXPECT_EQ(third->ownName("KyvarQuorviPane", NameMode::onlyIfFree), NameResult::taken);
    EXPECT_EQ(third->releaseName("KyvarQuorviPane"), procNotFound);

    EXPECT_EQ(bus->releaseName("KyvarQuorviPane"), noErr);
    ProcessSerialNumber psn;
    EXPECT_EQ(third->findProcessByName("KyvarQuorviPane", &psn), noErr);
    EXPECT_EQ(psn, second->processSerialNumber());
    EXPECT_EQ(second->releaseName("KyvarQuorviPane"), noErr);
    EXPECT_TRUE(third->processes().empty());
    EXPECT_EQ(third->ownName("KyvarQuorviPane", NameMode::onlyIfFree), NameResult::owned);
}

TEST_F(ProcessList, LeavesTheLineOnRequest) {
    const auto second = EventBus::connect();
    ASSERT_EQ(bus->ownName("KyvarQuorviPane"), NameResult::owned);
    ASSERT_EQ(second->ownName("KyvarQuorviPane"), NameResult::queued);
    EXPECT_EQ(second->releaseName("KyvarQuorviPane"), noErr);
    EXPECT_EQ(bus->releaseName("KyvarQuorviPane"), noErr);
    EXPECT_TRUE(bus->processes().empty());
}

TEST_F(ProcessList, RefusesNamesThatTheBusCannotCarry) {
    EXPECT_EQ(bus->ownName(""), NameResult::failed);
    EXPECT_EQ(bus->ownName("two words"), NameResult::failed);
    EXPECT_NE(bus->releaseName("two words"), noErr);
}

} // namespace
} // namespace quorvi::test
