// Ten thousand random actions: after any number of undos the settings are, byte for byte, the same as before
// that many actions, plus another program's later changes.
#include <gtest/gtest.h>

#include <random>

#include "document/UndoStack.h"
#include "model/SettingsDocument.h"
#include "model/Trees.h"
#include "proof/UndoWitness.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;

class RandomUndo : public testing::TestWithParam<std::uint32_t> {
  protected:
    RandomUndo() : m_random(GetParam()) {
        cleanUpSettings(m_live);
        m_stack.takeOver(m_live);
    }

    void act() {
        m_witness.beginAction(m_live);
        change();
        cleanUpSettings(m_live); // as after every removal
        m_stack.note(m_live, u"Something");
        m_witness.noteAction(m_live);
    }

    void undo() {
        const bool can = m_witness.canUndo();
        const std::string expected = can ? m_witness.undo(m_live) : UndoWitness::bytesOf(m_live);
        ASSERT_EQ(bool(m_stack.undo(m_live)), can);
        ASSERT_EQ(UndoWitness::bytesOf(m_live), expected);
    }

    void redo() {
        const bool can = m_witness.canRedo();
        const std::string expected = can ? m_witness.redo(m_live) : UndoWitness::bytesOf(m_live);
        ASSERT_EQ(bool(m_stack.redo(m_live)), can);
        ASSERT_EQ(UndoWitness::bytesOf(m_live), expected);
    }

    /// Another program changes what the user does not.
    void write() {
        const auto firmware = std::int32_t(below(1000));
        m_live.set("firmware", firmware);
        m_witness.othersSet("firmware", firmware);
        m_stack.takeOver(m_live);
    }

    std::uint32_t below(std::size_t count) { return std::uint32_t(m_random() % count); }

  private:
    void change() {
        const Array macros = m_live.array("macros");
        const Array profiles = m_live.array("profiles");
        const Dictionary profile = profiles.dictionary(below(profiles.size()));
        const Dictionary macro = macros.dictionary(below(std::max<std::size_t>(macros.size(), 1)));
        const Dictionary button = profile.dictionary("buttons").dictionary(below(2) == 0 ? "01" : "09");
        switch (below(9)) {
        case 0:
            return m_live.dictionary("settings").set("pollingrate", std::int32_t(below(1000)));
        case 1:
            return profile.set("name", std::u16string(1 + below(4), char16_t(u'a' + below(26))));
        case 2:
            button.removeAll();
            button.set("command", std::int32_t(1 + below(20)));
            return button.set("param1", std::int32_t(below(5)));
        case 3:
            if (macros.size() < 12)
                macros.insert(below(macros.size() + 1), test::macro(std::int32_t(m_next++ % 70), u"New"));
            return;
        case 4:
            return macros.remove(below(12));
        case 5:
            return macro.array("steps").append(dict({{"command", 1}, {"argument", std::int32_t(below(90))}}));
        case 6:
            return macro.array("steps").remove(below(4));
        case 7:
            if (profiles.size() < 5)
                profiles.append(test::profile(u"More"));
            return;
        default:
            if (profiles.size() > 1)
                profiles.remove(below(profiles.size()));
            return;
        }
    }

    std::mt19937 m_random;
    int m_next = 8;
    Dictionary m_live = tree(list({profile(u"A"), profile(u"B")}), list({macro(7)}));
    UndoStack m_stack;
    UndoWitness m_witness;
};

TEST_P(RandomUndo, leadsBackAndForthByteForByte) {
    for (int action = 0; action < 10'000; ++action) {
        const std::uint32_t kind = below(10);
        if (kind < 5)
            act();
        else if (kind < 7)
            undo();
        else if (kind < 9)
            redo();
        else
            write();
        if (below(500) == 0)
            for (int undone = 0; undone < 110 && !HasFatalFailure(); ++undone)
                undo();
        ASSERT_FALSE(HasFatalFailure()) << "action " << action;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomUndo, testing::Values(1U, 2U));

} // namespace
} // namespace quorvi
