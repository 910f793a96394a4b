// Backing up and restoring all settings through a file, and restoring earlier copies, in the real sheets.

#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include "history/History.h"
#include "pane/FilesFixture.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "support/Tabs.h"
#include "window/BackupTexts.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kBackUp = "quorviButtonBackUp";
constexpr const char* kRestore = "quorviButtonRestoreBackup";
constexpr const char* kEarlier = "quorviButtonEarlierSettings";
constexpr const char* kUndo = "quorviButtonUndo";

/// The sample with another name of its first profile, without its second macro, and faster.
plist::Dictionary earlierTree() {
    auto tree = PaneFixture::sampleTree();
    tree.array("profiles").dictionary(0).set("name", u"Drawing");
    tree.array("macros").remove(1);
    tree.dictionary("settings").set("pollingrate", 1000);
    return tree;
}

plist::Dictionary treeWithALongMacro() {
    auto tree = PaneFixture::sampleTree();
    const auto steps = tree.array("macros").dictionary(1).array("steps");
    while (steps.size() < 17)
        steps.append(plist::deepCopy(steps.value(0)));
    return tree;
}

QStringList rowsOf(const QDialog* sheet, const char* list) {
    QStringList rows;
    const auto* model = outlet<QListView>(sheet, list)->model();
    for (int row = 0; model && row < model->rowCount(); ++row)
        rows << model->index(row, 0).data().toString();
    return rows;
}

/// The panel at the device tab, keeping copies of earlier settings.
class BackupsFixture : public FilesFixture {
  public:
    BackupsFixture() : FilesFixture(kDeviceTab, sampleTree(), {.keepsCopies = true}) {}
    /// Not selected yet.
    explicit BackupsFixture(std::nullptr_t) : FilesFixture({.keepsCopies = true}) {}

    [[nodiscard]] History history() const { return History(home.path().toStdString() + "/history"); }
    [[nodiscard]] QString writeBackupOf(const plist::Dictionary& tree, const char* name) const {
        if (writeBackup(backupOf(tree), path(name).toStdString()))
            qFatal("the backup cannot be written");
        return path(name);
    }
    /// A copy that was kept so many hours ago.
    void keepCopy(const plist::Dictionary& tree, int hoursAgo, CopyReason reason) const {
        const auto then = std::chrono::system_clock::now() - std::chrono::hours(hoursAgo);
        if (history().keep(tree, reason, then) != 0)
            qFatal("the copy cannot be kept");
    }
    /// Chooses the file in the panel that opens, and does something with the sheet that follows.
    void restore(const QString& file, const std::function<void(QDialog*)>& answer) const {
        click(kRestore);
        whenSheetIsUp(window.get(), "quorviPanelBackup", answer);
        chooseFile(file);
    }
    [[nodiscard]] bool becomes(const plist::Dictionary& tree) const {
        return QTest::qWaitFor(
            [&] { return plist::Value(savedSettings()) == plist::Value(tree); }, kWindowPatienceMs);
    }
};

/// What a file manager says of the drag of these files.
std::unique_ptr<QMimeData> draggedFiles(const QStringList& files) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& file : files)
        urls << QUrl::fromLocalFile(file);
    data->setUrls(urls);
    return data;
}

