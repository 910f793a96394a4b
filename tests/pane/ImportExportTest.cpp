// Profiles and macros carried through files, with the real open and save panels.

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>

#include "model/ItemFile.h"
#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";
constexpr const char* kProfileGear = "quorviButtonProfileGear";
constexpr const char* kMacroGear = "quorviButtonMacroGear";

class FilesFixture : public PaneFixture {
  public:
    explicit FilesFixture(int tab, const plist::Dictionary& tree = sampleTree()) {
        openWith(tree);
        selectTab(tab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QString path(const char* name) const { return home.filePath(QLatin1String(name)); }
    QString write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the file cannot be written");
        return file.fileName();
    }
    QString write(const char* name, const plist::Value& value) const {
        return write(name, QByteArray::fromStdString(plist::writeXml(value).value()));
    }

    /// The panel that is open, once it is.
    [[nodiscard]] QFileDialog* filePanel() const {
        QFileDialog* panel = nullptr;
        const auto isOpen = [&] {
            panel = window->findChild<QFileDialog*>();
            return panel && panel->isVisible() && panel->isActiveWindow();
        };
        if (!QTest::qWaitFor(isOpen, kWindowPatienceMs))
            qFatal("no file panel opens");
        return panel;
    }
    [[nodiscard]] bool hasFilePanel() const { return window->findChild<QFileDialog*>() != nullptr; }

    /// Types the path into the open panel and presses Return, as a user can.
    void chooseFile(const QString& file) const {
        QFileDialog* panel = filePanel();
        auto* name = outlet<QLineEdit>(panel, "fileNameEdit");
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, file);
        // The completer's list would take the Return for itself.
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        QTest::keyClick(name, Qt::Key_Return);
        if (!QTest::qWaitFor([&] { return !hasFilePanel(); }, kWindowPatienceMs))
            qFatal("the file panel does not close");
        QCoreApplication::processEvents();
    }
    void cancelPanel(const QString& typedBefore = {}) const {
        QFileDialog* panel = filePanel();
        if (!typedBefore.isEmpty())
            outlet<QLineEdit>(panel, "fileNameEdit")->setText(typedBefore);
        panel->setFocus();
        QTest::keyClick(panel, Qt::Key_Escape);
        if (!QTest::qWaitFor([&] { return !hasFilePanel(); }, kWindowPatienceMs))
            qFatal("the file panel does not close");
        QCoreApplication::processEvents();
    }
};

plist::Dictionary readFile(const QString& path) {
    return plist::readPropertyListFile(path.toStdString()).value.dictionary();
}

QByteArray deepArrays() {
    return QByteArray("<plist version=\"1.0\">") + QByteArray("<array>").repeated(200000);
}

} // namespace

class ImportExportTest : public QObject {
    Q_OBJECT

