// A save of the panel of which one call fails: nobody is told, the old file stands, and the next save
// succeeds.

#include <QCheckBox>

#include "model/ScriptedCalls.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/Files.h"

using namespace quorvi;
using namespace quorvi::test;
namespace fs = std::filesystem;

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
        calls.failing = call.toStdString();
        calls.error = EINTR;
        calls.failures = 1;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(calls.failures, 0);
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
    }

    void keepsTheChangeForTheNextSaveThoughAnotherProgramWrites() {
        ScriptedCalls calls;
        PaneFixture panel({.files = calls});
        panel.openWith(PaneFixture::sampleTree());
        calls.failing = "write";
        calls.error = ENOSPC;
        calls.failures = 1;
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        const auto theirs = PaneFixture::sampleTree();
        theirs.array("profiles").dictionary(0).set("ledstate", 1);
        panel.writeSettings(theirs);
        panel.pane->sysPrefWindowDidBecomeKey();
        panel.click("quorviBoxLightOnBattery");
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 0);
        QCOMPARE(std::distance(fs::directory_iterator(panel.settingsFile().parent_path()), {}), 2);
    }
};

QUORVI_PANE_TEST_MAIN(SaveFailureTest)
#include "SaveFailureTest.moc"
