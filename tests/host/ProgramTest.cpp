// The settings application as a program: how it starts and how it ends.

#include <QPluginLoader>
#include <QTest>

#include <csignal>
#include <fstream>

#include <sys/stat.h>

#include "history/Backup.h"
#include "host/Session.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

/// What tells a file from another one that took its place.
ino_t fileNumber(const std::filesystem::path& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

class ProgramTest : public QObject {
    Q_OBJECT

  private slots:
    void beingAskedToEndItSavesAndEndsInGoodOrder_data() {
        QTest::addColumn<int>("signalNumber");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void beingAskedToEndItSavesAndEndsInGoodOrder() {
        QFETCH(int, signalNumber);
        const Session session;
        session.home.awaitDeviceList();
        const auto program = session.startSettings();
        QTRY_VERIFY_WITH_TIMEOUT(session.runs("KyvarQuorviPane"), kWindowPatienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        // A save puts a new file in the old one's place. (Taking the file away to see it come back would not
        // do: a second list at the start would find no settings and read the defaults.)
        const auto before = fileNumber(session.home.settingsFile());
        program->signal(signalNumber);
        QCOMPARE(program->wait(), std::optional(0));
        QVERIFY(fileNumber(session.home.settingsFile()) != before);
        QVERIFY(session.home.deviceListHasCome()); // what the panel had, as a whole and valid
        QCOMPARE(session.home.savedSettings().integer("version"), 6);
        QCOMPARE(session.home.savedSettings().array("profiles").dictionary(0).dictionary("buttons").size(),
            std::size_t(9));
        QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
        QCOMPARE(session.panelsToldOfDetaching(), 0);
        QCOMPARE(session.helpers().size(), std::size_t(1));
    }

    void theHelperSurvivesAProgramThatIsKilledAndForgetsIt() {
        const Session session;
        session.home.awaitDeviceList();
        const auto program = session.startSettings();
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        const auto helpers = session.helpers();
        QCOMPARE(helpers.size(), std::size_t(1));
        QCOMPARE(session.panelsToldOfDetaching(), 1);
        program->signal(SIGKILL);
        QCOMPARE(program->wait(), std::optional(128 + SIGKILL));
        QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
        QVERIFY(session.home.deviceListHasCome());
        session.attach();
        QCOMPARE(session.panelsToldOfDetaching(), 0);
        QCOMPARE(session.helpers(), helpers);
    }

    void whatIsNoBundleEndsItWithOneLine_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("nothing") << "/nowhere/A.prefPane";
        QTest::newRow("a folder") << "/";
        QTest::newRow("a file") << "/etc/passwd";
        QTest::newRow("a bundle without a plug-in")
            << QStringLiteral(QUORVI_BUNDLE "/Contents/Resources/KyvarQuorviHelper.app");
    }

    void whatIsNoBundleEndsItWithOneLine() {
        QFETCH(QString, path);
        const Session session;
        const QTemporaryDir runtime;
        const auto program =
            session.startSettings({path.toStdString()}, {"XDG_RUNTIME_DIR=" + runtime.path().toStdString()});
        QCOMPARE(program->wait(), std::optional(1));
        const auto said = QString::fromStdString(program->readError());
        QCOMPARE(said.count(QLatin1Char('\n')), 1);
        QVERIFY2(said.startsWith(QStringLiteral("quorvi-settings: %1 ").arg(path)), qPrintable(said));
        QCOMPARE(program->readOutput(), std::string());
        QVERIFY(session.home.files().isEmpty());
    }

    void aBackupOnTheCommandLineIsAskedAboutAndTaken() {
        const Session session;
        session.home.awaitDeviceList();
        const quorvi::plist::Dictionary tree = UserHome::defaults();
        tree.dictionary("settings").set("pollingrate", 125);
        const std::string file = session.home.path() + "/old.quorviSettings";
        QVERIFY(!quorvi::writeBackup(quorvi::backupOf(tree), file));
        const auto program = session.startSettings({file});
        const std::string sheet = visibleWindow({"--name", "^Restore Backup$"});
        QVERIFY(session.home.savedSettings().dictionary("settings").integer("pollingrate") != 125);
        // The focus is on Cancel, and Restore is before it.
        QVERIFY(xdotool({"windowactivate", "--sync", sheet, "key", "shift+Tab", "space"}));
        QTRY_COMPARE_WITH_TIMEOUT(session.home.savedSettings().dictionary("settings").integer("pollingrate"),
            125, kWindowPatienceMs);
        program->signal(SIGTERM);
        QCOMPARE(program->wait(), std::optional(0));
    }

    void thePlugInIsFoundByHostsOfTheFirstInterface() {
        QPluginLoader loader(QStringLiteral(QUORVI_BUNDLE "/Contents/Linux/KyvarQuorvi.so"));
        const QString interface = QStringLiteral("com.kyvar.PreferencePaneFactory/1");
        QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(), interface);
        QVERIFY2(loader.instance(), qPrintable(loader.errorString()));
        QVERIFY(loader.instance()->qt_metacast(qPrintable(interface)));
    }

    void twoFilesOnTheCommandLineAreTooMany() {
        const Session session;
        const std::string folder = session.home.path();
        for (const char* name : {"/a.quorviMacro", "/b.quorviMacro"})
            std::ofstream(folder + name) << "x";
        const QTemporaryDir runtime;
        const auto program = session.startSettings({folder + "/a.quorviMacro", folder + "/b.quorviMacro"},
            {"XDG_RUNTIME_DIR=" + runtime.path().toStdString()});
        QCOMPARE(program->wait(), std::optional(1));
        QCOMPARE(QString::fromStdString(program->readError()),
            QStringLiteral("quorvi-settings: one file at a time\n"));
    }

    void withoutASessionBusTheWindowOpensAndStays() {
        const Session session;
        const QTemporaryDir nowhere;
        const auto program = session.startSettings({}, withoutSessionBus(nowhere));
        // Its window comes up first, then the pane is told to load and registers the helper.
        QTRY_VERIFY_WITH_TIMEOUT(
            session.home.files().contains(QStringLiteral(".config/autostart/KyvarQuorviHelper.desktop")),
            kWindowPatienceMs);
        QVERIFY(program->isRunning());
        program->signal(SIGTERM);
        QCOMPARE(program->wait(), std::optional(0));
        QVERIFY(session.helpers().empty());
    }
};

QUORVI_SESSION_TEST_MAIN(ProgramTest)
#include "ProgramTest.moc"