  private slots:
    void anExportedProfileIsTheOneOfTheTree() {
        FilesFixture fixture(2);
        fixture.selectRow(kProfiles, 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        chooseInGearMenu(fixture, kProfileGear, 13);
        QCOMPARE(fixture.filePanel()
                     ->selectedFiles()
                     .value(0)
                     .section(QLatin1Char('/'), -1)
                     .section(QLatin1Char('.'), 0, 0),
            QStringLiteral("Game"));
        fixture.chooseFile(fixture.path("out.quorviProfile"));
        QVERIFY(plist::Value(readFile(fixture.path("out.quorviProfile"))) ==
                plist::Value(fixture.pane->deviceConfig().array("profiles").dictionary(1)));
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 1"})); // the menu's own save
    }

    void anExportedFileGetsItsExtension() {
        FilesFixture fixture(3);
        fixture.selectRow(kMacros, 0);
        chooseInGearMenu(fixture, kMacroGear, 23);
        fixture.chooseFile(fixture.path("out"));
        QVERIFY(plist::Value(readFile(fixture.path("out.quorviMacro"))) ==
                plist::Value(PaneFixture::sampleTree().array("macros").dictionary(0)));
    }

    void aNameWithASlashIsNoPath() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).set("name", u"a/b");
        FilesFixture fixture(2, tree);
        chooseInGearMenu(fixture, kProfileGear, 13);
        QVERIFY(fixture.filePanel()->selectedFiles().value(0).contains(QStringLiteral("a-b")));
        fixture.cancelPanel();
    }

    void aCancelledPanelChangesNothing() {
        FilesFixture fixture(2);
        const auto file =
            fixture.write("in.quorviProfile", PaneFixture::sampleTree().array("profiles").dictionary(0));
        chooseInGearMenu(fixture, kProfileGear, 12);
        fixture.cancelPanel(file);
        chooseInGearMenu(fixture, kProfileGear, 13);
        fixture.cancelPanel(fixture.path("out.quorviProfile"));
        QVERIFY(!QFile::exists(fixture.path("out.quorviProfile")));
        QCOMPARE(fixture.pane->deviceConfig().array("profiles").size(), 2U);
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0"}));
    }

    void aCancelledPanelOfMacrosChangesNothing() {
        FilesFixture fixture(3);
        fixture.selectRow(kMacros, 0);
        const auto file =
            fixture.write("in.quorviMacro", PaneFixture::sampleTree().array("macros").dictionary(0));
        chooseInGearMenu(fixture, kMacroGear, 22);
        fixture.cancelPanel(file);
        chooseInGearMenu(fixture, kMacroGear, 23);
        fixture.cancelPanel(fixture.path("out.quorviMacro"));
        QVERIFY(!QFile::exists(fixture.path("out.quorviMacro")));
        QCOMPARE(fixture.pane->deviceConfig().array("macros").size(), 2U);
    }

    void importingAProfileTwiceGivesTwoOfThem() {
        FilesFixture fixture(2);
        const auto profile = PaneFixture::sampleTree().array("profiles").dictionary(0);
        const QString file = fixture.write("in.quorviProfile", plist::Value(profile));
        chooseInGearMenu(fixture, kProfileGear, 12);
        fixture.chooseFile(file);
        // The menu's own, the chosen row's, the import's.
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 2", "KyPR 2"}));
        QCOMPARE(fixture.selectedRow(kProfiles), 2);
        QCOMPARE(fixture.pane->profileIndex(), 2);
        chooseInGearMenu(fixture, kProfileGear, 12);
        fixture.chooseFile(file);
        QTRY_COMPARE(shownIn(fixture, kProfiles, 1), QStringList({"Desk", "Game", "Desk 2", "Desk 3"}));
        const auto saved = fixture.savedSettings().array("profiles");
        auto expected = profile;
        expected.set("name", u"Desk 3");
        QVERIFY(plist::Value(saved.dictionary(3)) == plist::Value(expected));
    }

    void aMacroKeepsTheIdentifierOfItsFile() {
        FilesFixture fixture(3);
        const QString file = fixture.write(
            "in.quorviMacro", plist::Value(PaneFixture::sampleTree().array("macros").dictionary(1)));
        chooseInGearMenu(fixture, kMacroGear, 22);
        fixture.chooseFile(file);
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World", "World 2"}));
        QCOMPARE(fixture.savedSettings().array("macros").dictionary(2).integer("macroid"), 3);
        QCOMPARE(fixture.pane->macroIndex(), 2);
    }

    void aFileThatIsNoGoodChangesNothing_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a profile");
        QTest::newRow("an array") << QByteArray("<plist><array/></plist>");
        QTest::newRow("cut short") << QByteArray("<plist><dict><key>ledstate</key>");
        QTest::newRow("without stages") << QByteArray(
            "<plist><dict><key>ledstate</key><integer>1</integer><key>defaultstage</key><integer>1</integer>"
            "<key>buttons</key><dict/><key>steps</key><array/></dict></plist>");
        QTest::newRow("200,000 levels deep") << deepArrays();
        QTest::newRow("binary") << QByteArray("bplist00\xFF\xFF\xFF\xFF", 12);
    }

    void aFileThatIsNoGoodChangesNothing() {
        QFETCH(QByteArray, content);
        FilesFixture fixture(2);
        const QString file = fixture.write("in", content);
        fixture.pane->importProfileCompletion(file);
        fixture.pane->importMacroCompletion(file);
        fixture.pane->importProfileCompletion(fixture.path("missing"));
        fixture.pane->importMacroCompletion(fixture.home.path());
        QVERIFY(plist::Value(fixture.pane->deviceConfig()) == plist::Value(PaneFixture::sampleTree()));
        QVERIFY(fixture.commandsBecome({}));
    }

    void aSixthProfileIsRefusedEvenWhenThePanelWasOpenBefore() {
        auto tree = PaneFixture::sampleTree();
        for (int i = 0; i < 3; ++i)
            tree.array("profiles").append(PaneFixture::sampleTree().array("profiles").dictionary(0));
        FilesFixture fixture(2, tree);
        const QString file =
            fixture.write("in", plist::Value(PaneFixture::sampleTree().array("profiles").dictionary(0)));
        fixture.pane->importProfileCompletion(file);
        QCOMPARE(fixture.pane->deviceConfig().array("profiles").size(), 5U);
        QAction item;
        setTagOfItem(item, 12);
        fixture.pane->actionMenuTableContext(&item);
        QVERIFY(!fixture.hasFilePanel());
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }

    void withoutACurrentMacroNoneIsExported() {
        FilesFixture fixture(3);
        QAction item;
        setTagOfItem(item, 23);
        fixture.pane->actionMenuTableContext(&item);
        QVERIFY(!fixture.hasFilePanel());
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }

    void wrongTypesUnderEveryKeyAreImportedAsTheyStandShownEditedExportedAndRemoved() {
        const std::vector<plist::Value> odd{plist::Value(u"text"), plist::Value(-7), plist::Value(1e300),
            plist::Value(true), plist::Value(plist::Data{0, 255}), plist::Value(plist::Array::create()),
            plist::Value(plist::Dictionary::create())};
        for (const auto& value : odd) {
            FilesFixture fixture(2);
            auto profile = plist::Dictionary::create();
            for (const char* key : {"name", "ledstate", "defaultstage", "stages", "buttons", "driver"})
                profile.set(key, value);
            fixture.pane->importProfileCompletion(fixture.write("in", plist::Value(profile)));
            QCOMPARE(fixture.pane->profileIndex(), 2);
            QVERIFY(plist::Value(fixture.savedSettings().array("profiles").dictionary(2).value("stages")) ==
                    value);
            fixture.selectTab(4);
            fixture.click("quorviBoxLightOnWheel");
            fixture.selectTab(0);
            fixture.selectTab(2);
            QAction exportItem;
            setTagOfItem(exportItem, 13);
            fixture.pane->actionMenuTableContext(&exportItem);
            fixture.chooseFile(fixture.path("out.quorviProfile"));
            QVERIFY(plist::Value(readFile(fixture.path("out.quorviProfile"))) ==
                    plist::Value(fixture.pane->deviceConfig().array("profiles").dictionary(2)));
            clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
            fixture.click("quorviButtonProfileRemove");
            QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "Game"}));
        }
    }

    void aMacroWithTenThousandStepsAndOddOnesIsShownAndRemoved() {
        FilesFixture fixture(3);
        auto macro = plist::Dictionary::create();
        auto steps = plist::Array::create();
        for (int number = 0; number < 10000; ++number) {
            auto step = plist::Dictionary::create();
            step.set("command", number);
            step.set("argument", u"4");
            steps.append(step);
        }
        steps.append(5);
        macro.set("name", std::u16string(500000, u'字'));
        macro.set("steps", steps);
        macro.set("macroid", u"none");
        fixture.pane->importMacroCompletion(fixture.write("in", plist::Value(macro)));
        QCOMPARE(fixture.find<KyvarQuorviTableView>("quorviTableSteps")->model()->rowCount(), 10001);
        QCOMPARE(shownIn(fixture, kMacros, 0).at(2), QString(20, QChar(u'字')));
        fixture.pane->setDelayForAllSteps(50);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World"}));
    }
};

QUORVI_PANE_TEST_MAIN(ImportExportTest)
#include "ImportExportTest.moc"
