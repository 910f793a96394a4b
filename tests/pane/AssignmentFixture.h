// The panel on its buttons tab, with every input of every profile assigned.
#pragma once

#include <QTest>

#include "layouts/XkbKeyboardLayout.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/PaneFixture.h"
#include "widgets/PopUpButton.h"

namespace quorvi::test {

using AssignmentEntries = std::initializer_list<std::pair<const char*, plist::Value>>;

inline plist::Dictionary assignment(AssignmentEntries entries) {
    auto result = plist::Dictionary::create();
    for (const auto& [key, value] : entries)
        result.set(key, value);
    return result;
}

class AssignmentFixture : public PaneFixture {
  public:
    /// On a US keyboard, whatever this machine's is.
    AssignmentFixture() { SetCurrentKeyboardLayout(makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=us"))); }
    ~AssignmentFixture() { SetCurrentKeyboardLayout(nullptr); }

    /// The sample tree. Input 1 of each profile has the primary click, 2 the secondary one, the others none.
    [[nodiscard]] static plist::Dictionary tree() {
        auto tree = sampleTree();
        for (int profile = 0; profile < 2; ++profile)
            for (int input = 1; input <= limits::buttons; ++input)
                setInput(tree, input, {{"command", input <= 2 ? input : 0}}, profile);
        return tree;
    }
    static void setInput(
        const plist::Dictionary& tree, int input, AssignmentEntries entries, std::size_t profile = 0) {
        tree.array("profiles")
            .dictionary(profile)
            .dictionary("buttons")
            .set(keys::button(input), assignment(entries));
    }

    void open() { openWith(tree()); }
    void openWithInput(int input, AssignmentEntries entries) {
        const auto changed = tree();
        setInput(changed, input, entries);
        openWith(changed);
    }

    [[nodiscard]] PopUpButton* popUp(int input) const {
        return find<PopUpButton>(qPrintable(QStringLiteral("quorviMenuTop%1").arg(input)));
    }
    /// What the pop-up shows of the input.
    [[nodiscard]] QString shown(int input) const { return popUp(input)->currentText(); }
    /// The list of profiles or macros in the input's menu, the fixed items first.
    [[nodiscard]] QMenu* list(int input, int command) const {
        return popUp(input)->itemWithTag(command)->menu();
    }

    /// The settings file holds exactly these entries for the input.
    [[nodiscard]] bool savedInputIs(int input, AssignmentEntries entries, std::size_t profile = 0) const {
        const auto saved = savedSettings().array("profiles").dictionary(profile).dictionary("buttons");
        return saved.value(keys::button(input)) == plist::Value(assignment(entries));
    }
};

} // namespace quorvi::test
