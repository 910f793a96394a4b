// The questions before a profile or a macro is deleted.

#include <QLabel>
#include <QPushButton>

#include "pane/AssignmentFixture.h"
#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

struct Asked {
    QString text;
    QString button;
    QString spoken; ///< the button's name for screen readers
};

class RemovalFixture : public AssignmentFixture {
  public:
    /// Three profiles, Desk, Game and Film, and two macros, Hello (0) and World (3).
    static plist::Dictionary threeProfiles() {
        auto tree = AssignmentFixture::tree();
        auto film = AssignmentFixture::tree().array("profiles").dictionary(0);
        film.set("name", u"Film");
        tree.array("profiles").append(film);
        return tree;
    }
    RemovalFixture(const plist::Dictionary& tree, int tab, const char* table, int row) {
        openWith(tree);
        selectTab(tab);
        selectRow(table, row);
    }
    /// What the button's question says. It is declined.
    [[nodiscard]] Asked asked(const char* button) const {
        Asked result;
        whenSheetIsUp(window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            result.text = outlet<QLabel>(sheet, "quorviTextConfirm")->text();
            const auto* confirm = outlet<QPushButton>(sheet, "quorviConfirmButtonOK");
            result.button = confirm->text();
            result.spoken = confirm->accessibleName();
            sheet->reject();
        });
        click(button);
        return result;
    }
};

QString askedOfMacro(const plist::Dictionary& tree, int row) {
    return RemovalFixture(tree, 3, "quorviTableMacros", row).asked("quorviButtonMacroRemove").text;
}
QString askedOfProfile(const plist::Dictionary& tree, int row) {
    return RemovalFixture(tree, 2, "quorviTableProfiles", row).asked("quorviButtonProfileRemove").text;
}

void run(const plist::Dictionary& tree, int input, int macro, std::size_t profile) {
    AssignmentFixture::setInput(tree, input, {{"command", 65}, {"param1", macro}}, profile);
}
void switchTo(const plist::Dictionary& tree, int input, int number, std::size_t profile) {
    AssignmentFixture::setInput(tree, input, {{"command", 34}, {"param1", number}}, profile);
}

const QString kMacroEnd = QStringLiteral("\n\nAre you sure you want to delete this macro?");
const QString kProfileEnd = QStringLiteral("\n\nAre you sure you want to delete this profile?");

} // namespace

class RemovalQuestionsTest : public QObject {
    Q_OBJECT

  private slots:
    void aMacroThatNothingRunsIsAskedForByItsNameAlone() {
        QCOMPARE(askedOfMacro(RemovalFixture::threeProfiles(), 1), "Delete macro: World" + kMacroEnd);
    }

    void theSecondLineSaysWhichButtonRunsTheMacro() {
        const auto tree = RemovalFixture::threeProfiles();
        run(tree, 4, 3, 1);
        run(tree, 5, 0, 1);
        QCOMPARE(askedOfMacro(tree, 1),
            "Delete macro: World\nButton 4 of “Game” runs it and will do nothing." + kMacroEnd);
    }

    void eachOfFourInputsHasALine() {
        const auto tree = RemovalFixture::threeProfiles();
        run(tree, 4, 3, 0);
        run(tree, 7, 3, 1);
        run(tree, 8, 3, 1);
        run(tree, 9, 3, 2);
        QCOMPARE(askedOfMacro(tree, 1),
            "Delete macro: World\nButton 4 of “Desk” runs it and will do nothing.\nButton 7 of “Game” runs "
            "it "
            "and will do nothing.\nTurning the wheel up in “Game” runs it and will do nothing.\nTurning the "
            "wheel down in “Film” runs it and will do nothing." +
                kMacroEnd);
    }

    void moreAreCounted() {
        const auto tree = RemovalFixture::threeProfiles();
        for (const std::size_t profile : {0U, 1U, 2U})
            for (int input = 3; input <= 9; ++input)
                run(tree, input, 3, profile);
        QCOMPARE(askedOfMacro(tree, 1),
            "Delete macro: World\nButton 3 of “Desk” runs it and will do nothing.\nButton 4 of “Desk” runs "
            "it "
            "and will do nothing.\nButton 5 of “Desk” runs it and will do nothing.\nNumber of other buttons "
            "that run it: 18" +
                kMacroEnd);
    }

    void theSecondLineSaysWhatBecomesOfTheButtonsThatSwitchToTheProfile() {
        const auto tree = RemovalFixture::threeProfiles();
        switchTo(tree, 3, 1, 0);
        switchTo(tree, 4, 2, 0);
        switchTo(tree, 5, 3, 0);
        QCOMPARE(askedOfProfile(tree, 1), "Delete profile: Game\nButton 4 of “Desk” switches to “Game” and "
                                          "will switch to “Film”.\nButton 5 of "
                                          "“Desk” switches to “Film” and will do nothing." +
                                              kProfileEnd);
        QCOMPARE(askedOfProfile(tree, 2),
            "Delete profile: Film\nButton 5 of “Desk” switches to “Film” and will do nothing." + kProfileEnd);
    }

    void namesOfAnyKindStayNames() {
        const auto tree = RemovalFixture::threeProfiles();
        tree.array("profiles").dictionary(1).set("name", u"^1 \u202Ex");
        tree.array("profiles").dictionary(2).set("name", u"");
        tree.array("macros").dictionary(1).set("name", u"^1");
        run(tree, 4, 3, 1);
        run(tree, 4, 3, 2);
        QCOMPARE(askedOfMacro(tree, 1),
            QString::fromUtf8(
                "Delete macro: ^1\nButton 4 of “\u2068^1 x\u2069” runs it and will do nothing.\n"
                "Button 4 of “?” runs it and will do nothing.") +
                kMacroEnd);
    }

    void theWindowOfAQuestionHasOneSizeAlone() {
        const RemovalFixture fixture(RemovalFixture::threeProfiles(), 3, "quorviTableMacros", 0);
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [](QDialog* sheet) {
            QCOMPARE(sheet->minimumSize(), sheet->maximumSize());
            QCOMPARE(sheet->size(), sheet->minimumSize());
            QVERIFY(!(sheet->windowFlags() & (Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint)));
            sheet->reject();
        });
        fixture.click("quorviButtonMacroRemove");
    }

    void whatDeletesIsCalledDelete() {
        const RemovalFixture macros(RemovalFixture::threeProfiles(), 3, "quorviTableMacros", 0);
        const Asked asked = macros.asked("quorviButtonMacroRemove");
        QCOMPARE(asked.button, QStringLiteral("Delete"));
        QCOMPARE(asked.spoken, QStringLiteral("Delete"));
        macros.selectTab(2);
        macros.selectRow("quorviTableProfiles", 1);
        QCOMPARE(macros.asked("quorviButtonProfileRemove").button, QStringLiteral("Delete"));
        macros.selectTab(4);
        const Asked restoring = macros.asked("quorviButtonRestoreDefaults");
        QCOMPARE(restoring.button, QStringLiteral("OK"));
        QCOMPARE(restoring.spoken, QStringLiteral("OK"));
    }
};

QUORVI_PANE_TEST_MAIN(RemovalQuestionsTest)
#include "RemovalQuestionsTest.moc"