/// Drags the files onto a table in the window, which takes nothing itself, and drops them when the pointer
/// says that they are taken. Whether it did.
bool drop(const PaneFixture& fixture, const QStringList& files) {
    const auto data = draggedFiles(files);
    QWidget& view = *fixture.pane->mainView();
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(&view, &enter);
    QDragMoveEvent move(QPoint(9, 9), Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    move.ignore();
    QCoreApplication::sendEvent(&view, &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return false;
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

void press(const QDialog* sheet, const char* button) {
    clickButton(outlet<QPushButton>(sheet, button));
}

} // namespace

/// Looks at the sheet at the moment when it is shown.
class AtShow : public QObject {
  public:
    AtShow(QString sheet, std::function<void(QDialog*)> look)
        : m_sheet(std::move(sheet)), m_look(std::move(look)) {
        qApp->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->objectName() == m_sheet)
            m_look(qobject_cast<QDialog*>(watched));
        return false;
    }

  private:
    QString m_sheet;
    std::function<void(QDialog*)> m_look;
};

class BackupsTest : public QObject {
    Q_OBJECT

  private slots:
    void aBackupHoldsAllSettings() {
        BackupsFixture fixture;
        fixture.click(kBackUp);
        QCOMPARE(QFileInfo(fixture.filePanel()->selectedFiles().value(0)).fileName(),
            QStringLiteral("Kyvar Quorvi %1.quorviSettings").arg(QDate::currentDate().toString(Qt::ISODate)));
        fixture.chooseFile(fixture.path("all"));
        QTRY_COMPARE(fixture.told(), QStringLiteral("All settings were written to ~/all.quorviSettings."));
        const ReadBackup read = readBackup(fixture.path("all.quorviSettings").toStdString());
        QVERIFY(read.backup.contents == BackupContents::everything);
        QVERIFY(plist::Value(read.backup.tree) == plist::Value(PaneFixture::sampleTree()));
        QVERIFY(fixture.commandsBecome({}));
    }

    void aBackupThatCannotBeWrittenIsTold() {
        BackupsFixture fixture;
        fixture.click(kBackUp);
        fixture.chooseFile(fixture.path("none/all"));
        const auto why = std::make_error_code(std::errc::no_such_file_or_directory).message();
        QTRY_COMPARE(fixture.told(), QStringLiteral("Nothing was backed up to ~/none/all.quorviSettings: ") +
                                         QString::fromStdString(why));
    }

    void aBackupIsRestoredAsOneActionOnceItsDifferencesWereSeen() {
        BackupsFixture fixture;
        QStringList differences;
        fixture.restore(fixture.writeBackupOf(earlierTree(), "old.quorviSettings"), [&](QDialog* sheet) {
            differences = rowsOf(sheet, "quorviListBackupDifferences");
            QVERIFY(outlet<QLabel>(sheet, "quorviTextBackup")->text().contains("~/old.quorviSettings"));
            QVERIFY(!outlet<QLabel>(sheet, "quorviTextLeftOut")->isVisible());
            press(sheet, "quorviBackupButtonRestore");
        });
        QVERIFY(fixture.becomes(earlierTree()));
        QVERIFY2(differences.join('\n').contains("World"), qPrintable(differences.join('\n')));
        QVERIFY2(differences.join('\n').contains("1000"), qPrintable(differences.join('\n')));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(shownIn(fixture, "quorviTableProfiles", 1), QStringList({"Drawing", "Game"}));
        QTRY_COMPARE(fixture.told(), QStringLiteral("The backup ~/old.quorviSettings was restored."));

        const auto copies = fixture.history().list();
        QVERIFY(!copies.empty());
        QVERIFY(copies.front().reason == CopyReason::beforeRestore);
        QVERIFY(plist::Value(fixture.history().read(copies.front()).backup.tree) ==
                plist::Value(PaneFixture::sampleTree()));

        fixture.click(kUndo);
        QVERIFY(fixture.becomes(PaneFixture::sampleTree()));
    }

    void aBackupThatIsNotAgreedToChangesNothing() {
        BackupsFixture fixture;
        const QString file = fixture.writeBackupOf(earlierTree(), "old.quorviSettings");
        fixture.restore(file, [](QDialog* sheet) { QTest::keyClick(sheet->windowHandle(), Qt::Key_Return); });
        fixture.restore(file, [](QDialog* sheet) { QTest::keyClick(sheet->windowHandle(), Qt::Key_Escape); });
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
        QVERIFY(fixture.commandsBecome({}));
        QVERIFY(fixture.history().list().empty());
    }

    void whatABackupLeavesOutIsToldBeforeAndAfter() {
        BackupsFixture fixture;
        const QString file = fixture.writeBackupOf(treeWithALongMacro(), "long.quorviSettings");
        const QString leftOut = QStringLiteral("The macro “World” is left out: it has more than 16 steps.");
        fixture.restore(file, [&](QDialog* sheet) {
            QCOMPARE(outlet<QLabel>(sheet, "quorviTextLeftOut")->text(), leftOut);
            press(sheet, "quorviBackupButtonRestore");
        });
        QTRY_COMPARE(
            fixture.told(), QStringLiteral("The backup ~/long.quorviSettings was restored.\n") + leftOut);
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello"}));
    }

    void aFileThatIsNoBackupIsToldOf_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("told");
        QTest::newRow("damaged") << QByteArray("<plist><dict>")
                                 << QStringLiteral("it is damaged or of another kind.");
        QTest::newRow("another property list") << QByteArray("<plist version=\"1.0\"><dict/></plist>")
                                               << QStringLiteral("it contains no settings.");
    }

    void aFileThatIsNoBackupIsToldOf() {
        QFETCH(QByteArray, content);
        QFETCH(QString, told);
        BackupsFixture fixture;
        const QString file = fixture.write("odd.quorviSettings", content);
        fixture.click(kRestore);
        fixture.chooseFile(file);
        QTRY_COMPARE(fixture.told(), QStringLiteral("~/odd.quorviSettings was not restored: ") + told);
        QVERIFY(fixture.commandsBecome({}));
    }

    void aCopyOfEarlierSettingsIsTakenOnceItsDifferencesWereSeen() {
        BackupsFixture fixture;
        fixture.keepCopy(PaneFixture::sampleTree(), 1, CopyReason::beforeDeletion);
        fixture.keepCopy(earlierTree(), 24 * 3, CopyReason::firstChangeOfDay);
        QString second;
        QStringList differences;
        whenSheetIsUp(fixture.window.get(), "quorviPanelEarlier", [&](QDialog* sheet) {
            auto* list = outlet<QListView>(sheet, "quorviListEarlier");
            QVERIFY(list->hasFocus());
            QCOMPARE(rowsOf(sheet, "quorviListEarlierDifferences"), QStringList({"Nothing is different."}));
            QTest::keyClick(list, Qt::Key_Down);
            second = rowsOf(sheet, "quorviListEarlier").value(1);
            differences = rowsOf(sheet, "quorviListEarlierDifferences");
            QTest::keyClick(list, Qt::Key_Return);
        });
        fixture.click(kEarlier);
        QVERIFY(fixture.becomes(earlierTree()));
        const QString day = QLocale().standaloneDayName(QDate::currentDate().addDays(-3).dayOfWeek());
        QVERIFY2(second.startsWith(day), qPrintable(second));
        QVERIFY2(second.endsWith(QStringLiteral("Before the first change of the day\nDifferences: %1")
                                     .arg(differences.size())),
            qPrintable(second));
        QVERIFY(differences.size() >= 3);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.told().startsWith(QStringLiteral("The settings from ") + day));
        fixture.click(kUndo);
        QVERIFY(fixture.becomes(PaneFixture::sampleTree()));
    }

    // The arrow leads from the earlier value to that of now on whichever side one begins to read.
    void valuesAreReadFromTheSideOfTheLanguage() {
        auto before = PaneFixture::sampleTree();
        before.array("profiles").dictionary(0).array("stages").dictionary(0).set("dpix", 500);
        before.array("profiles").dictionary(0).array("stages").dictionary(0).set("dpiy", 500);
        const Bundle arabic(QUORVI_BUNDLE, {"ar"});
        const QStringList texts =
            differenceTexts(before, PaneFixture::sampleTree(), [&](const char* english) {
                return QString::fromStdU16String(
                    arabic.localizedString(QString::fromUtf8(english).toStdU16String(), "Localizable"));
            });
        QCOMPARE(texts.size(), 1);
        QVERIFY2(texts.first().endsWith(QStringLiteral("\u2068500 DPI\u2069 ← \u2068400 DPI\u2069")),
            qPrintable(texts.first()));
    }

    void withoutCopiesTheSheetSaysWhenTheyAreKept() {
        BackupsFixture fixture;
        whenSheetIsUp(fixture.window.get(), "quorviPanelEarlier", [](QDialog* sheet) {
            QVERIFY(outlet<QLabel>(sheet, "textNoEarlier")->isVisible());
            QVERIFY(!outlet<QPushButton>(sheet, "quorviEarlierButtonRestore")->isEnabled());
            QTest::keyClick(sheet->windowHandle(), Qt::Key_Return);
        });
        fixture.click(kEarlier);
        QVERIFY(fixture.commandsBecome({}));
    }

    void copiesAreComparedWhileTheSheetCanBeUsed() {
        BackupsFixture fixture;
        for (int day = 0; day < 20; ++day)
            fixture.keepCopy(earlierTree(), 24 * day + 1, CopyReason::firstChangeOfDay);
        const auto count = int(fixture.history().list().size());
        QVERIFY(count >= 20);
        int comparing = 0;
        // By the time that a test finds the sheet, a busy machine may have compared all.
        const AtShow look("quorviPanelEarlier", [&](QDialog* sheet) {
            comparing = int(rowsOf(sheet, "quorviListEarlier").filter("Comparing…").size());
        });
        whenSheetIsUp(fixture.window.get(), "quorviPanelEarlier", [&](QDialog* sheet) {
            QTRY_COMPARE(int(rowsOf(sheet, "quorviListEarlier").filter("Differences: ").size()), count);
            press(sheet, "quorviEarlierButtonCancel");
        });
        fixture.click(kEarlier);
        QVERIFY2(comparing > 0, "all were compared before the sheet was up");
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void aBackupThatIsDroppedIsAskedAboutAndRestored() {
        BackupsFixture fixture;
        const QString file = fixture.writeBackupOf(earlierTree(), "old.quorviSettings");
        whenSheetIsUp(fixture.window.get(), "quorviPanelBackup", [&](QDialog* sheet) {
            QVERIFY(!drop(fixture, {file})); // one question at a time
            press(sheet, "quorviBackupButtonRestore");
        });
        QVERIFY(drop(fixture, {file}));
        QVERIFY(fixture.becomes(earlierTree()));
    }

    void aMacroThatIsDroppedIsAskedAboutAndImported() {
        BackupsFixture fixture;
        const QString file = fixture.write(
            "m.QUORVIMACRO", plist::Value(fixture.savedSettings().array("macros").dictionary(0)));
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = outlet<QLabel>(sheet, "quorviTextConfirm")->text();
            press(sheet, "quorviConfirmButtonOK");
        });
        QVERIFY(drop(fixture, {file}));
        QTRY_COMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World", "Hello 2"}));
        QCOMPARE(question, QStringLiteral("Import the macro in this file?\n\n~/m.QUORVIMACRO"));
    }

    void aProfileWithItsMacrosThatIsDroppedIsImported() {
        BackupsFixture fixture;
        const QString file = fixture.path("p.quorviSettings");
        QVERIFY(!writeBackup(backupOfProfile(PaneFixture::sampleTree(), 1), file.toStdString()));
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        QVERIFY(drop(fixture, {file}));
        QTRY_COMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "Game", "Game 2"}));
    }

    void whatThePanelDoesNotTakeCannotBeDropped() {
        BackupsFixture fixture;
        const QString good = fixture.writeBackupOf(earlierTree(), "old.quorviSettings");
        QVERIFY(!drop(fixture, {fixture.write("notes.txt", QByteArray("x"))}));
        QVERIFY(!drop(fixture, {good, good}));
        QVERIFY(!drop(fixture, {fixture.path("gone.quorviSettings")}));
        QVERIFY(!drop(fixture, {}));
        QVERIFY(QDir(fixture.home.path()).mkdir(QStringLiteral("folder.quorviSettings")));
        QVERIFY(!drop(fixture, {fixture.path("folder.quorviSettings")}));
    }

    void aFileOfTheDesktopWaitsForTheSettings() {
        BackupsFixture fixture(nullptr);
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        fixture.pane->openFile(fixture.writeBackupOf(earlierTree(), "old.quorviSettings"));
        QCoreApplication::processEvents();
        QVERIFY(!fixture.window->findChild<QDialog*>(QStringLiteral("quorviPanelBackup")));
        whenSheetIsUp(fixture.window.get(), "quorviPanelBackup",
            [](QDialog* sheet) { press(sheet, "quorviBackupButtonRestore"); });
        fixture.connectDevices(1);
        QVERIFY(fixture.becomes(earlierTree()));
    }

    void aFileOfTheDesktopWaitsForTheSheetThatIsUp() {
        BackupsFixture fixture;
        const QString file = fixture.writeBackupOf(earlierTree(), "old.quorviSettings");
        bool wasAlone = false;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            fixture.pane->openFile(file);
            QCoreApplication::processEvents();
            wasAlone = !fixture.window->findChild<QDialog*>(QStringLiteral("quorviPanelBackup"));
            press(sheet, "quorviConfirmButtonCancel");
        });
        whenSheetIsUp(fixture.window.get(), "quorviPanelBackup",
            [](QDialog* sheet) { press(sheet, "quorviBackupButtonRestore"); });
        fixture.click("quorviButtonRestoreDefaults");
        QVERIFY(fixture.becomes(earlierTree()));
        QVERIFY(wasAlone);
    }

    void aFileThatThePanelDoesNotKnowIsToldOf() {
        BackupsFixture fixture;
        fixture.pane->openFile(fixture.write("notes.txt", QByteArray("x")));
        QTRY_COMPARE(
            fixture.told(), QStringLiteral("~/notes.txt was not opened: it is neither a backup nor a "
                                           "profile or macro."));
    }

    void aCopyThatCannotBeReadCannotBeTaken() {
        BackupsFixture fixture;
        fixture.keepCopy(earlierTree(), 1, CopyReason::firstChangeOfDay);
        fixture.write(("history/" + fixture.history().list().front().name).c_str(), QByteArray("no copy"));
        whenSheetIsUp(fixture.window.get(), "quorviPanelEarlier", [](QDialog* sheet) {
            QCOMPARE(
                rowsOf(sheet, "quorviListEarlierDifferences"), QStringList({"This copy cannot be read."}));
            QVERIFY(!outlet<QPushButton>(sheet, "quorviEarlierButtonRestore")->isEnabled());
            press(sheet, "quorviEarlierButtonCancel");
        });
        fixture.click(kEarlier);
    }
};

QUORVI_PANE_TEST_MAIN(BackupsTest)
#include "BackupsTest.moc"
