// Profiles and macros carried through files, with the real open and save panels.

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScopeGuard>

#include "history/Backup.h"
#include "model/ItemFile.h"
#include "pane/FilesFixture.h"
#include "pane/PaneTestMain.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";
constexpr const char* kMacroGear = "quorviButtonMacroGear";

plist::Dictionary readFile(const QString& path) {
    return plist::readPropertyListFile(path.toStdString()).value.dictionary();
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The first profile's input runs the macro of that identifier.
void haveRun(const plist::Dictionary& tree, const char* input, std::int32_t macro) {
    auto assignment = plist::Dictionary::create();
    assignment.set("command", 65);
    assignment.set("param1", macro);
    assignment.set("param2", 1);
    tree.array("profiles").dictionary(0).dictionary("buttons").set(input, assignment);
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

    void anExportedFileGetsItsExtensionBehindOneThatLooksLikeOne() {
        FilesFixture fixture(2);
        for (const char* name : {"v1.2", "out.quorviMacro", "b.QUORVIPROFILE"}) {
            fixture.openExportPanel();
            fixture.chooseFile(QLatin1String(name));
        }
        QCOMPARE(fixture.exportedFiles(),
            QStringList({"b.QUORVIPROFILE", "out.quorviMacro.quorviProfile", "v1.2.quorviProfile"}));
    }

    void aProposedNameWithADotGetsTheExtension() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).set("name", u"v1.2");
        FilesFixture fixture(2, tree);
        fixture.openExportPanel();
        fixture.acceptPanel();
        QCOMPARE(fixture.exportedFiles(), QStringList("v1.2.quorviProfile"));
    }

    void aFolderOfTheNameIsNotInTheWay() {
        FilesFixture fixture(2);
        QVERIFY(QDir(fixture.home.path()).mkdir(QStringLiteral("Desk")));
        const QString before = QDir::currentPath();
        const auto back = qScopeGuard([&] { QDir::setCurrent(before); });
        QDir::setCurrent(fixture.home.path()); // where Qt looks whether a name is a folder's
        fixture.openExportPanel();
        fixture.acceptPanel();
        QCOMPARE(fixture.exportedFiles(), QStringList("Desk.quorviProfile"));
        QVERIFY(QFile::remove(fixture.path("Desk.quorviProfile")));
        fixture.openExportPanel();
        fixture.chooseFile(QStringLiteral("Desk"));
        QCOMPARE(fixture.exportedFiles(), QStringList("Desk.quorviProfile"));
        QVERIFY(QDir(fixture.path("Desk")).isEmpty());
    }

    void aPathToAFolderStillLeadsThere() {
        FilesFixture fixture(2);
        QVERIFY(QDir(fixture.home.path()).mkdir(QStringLiteral("Desk")));
        fixture.openExportPanel();
        auto* name = outlet<QLineEdit>(fixture.filePanel(), "fileNameEdit");
        name->setText(fixture.path("Desk/"));
        QTest::keyClick(name, Qt::Key_Return);
        QTRY_COMPARE(fixture.filePanel()->directory().path(), fixture.path("Desk"));
        fixture.chooseFile(QStringLiteral("in"));
        QVERIFY(QFile::exists(fixture.path("Desk/in.quorviProfile")));
    }

    void aFileOfTheCompletedNameIsReplacedOnlyWhenTheUserSaysSo() {
        FilesFixture fixture(2);
        const QString file = fixture.write("v1.2.quorviProfile", QByteArray("mine"));
        fixture.openExportPanel();
        bool asked = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question && question->isActiveWindow()) { // before that nobody can answer
                asked = true;
                question->reject();
            }
        });
        timer.start(5);
        auto* name = outlet<QLineEdit>(fixture.filePanel(), "fileNameEdit");
        name->setText(QStringLiteral("v1.2"));
        QTest::keyClick(name, Qt::Key_Return);
        QTRY_VERIFY(asked);
        timer.stop();
        fixture.cancelPanel();
        QCOMPARE(readAll(file), QByteArray("mine"));
    }

    // A name in quotes is taken out of them only when the panel has closed.
    void aFileThatNobodyAskedAboutIsNotReplaced() {
        FilesFixture fixture(2);
        const QString file = fixture.write("v1.2.quorviProfile", QByteArray("mine"));
        fixture.openExportPanel();
        fixture.chooseFile(QStringLiteral("\"v1.2\""));
        QCOMPARE(readAll(file), QByteArray("mine"));
        QCOMPARE(fixture.told(),
            QStringLiteral("“Desk” was not exported: there is already a file ~/v1.2.quorviProfile."));
    }

    void aProposedNameCanBeTyped() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).set("name", u"my \"best\"\none");
        FilesFixture fixture(2, tree);
        fixture.openExportPanel();
        fixture.acceptPanel();
        QCOMPARE(fixture.exportedFiles(), QStringList("my 'best' one.quorviProfile"));
    }

    void anExportSaysWhatItWroteAndWhere() {
        FilesFixture fixture(2);
        fixture.openExportPanel();
        fixture.acceptPanel();
        QCOMPARE(fixture.told(), QStringLiteral("The profile “Desk” was exported to ~/Desk.quorviProfile."));
        fixture.selectTab(3);
        fixture.selectRow(kMacros, 0);
        chooseInGearMenu(fixture, kMacroGear, 23);
        fixture.chooseFile(fixture.path("m"));
        QCOMPARE(fixture.told(), QStringLiteral("The macro “Hello” was exported to ~/m.quorviMacro."));
    }

    void aProfileIsExportedWithItsMacrosWhenThatKindIsChosen() {
        auto tree = PaneFixture::sampleTree();
        haveRun(tree, "05", 3);
        FilesFixture fixture(2, tree);
        fixture.openExportPanel();
        auto* kinds = outlet<QComboBox>(fixture.filePanel(), "fileTypeCombo");
        QCOMPARE(kinds->count(), 2);
        QCOMPARE(kinds->currentText(), QStringLiteral("Profiles (*.quorviProfile)"));
        kinds->setFocus();
        QTest::keyClick(kinds, Qt::Key_Down);
        QCOMPARE(outlet<QLineEdit>(fixture.filePanel(), "fileNameEdit")->text(),
            QStringLiteral("Desk.quorviSettings"));
        fixture.acceptPanel();
        QCOMPARE(fixture.told(), QStringLiteral("The profile “Desk” was exported to ~/Desk.quorviSettings."));
        const ReadBackup read = readBackup(fixture.path("Desk.quorviSettings").toStdString());
        QVERIFY(read.backup.contents == BackupContents::oneProfile);
        QCOMPARE(namesIn(read.backup.tree, "profiles"), QStringList({"Desk"}));
        QCOMPARE(namesIn(read.backup.tree, "macros"), QStringList({"World"}));
    }

    void aProfileIsImportedWithItsMacrosAsOneAction() {
        auto carried = PaneFixture::sampleTree();
        haveRun(carried, "05", 3);
        carried.array("macros").dictionary(1).set("name", u"Carried");
        carried.array("macros").dictionary(1).array("steps").dictionary(0).set("argument", 7);
        FilesFixture fixture(2);
        QVERIFY(!writeBackup(backupOfProfile(carried, 0), fixture.path("c.quorviSettings").toStdString()));
        chooseInGearMenu(fixture, kProfileGear, 12);
        fixture.chooseFile(fixture.path("c.quorviSettings"));
        QTRY_COMPARE(fixture.told(), QStringLiteral("The profile “Desk 2” was imported."));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "Game", "Desk 2"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World", "Carried"}));
        QCOMPARE(fixture.selectedRow(kProfiles), 2);
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 2"})); // the menu's own save comes first
        const plist::Dictionary input =
            fixture.savedSettings().array("profiles").dictionary(2).dictionary("buttons").dictionary("05");
        QCOMPARE(input.integer("param1"),
            fixture.savedSettings().array("macros").dictionary(2).integer("macroid"));
        fixture.click("quorviButtonUndo");
        QTRY_VERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void anExportThatFailsSaysWhy() {
        FilesFixture fixture(2);
        fixture.openExportPanel();
        fixture.chooseFile(fixture.path("none/out"));
        const auto why = std::make_error_code(std::errc::no_such_file_or_directory).message();
        QCOMPARE(fixture.told(), QStringLiteral("“Desk” was not exported to ~/none/out.quorviProfile: ") +
                                     QString::fromStdString(why));
    }

    void anImportSaysWhatCame() {
        FilesFixture fixture(2);
        fixture.pane->importProfileCompletion(fixture.write(
            "in.quorviProfile", plist::Value(PaneFixture::sampleTree().array("profiles").dictionary(0))));
        QCOMPARE(fixture.told(), QStringLiteral("The profile “Desk 2” was imported."));
        fixture.pane->importMacroCompletion(fixture.write(
            "in.quorviMacro", plist::Value(PaneFixture::sampleTree().array("macros").dictionary(0))));
        QCOMPARE(fixture.told(), QStringLiteral("The macro “Hello 2” was imported."));
    }

    void anImportThatFailsSaysWhy_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("ofProfile");
        QTest::addColumn<QString>("ofMacro");
        const QString damaged = QStringLiteral("it is damaged or of another kind.");
        const QString large = QStringLiteral("it is too large.");
        const QByteArray macro = "<plist><dict><key>name</key><string>m</string><key>steps</key><array>";
        const QByteArray end = "</array></dict></plist>";
        const QByteArray step = "<dict/>";
        QTest::newRow("empty") << QByteArray() << damaged << damaged;
        QTest::newRow("cut short") << QByteArray("<plist><dict><key>ledstate</key>") << damaged << damaged;
        QTest::newRow("something else") << QByteArray("<plist><dict/></plist>") << "it contains no profile."
                                        << "it contains no macro.";
        QTest::newRow("17 steps") << macro + step.repeated(17) + end << "it contains no profile."
                                  << "its macro has more than 16 steps.";
        QTest::newRow("20,000 steps") << macro + step.repeated(20000) + end << large << large;
        QTest::newRow("a million steps") << macro + step.repeated(1000000) + end << large << large;
    }

    void anImportThatFailsSaysWhy() {
        QFETCH(QByteArray, content);
        QFETCH(QString, ofProfile);
        QFETCH(QString, ofMacro);
        FilesFixture fixture(2);
        const QString file = fixture.write("in", content);
        fixture.pane->importProfileCompletion(file);
        QCOMPARE(fixture.told(), QStringLiteral("~/in was not imported: ") + ofProfile);
        fixture.pane->importMacroCompletion(file);
        QCOMPARE(fixture.told(), QStringLiteral("~/in was not imported: ") + ofMacro);
        fixture.pane->importMacroCompletion(fixture.path("missing"));
        QCOMPARE(fixture.told(), QStringLiteral("~/missing was not imported: it cannot be read."));
        QVERIFY(plist::Value(fixture.pane->deviceConfig()) == plist::Value(PaneFixture::sampleTree()));
    }

    void anImportIntoAFullListSaysSo() {
        auto tree = PaneFixture::sampleTree();
        const auto profile = plist::Value(tree.array("profiles").dictionary(0));
        const auto macro = plist::Value(tree.array("macros").dictionary(0));
        while (tree.array("profiles").size() < 5)
            tree.array("profiles").append(PaneFixture::sampleTree().array("profiles").dictionary(0));
        while (tree.array("macros").size() < 12)
            tree.array("macros").append(PaneFixture::sampleTree().array("macros").dictionary(0));
        FilesFixture fixture(2, tree);
        fixture.pane->importProfileCompletion(fixture.write("p", profile));
        QCOMPARE(fixture.told(),
            QStringLiteral("~/p was not imported: there are already 5 profiles, the maximum."));
        fixture.pane->importMacroCompletion(fixture.write("m", macro));
        QCOMPARE(fixture.told(),
            QStringLiteral("~/m was not imported: there are already 12 macros, the maximum."));
        QCOMPARE(fixture.pane->deviceConfig().array("macros").size(), 12U);
        QVERIFY(fixture.commandsBecome({}));
    }

    void aProfileWhoseMacrosAreNotThereIsImportedAndSaysSo() {
        FilesFixture fixture(2);
        const auto profile = PaneFixture::sampleTree().array("profiles").dictionary(0);
        const auto run = [](int macro) {
            auto assignment = plist::Dictionary::create();
            assignment.set("command", 65);
            assignment.set("param1", macro);
            assignment.set("string", u"Gone");
            return assignment;
        };
        profile.dictionary("buttons").set("04", run(44));
        profile.dictionary("buttons").set("05", run(3));
        profile.dictionary("buttons").set("09", run(45));
        fixture.pane->importProfileCompletion(fixture.write("in", plist::Value(profile)));
        QCOMPARE(fixture.told(),
            QStringLiteral("The profile “Desk 2” was imported. Buttons whose macro is missing: 4, 9"));
        fixture.forgetWhatWasTold();
        fixture.selectTab(0);
        QCOMPARE(
            fixture.find<PopUpButton>("quorviMenuTop4")->currentText(), QStringLiteral("Macro: (missing)"));
        QCOMPARE(fixture.find<PopUpButton>("quorviMenuTop5")->currentText(), QStringLiteral("Macro: World"));
    }

    void aNameThatTurnsTextsIsIsolatedInWhatIsTold() {
        FilesFixture fixture(2);
        const auto profile = PaneFixture::sampleTree().array("profiles").dictionary(0);
        profile.set("name", u"a\u202Eb ^1");
        fixture.pane->importProfileCompletion(fixture.write("in", plist::Value(profile)));
        QCOMPARE(fixture.told(), QString::fromUtf8("The profile “\u2068ab ^1\u2069” was imported."));
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
        auto tree = PaneFixture::sampleTree();
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
        tree.array("macros").append(macro);
        FilesFixture fixture(3, tree);
        fixture.selectRow(kMacros, 2);
        QCOMPARE(fixture.find<KyvarQuorviTableView>("quorviTableSteps")->model()->rowCount(), 10001);
        QCOMPARE(shownIn(fixture, kMacros, 0).at(2), QString(80, QChar(u'字')) + QChar(0x2026));
        fixture.pane->setDelayForAllSteps(50);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World"}));
    }
};

QUORVI_PANE_TEST_MAIN(ImportExportTest)
#include "ImportExportTest.moc"
