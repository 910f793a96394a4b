// A save in which one call fails: the old file stays, the user is notified but not the helper, and the next
// save succeeds.

#include <QCheckBox>
#include <QLabel>
#include <QScopeGuard>

#include <fstream>

#include <sys/mount.h>
#include <unistd.h>

#include "base/ScriptedCalls.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "resources/TableTags.h"
#include "support/Files.h"

using namespace quorvi;
using namespace quorvi::test;
namespace fs = std::filesystem;

namespace {

/// What the bar at the window's foot says; nothing while it is hidden.
QString notice(const PaneFixture& panel) {
    const auto* label = panel.window->findChild<QLabel*>(QStringLiteral("textNotice"));
    return label && label->isVisible() ? label->text() : QString();
}

} // namespace

class SaveFailureTest : public QObject {
    Q_OBJECT

  private slots:
    void tellsNobodyAndLeavesTheOldFile_data() {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("error");
        for (const char* call : {"open", "write", "chmod", "sync file", "close", "rename", "sync folder"})
            for (const FileError& error : kFileErrors)
                QTest::addRow("%s %s", call, error.name) << call << error.number;
    }

    void tellsNobodyAndLeavesTheOldFile() {
        QFETCH(QString, call);
        QFETCH(int, error);
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        const fs::path file = panel.settingsFile();
        fs::permissions(file, fs::perms(0640)); // not that of a new file
        const std::string old = readFile(file);
        calls.failing = call.toStdString();
        calls.error = error;
        calls.failures = 1;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(calls.failures, 0);
        // Of a folder that cannot be synced, the new file may be there and is not said to be safe.
        QCOMPARE(readFile(file) == old, call != "sync folder");
        QCOMPARE(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
        QCOMPARE(panel.pane->sendMessageToHelper(kMessageRecording, 7), noErr);
        QVERIFY(panel.commandsBecome({"KyDM 7"}));

        panel.click("quorviBoxLightOnBattery");
        QVERIFY(panel.commandsBecome({"KyDM 7", "KyPR 0"}));
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 0);
        QCOMPARE(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
    }

    void isNotOneWhenASignalInterruptsIt_data() {
        QTest::addColumn<QString>("call");
        for (const char* call : {"open", "write", "chmod", "sync file", "close", "rename", "sync folder"})
            QTest::newRow(call) << call;
    }

    void isNotOneWhenASignalInterruptsIt() {
        QFETCH(QString, call);
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        fs::permissions(panel.settingsFile(), fs::perms(0640));
        calls.failing = call.toStdString();
        calls.error = EINTR;
        calls.failures = 1;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(calls.failures, 0);
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
    }

    void joinsTheChangeWithAnotherProgramsWhenItIsTriedAgain() {
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        calls.failing = "write";
        calls.error = ENOSPC;
        calls.failures = 1;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        const auto theirs = PaneFixture::sampleTree();
        theirs.array("profiles").dictionary(0).set("ledstate", 1); // the other light
        panel.writeSettings(theirs);
        panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 0);
        QTRY_VERIFY(!panel.find<QCheckBox>("quorviBoxLightOnBattery")->isChecked());
        QCOMPARE(std::distance(fs::directory_iterator(panel.settingsFile().parent_path()), {}), 1);
    }

    void isToldWithFileAndReasonUntilASaveSucceeds_data() {
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("reason");
        QTest::newRow("full, or no inodes") << ENOSPC << "No space left on the disk";
        QTest::newRow("quota") << EDQUOT << "Your disk quota is used up";
        QTest::newRow("read-only") << EROFS << "The disk is read-only";
        QTest::newRow("no right") << EACCES << "Permission denied";
        QTest::newRow("immutable") << EPERM << "Operation not permitted";
        QTest::newRow("broken") << EIO << "The disk reports an error";
        QTest::newRow("rare") << ENOMEM << "Cannot allocate memory";
    }

