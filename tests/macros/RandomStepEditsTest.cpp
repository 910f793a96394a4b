// Thousands of edits of one macro, each beside the same one on a plain list, taken back and done again.
#include <gtest/gtest.h>

#include <random>

#include "document/UndoStack.h"
#include "macros/NaiveMoves.h"
#include "macros/StepClipboard.h"
#include "macros/StepDelays.h"
#include "macros/StepInsertions.h"
#include "macros/StepMoves.h"
#include "macros/StepPairs.h"
#include "plist/Writer.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::Rows;
using test::stepsOf;
using test::TestMacro;
using test::TestStep;

/// A macro in a tree of settings, as the panel has it.
class EditedTree {
  public:
    EditedTree() { m_stack.takeOver(m_tree); }

    /// Anew: what undo puts back need not be the same array.
    [[nodiscard]] plist::Array steps() const { return m_tree.array("macros").dictionary(0).array("steps"); }
    [[nodiscard]] std::string bytes() const { return plist::writeXml(m_tree).value(); }
    bool note() { return m_stack.note(m_tree, u"Edit"); }
    bool undo() { return bool(m_stack.undo(m_tree)); }
    bool redo() { return bool(m_stack.redo(m_tree)); }

  private:
    plist::Dictionary m_tree =
        test::tree(test::list({test::profile(u"A")}), test::list({test::macro(1), test::macro(2)}));
    UndoStack m_stack;
};

class Chance {
  public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t count) { return m_random() % count; }
    bool once(std::size_t in) { return below(in) == 0; }

    /// A few keys, so that they repeat, mostly down and up again.
    TestMacro steps(std::size_t most) {
        TestMacro macro;
        while (macro.size() < most) {
            const bool isButton = once(4);
            const int key = isButton ? 0 : 4 + static_cast<int>(below(3));
            const int delay = static_cast<int>(below(4)) * 10;
            if (!once(4))
                macro.insert(macro.begin() + static_cast<std::ptrdiff_t>(below(macro.size() + 1)),
                    {isButton ? 129 : 1, key, delay});
            macro.push_back({isButton ? 128 : 0, key, delay});
            if (once(8))
                break;
        }
        return macro;
    }

    /// At least one, often one alone.
    Rows rows(std::size_t count) {
        Rows rows{below(count)};
        for (std::size_t row = 0; row < count && !once(2); ++row)
            if (once(3) && row != rows.front())
                rows.push_back(row);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

  private:
    std::mt19937 m_random;
};

/// What was done, to be told when it has come out wrong.
struct Edit {
    const char* name;
    bool mayBreakPairs = false;
};

Edit move(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const Rows rows = chance.rows(plain.size());
    const bool up = chance.once(2);
    const auto direction = up ? MoveDirection::up : MoveDirection::down;
    const auto expected = test::naivelyMoved(plain, rows, up);
    const auto foretold = placesOfMovedSteps(steps, rows, direction);
    const auto places = moveSteps(steps, rows, direction);
    EXPECT_EQ(foretold, places);
    EXPECT_EQ(places, expected ? std::optional(expected->rows) : std::nullopt);
    if (expected)
        plain = expected->macro;
    return {"move"};
}

Edit drop(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const Rows rows = chance.rows(plain.size());
    const std::size_t before = chance.below(plain.size() + 1);
    const bool alone = chance.once(4);
    const auto moved = alone ? MovedStep::alone : MovedStep::keepingPairs;
    const auto expected = test::naivelyDropped(plain, rows, before, alone);
    const auto carried = stepsMovedByDrop(steps, rows, before, moved);
    const auto places = dropSteps(steps, rows, before, moved);
    EXPECT_EQ(carried.has_value(), places.has_value());
    EXPECT_EQ(places, expected ? std::optional(expected->rows) : std::nullopt);
    if (expected)
        plain = expected->macro;
    return {alone ? "drop alone" : "drop", alone};
}

Edit cut(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const Rows rows = chance.rows(plain.size());
    const auto both = stepsWithPartners(steps, rows);
    EXPECT_EQ(macroOf(copyOfSteps(steps, both)), test::naivelyCopied(plain, rows));
    takeSteps(steps, both);
    plain = test::naivelyTaken(plain, rows);
    return {"cut"};
}

