// Names of a megabyte, not written by a panel: they are shown cut, and stored in full.

#include <QFileDialog>
#include <QLabel>

#include <ctime>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kMegabyte = 1 << 20;
/// A megabyte of text takes many times that to lay out.
#ifdef __SANITIZE_ADDRESS__
constexpr int kSecondsToOpen = 8;
#else
constexpr int kSecondsToOpen = 2;
#endif

const QString kShown = QString(80, QLatin1Char('n')) + QChar(0x2026);

plist::Dictionary treeWithLongNames() {
    const auto tree = PaneFixture::sampleTree();
    const std::u16string longName(kMegabyte, u'n');
    tree.array("profiles").dictionary(0).set("name", longName);
    tree.array("profiles").dictionary(1).set("name", longName);
    tree.array("profiles").dictionary(1).dictionary("driver").set("application", longName);
    tree.array("macros").dictionary(0).set("name", longName);
    return tree;
}

class LongNames : public PaneFixture {
  public:
    explicit LongNames(int tab) {
        openWith(treeWithLongNames());
        window->resize(900, 700);
        selectTab(tab);
    }
    [[nodiscard]] bool storesThemWhole() const {
        const auto profiles = savedSettings().array("profiles");
        return profiles.dictionary(0).string("name").size() == kMegabyte &&
               profiles.dictionary(1).string("name").size() == kMegabyte;
    }
};

} // namespace

class LongNamesTest : public QObject {
    Q_OBJECT

  private slots:
    void thePanelOpensAsFastAsEverAndCutsTheTitle() {
        const std::clock_t start = std::clock(); // of the processor: the machine may be busy with others
        LongNames fixture(2);
        QVERIFY(!fixture.window->grab().isNull());
        const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
        QVERIFY2(seconds < kSecondsToOpen, qPrintable(QString::number(seconds)));
        QCOMPARE(fixture.text("quorviTextProfile"), kShown);
    }

    void theTablesCutNamesAndApplicationsAndASaveKeepsThem() {
        LongNames fixture(2);
        QCOMPARE(shownIn(fixture, "quorviTableProfiles", 1), QStringList({kShown, kShown}));
        QCOMPARE(shownIn(fixture, "quorviTableProfiles", 2), QStringList({"Every application", kShown}));
        QCOMPARE(shownIn(fixture, "quorviTableMacros", 0), QStringList({kShown, "World"}));
        fixture.click("quorviBoxProfileOSD");
        QVERIFY(fixture.storesThemWhole());
    }

    void theQuestionBeforeADeletionCutsTheName() {
        LongNames fixture(2);
        fixture.selectRow("quorviTableProfiles", 1);
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = outlet<QLabel>(sheet, "quorviTextConfirm")->text();
            sheet->reject();
        });
        fixture.click("quorviButtonProfileRemove");
        QVERIFY(question.contains(kShown));
        QVERIFY(question.size() < 2 * kShown.size());
    }

    void theFileThatIsProposedForAnExportHasAShortName() {
        LongNames fixture(2);
        chooseInGearMenu(fixture, "quorviButtonProfileGear", 13);
        auto* panel = fixture.window->findChild<QFileDialog*>();
        QVERIFY(panel);
        QVERIFY(QFileInfo(panel->selectedFiles().value(0)).completeBaseName().size() <= kShown.size());
        panel->reject();
    }

    void halfOfACharacterIsNotShown() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).set("name", std::u16string(79, u'n') + u"\U0001F600n");
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.text("quorviTextProfile"), QString(79, QLatin1Char('n')) + QChar(0x2026));
    }
};

QUORVI_PANE_TEST_MAIN(LongNamesTest)
#include "LongNamesTest.moc"
