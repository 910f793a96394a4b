// The inputs that depend on a macro or a profile.

#include "model/Dependants.h"

#include <gtest/gtest.h>

#include "model/Keys.h"
#include "model/Trees.h"

namespace quorvi::test {
namespace {

using Inputs = std::vector<ProfileInput>;
using Redirected = std::vector<RedirectedInput>;

/// A profile with these inputs assigned and no others.
plist::Dictionary profileWith(std::initializer_list<std::pair<int, plist::Value>> inputs) {
    auto result = profile();
    auto buttons = dict();
    for (const auto& [input, value] : inputs)
        buttons.set(keys::button(input), value);
    result.set("buttons", buttons);
    return result;
}

plist::Dictionary running(int macroId) {
    return assignment(65, macroId, 1);
}
plist::Dictionary switchingTo(int number) {
    return assignment(34, number, 0);
}

TEST(DependantsOfAMacro, AreTheInputsOfAllProfilesThatRunIt) {
    const auto settings =
        tree(list({profileWith({{4, running(7)}, {5, running(8)}, {6, assignment(49, 7, 0)}}),
                 profileWith({{9, running(7)}})}),
            list({macro(8), macro(7)}));
    EXPECT_EQ(inputsThatRun(settings, 1), (Inputs{{0, 4}, {1, 9}}));
    EXPECT_EQ(inputsThatRun(settings, 0), (Inputs{{0, 5}}));
}

TEST(DependantsOfAMacro, AreNoneWhileAnotherHasItsIdentifier) {
    const auto settings = tree(list({profileWith({{4, running(7)}})}), list({macro(7), macro(7, u"Jump 2")}));
    EXPECT_EQ(inputsThatRun(settings, 0), Inputs());
    EXPECT_EQ(inputsThatRun(settings, 1), Inputs());
}

TEST(DependantsOfAMacro, AreNoneOfWhatIsNoMacro) {
    const auto settings =
        tree(list({profileWith({{4, running(-1)}, {5, running(0)}}), 5}), list({macro(-1), 5, macro(0)}));
    EXPECT_EQ(inputsThatRun(settings, 0), Inputs()) << "no assignment can name it";
    EXPECT_EQ(inputsThatRun(settings, 1), Inputs());
    EXPECT_EQ(inputsThatRun(settings, 2), (Inputs{{0, 5}}));
    EXPECT_EQ(inputsThatRun(settings, 3), Inputs());
    EXPECT_EQ(inputsThatRun({}, 0), Inputs());
}

TEST(DependantsOfAProfile, SwitchToTheNextOneOrToNone) {
    const auto settings = tree(list({profileWith({{3, switchingTo(1)}, {4, switchingTo(2)},
                                         {5, switchingTo(3)}, {8, switchingTo(4)}}),
                                   profileWith({{4, switchingTo(3)}}), profileWith({{9, switchingTo(2)}})}),
        list());
    EXPECT_EQ(inputsRedirectedWithout(settings, 1),
        (Redirected{{{0, 4}, 1, 2}, {{0, 5}, 2, std::nullopt}, {{2, 9}, 1, 2}}));
    EXPECT_EQ(inputsRedirectedWithout(settings, 2),
        (Redirected{{{0, 5}, 2, std::nullopt}, {{1, 4}, 2, std::nullopt}}));
    EXPECT_EQ(inputsRedirectedWithout({}, 0), Redirected());
}

TEST(InputsWithoutMacro, AreThoseWhoseMacroIsNotThere) {
    const auto imported = profileWith(
        {{2, running(7)}, {4, running(8)}, {5, running(-1)}, {6, switchingTo(9)}, {9, running(70)}});
    EXPECT_EQ(inputsWithoutMacro(imported, list({macro(7)})), (std::vector<int>{4, 5, 9}));
    EXPECT_EQ(inputsWithoutMacro({}, list()), std::vector<int>());
}

} // namespace
} // namespace quorvi::test