/// By way of the text on the clipboard, which has no negative delays to lose here.
Edit paste(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const TestMacro added = plain.empty() || chance.once(2)
                                ? chance.steps(6)
                                : test::naivelyCopied(plain, chance.rows(plain.size()));
    const std::string text = textOfSteps(stepsOf(added));
    const auto read = stepsOfText(std::u16string(text.begin(), text.end()));
    const std::size_t row = chance.below(plain.size() + 1);
    const std::size_t before = plain.size();
    const auto inserted = insertSteps(steps, row, read.steps);
    EXPECT_EQ(inserted.count + inserted.leftOut, added.size());
    plain = test::naivelyInserted(plain, row, added);
    EXPECT_EQ(inserted.count, plain.size() - before);
    return {"paste"};
}

Edit duplicate(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const Rows rows = chance.rows(plain.size());
    const bool can = canDuplicateSteps(steps, rows);
    EXPECT_EQ(duplicateSteps(steps, rows).count > 0, can);
    plain = test::naivelyDuplicated(plain, rows);
    return {"duplicate"};
}

Edit tap(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const std::size_t row = chance.below(plain.size() + 1);
    const int press = chance.once(2) ? 1 : 132;
    const int key = press == 1 ? 4 + static_cast<int>(chance.below(3)) : 0;
    insertTap(steps, row, static_cast<std::uint32_t>(press), static_cast<std::uint8_t>(key));
    plain = test::naivelyTapped(plain, row, press, key);
    return {"tap"};
}

Edit multiply(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    const Rows rows = chance.once(2) ? Rows() : chance.rows(plain.size());
    // Not for ever longer.
    const int tenths = plain.front().delay > 1000 ? 1 : 1 + static_cast<int>(chance.below(30));
    multiplyDelays(steps, rows, tenths * 100);
    plain = test::naivelyMultiplied(plain, rows, tenths);
    for (std::size_t row = 0; row < plain.size(); ++row)
        if (plain[row].delay > 5000) {
            plain[row].delay = 5000;
            steps.dictionary(row).set("delay", 5000);
        }
    return {"multiply"};
}

Edit editBoth(Chance& chance, const plist::Array& steps, TestMacro& plain) {
    if (plain.empty())
        return paste(chance, steps, plain);
    using Way = Edit (*)(Chance&, const plist::Array&, TestMacro&);
    static constexpr Way ways[]{move, move, drop, drop, cut, paste, duplicate, tap, multiply};
    return ways[chance.below(std::size(ways))](chance, steps, plain);
}

std::size_t countOfPairs(const TestMacro& macro) {
    std::size_t halves = 0;
    for (std::size_t row = 0; row < macro.size(); ++row)
        halves += test::naivePartner(macro, row) ? 1 : 0;
    return halves / 2;
}

TEST(RandomEditsOfSteps, AgreeWithAPlainListAndAreUndoneByteForByte) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Chance chance(seed);
    EditedTree tree;
    TestMacro plain = macroOf(tree.steps());
    for (int number = 0; number < 10000; ++number) {
        const TestMacro before = plain;
        const std::string bytesBefore = tree.bytes();
        const Edit edit = editBoth(chance, tree.steps(), plain);
        ASSERT_EQ(macroOf(tree.steps()), plain) << edit.name << " in " << testing::PrintToString(before);
        ASSERT_LE(plain.size(), 16U);
        if (edit.name != std::string("cut") && !edit.mayBreakPairs) {
            ASSERT_GE(countOfPairs(plain), countOfPairs(before)) << edit.name;
        }
        const std::string bytesAfter = tree.bytes();
        ASSERT_EQ(tree.note(), bytesAfter != bytesBefore) << edit.name;
        if (bytesAfter == bytesBefore)
            continue;
        ASSERT_TRUE(tree.undo());
        ASSERT_EQ(tree.bytes(), bytesBefore) << edit.name;
        ASSERT_TRUE(tree.redo());
        ASSERT_EQ(tree.bytes(), bytesAfter) << edit.name;
    }
    EXPECT_FALSE(::testing::Test::HasFailure());
}

} // namespace
} // namespace quorvi