    void isToldWithFileAndReasonUntilASaveSucceeds() {
        QFETCH(int, error);
        QFETCH(QString, reason);
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        calls.failing = "rename";
        calls.error = error;
        panel.selectTab(4);
        for (int i = 0; i < 3; ++i) {
            panel.click("quorviBoxLightOnWheel");
            QCOMPARE(notice(panel), QStringLiteral("Your changes could not be saved in ~/Library/Preferences/"
                                                   "com.kyvar.quorvi.settings.plist: %1. This panel keeps "
                                                   "them and tries again with your next change.")
                                        .arg(reason));
        }
        calls.failing.clear();
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(notice(panel), QString());
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 3);
    }

    void isToldOfWhatIsInTheFilesPlace_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("reason");
        QTest::newRow("folder") << "folder"
                                << "There is a folder in its place";
        QTest::newRow("loop") << "loop"
                              << "Its links form a loop";
        QTest::newRow("/dev/null") << "/dev/null"
                                   << "It is not an ordinary file";
        QTest::newRow("somebody else's link") << "link"
                                              << "Permission denied";
    }

    void isToldOfWhatIsInTheFilesPlace() {
        QFETCH(QString, what);
        QFETCH(QString, reason);
        PaneFixture panel;
        panel.openWith(PaneFixture::sampleTree());
        const fs::path file = panel.settingsFile();
        fs::remove(file);
        if (what == "folder")
            fs::create_directory(file);
        else
            fs::create_symlink(what == "loop" ? file.string() : what.toStdString(), file);
        if (what == "link") {
            fs::permissions(file.parent_path(), fs::perms(01777));
            if (::lchown(file.c_str(), 65534, 65534) != 0)
                QSKIP("only root may give links away");
        }
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QVERIFY2(notice(panel).contains(": " + reason + "."), qPrintable(notice(panel)));
        fs::remove(file);
        panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(notice(panel), QString());
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
    }

    void isToldOnARealDiskThatIsFull_data() {
        QTest::addColumn<QByteArray>("options");
        QTest::newRow("no room") << QByteArray("size=64k");
        QTest::newRow("no inodes") << QByteArray("nr_inodes=2");
    }

    void isToldOnARealDiskThatIsFull() {
        QFETCH(QByteArray, options);
        PaneFixture panel;
        const fs::path folder = panel.settingsFile().parent_path();
        fs::create_directories(folder);
        if (::mount("none", folder.c_str(), "tmpfs", 0, options.constData()) != 0)
            QSKIP("only root may mount disks");
        const auto unmount = qScopeGuard([&] { ::umount2(folder.c_str(), MNT_DETACH); });
        panel.openWith(PaneFixture::sampleTree());
        const fs::path filling = folder / "filling";
        std::ofstream(filling) << std::string(1 << 20, 'x') << std::flush;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QVERIFY2(notice(panel).contains("No space left on the disk"), qPrintable(notice(panel)));
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 3);
        fs::remove(filling);
        if (options.startsWith("nr_inodes")) // the root folder and the file
            QCOMPARE(::mount("none", folder.c_str(), "tmpfs", MS_REMOUNT, "nr_inodes=9"), 0);
        panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(notice(panel), QString());
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
    }

    void isTriedAgainAtEachOccasion_data() {
        QTest::addColumn<QString>("occasion");
        for (const char* occasion : {"edit", "rename", "device list", "focus", "hidden", "destroyed"})
            QTest::newRow(occasion) << occasion;
    }

    void isTriedAgainAtEachOccasion() {
        QFETCH(QString, occasion);
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        panel.selectTab(4);
        calls.failing = "write";
        calls.failures = 1;
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(calls.failures, 0);
        QVERIFY(!notice(panel).isEmpty());
        if (occasion == "edit")
            panel.click("quorviBoxLightOnBattery");
        else if (occasion == "rename")
            panel.pane->setObjectValue(QStringLiteral("Mine"), kProfileNameColumn, 1);
        else if (occasion == "device list")
            panel.helper->sendDeviceList(1);
        else if (occasion == "focus")
            panel.pane->sysPrefWindowDidBecomeKey();
        else if (occasion == "hidden")
            panel.pane->willUnselect();
        else
            panel.pane.reset();
        QTRY_COMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"),
            occasion == "edit" ? 0 : 2);
        if (occasion == "rename")
            QCOMPARE(panel.savedSettings().array("profiles").dictionary(1).string("name"),
                std::u16string(u"Mine"));
        if (occasion == "hidden")
            panel.pane->didSelect(); // pairs the end of the test
        QCOMPARE(notice(panel), QString());
    }

    void leavesTheTreeInMemoryWhenAListComesOrThePanelIsHidden() {
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        panel.selectTab(4);
        calls.failing = "write";
        calls.error = ENOSPC;
        panel.click("quorviBoxLightOnWheel");
        panel.helper->sendDeviceList(0);
        QTRY_VERIFY(!panel.pane->hasDevice());
        QVERIFY(!panel.find<QCheckBox>("quorviBoxLightOnWheel")->isChecked());
        QVERIFY(!notice(panel).isEmpty());
        panel.connectDevices(1);
        panel.pane->willUnselect();
        panel.pane->didSelect();
        panel.connectDevices(1);
        QVERIFY(!panel.find<QCheckBox>("quorviBoxLightOnWheel")->isChecked());
        QVERIFY(panel.find<QCheckBox>("quorviBoxLightOnBattery")->isChecked());
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 3);
        calls.failing.clear();
        panel.helper->sendDeviceList(1);
        QTRY_COMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
        QCOMPARE(notice(panel), QString());
    }
};

QUORVI_PANE_TEST_MAIN(SaveFailureTest)
#include "SaveFailureTest.moc"
