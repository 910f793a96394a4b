// The mouse is unplugged and plugged in while the panel is open.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QTest>

#include <sys/stat.h>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi::test;

namespace {

/// What changes with every save, because the file is replaced as a whole.
ino_t fileNumber(const std::filesystem::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

/// Settings that differ from the defaults in the polling rate and the lights.
quorvi::plist::Dictionary otherSettings() {
    const auto tree = UserHome::defaults();
    tree.dictionary("settings").set("pollingrate", 1000);
    tree.array("profiles").dictionary(0).set("ledstate", 0);
    return tree;
}

/// The question whether to restore the defaults is up, and the mouse is unplugged behind it.
struct UnpluggedBehindTheQuestion {
    explicit UnpluggedBehindTheQuestion(const char* answer) {
        session.home.writeSettings(otherSettings());
        window = std::make_unique<OpenWindow>();
        if (!window->showsMouse())
            qFatal("the panel does not show the mouse");
        window->clickTab(kDeviceTab);
        fileBefore = fileNumber(session.home.settingsFile());
        recordBefore = session.record();
        whenSheetIsUp(&window->host(), "quorviPanelConfirm", [&](QDialog* sheet) {
            session.detach();
            rebuilt = window->showsNoMouse() && sheet->isVisible();
            clickButton(outlet<QAbstractButton>(sheet, answer));
        });
        window->click("quorviButtonRestoreDefaults");
    }

    Session session;
    std::unique_ptr<OpenWindow> window;
    ino_t fileBefore = 0;
    std::vector<std::uint8_t> recordBefore;
    bool rebuilt = false;
};

} // namespace

class PlugAndUnplugTest : public QObject {
    Q_OBJECT

  private slots:
    void unpluggingGreysAndPluggingInBringsBack() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        const SheetCounter sheets(window);
        for (int round = 0; round < 2; ++round) {
            session.detach();
            QVERIFY(window.showsNoMouse());
            for (const char* control :
                {"quorviMenuTop2", "quorviMenuTop9", "quorviBoxLightOnWheel", "quorviBoxAcceleration",
                    "quorviButtonProfileAdd", "quorviButtonMacroAdd", "quorviButtonRestoreDefaults"})
                QVERIFY2(!window.isEnabled(control), control);
            for (const char* control :
                {"quorviButtonCheckForUpdates", "quorviButtonHelp", "quorviTextFirmwareVersion"})
                QVERIFY2(window.isEnabled(control), control);
            QCOMPARE(window.find<QAbstractItemView>("quorviTableProfiles")->model()->rowCount(), 0);
            session.attach();
            QVERIFY(window.showsMouse());
            for (const char* control :
                {"quorviMenuTop2", "quorviMenuTop9", "quorviBoxLightOnWheel", "quorviButtonProfileAdd"})
                QVERIFY2(window.isEnabled(control), control);
            QCOMPARE(window.find<QAbstractItemView>("quorviTableProfiles")->model()->rowCount(), 1);
        }
        QCOMPARE(sheets.count(), 0);
    }

    void unpluggedBeforeTheFirstStartSaysSoOnce() {
        Session session;
        session.startHelper();
        session.detach();
        const OpenWindow window;
        QString said;
        bool noMouseBehind = false;
        whenSheetIsUp(&window.host(), "quorviPanelNoDevice", [&](QDialog* sheet) {
            said = outlet<QLabel>(sheet, "quorviTextNoDevice")->text();
            noMouseBehind = window.showsNoMouse();
            clickButton(outlet<QAbstractButton>(sheet, "quorviNoDeviceButtonOK"));
        });
        QTRY_VERIFY(!said.isEmpty() && !window.find<QDialog>("quorviPanelNoDevice")->isVisible());
        QCOMPARE(said, QStringLiteral("Switch the mouse on and plug in its cable or receiver. Its settings "
                                      "appear as soon as it is found."));
        QVERIFY(noMouseBehind);
        const SheetCounter sheets(window);
        session.attach();
        QVERIFY(window.showsMouse());
        session.detach();
        QVERIFY(window.showsNoMouse());
        QCOMPARE(sheets.count(), 0);
        QCOMPARE(session.helpers().size(), std::size_t(1));
    }

    void aMousePluggedInWhileTheSheetIsUpIsShownBehindIt() {
        Session session;
        session.startHelper();
        session.detach();
        const OpenWindow window;
        bool shownBehind = false;
        bool closed = false;
        whenSheetIsUp(&window.host(), "quorviPanelNoDevice", [&](QDialog* sheet) {
            session.attach();
            shownBehind = window.showsMouse() && sheet->isVisible();
            sheet->reject(); // as Escape does
            closed = true;
        });
        QTRY_VERIFY(closed);
        QVERIFY(shownBehind);
        QTRY_VERIFY(!window.find<QDialog>("quorviPanelNoDevice")->isVisible());
        window.clickTab(kDeviceTab);
        window.click("quorviBoxLightOnWheel");
        QCOMPARE(session.home.savedLights(), 2);
    }

    void unpluggedBehindAQuestionThatIsCancelledChangesNothing() {
        const UnpluggedBehindTheQuestion test("quorviConfirmButtonCancel");
        QVERIFY(test.rebuilt);
        QCOMPARE(fileNumber(test.session.home.settingsFile()), test.fileBefore);
        QCOMPARE(changes(test.recordBefore, test.session.record()), QString());
        test.session.attach();
        QVERIFY(test.window->showsMouse());
        QCOMPARE(test.window->selectedTitle("quorviMenuPollingRate"), QStringLiteral("1000 Hz"));
        QVERIFY(!test.window->isChecked("quorviBoxLightOnWheel"));
    }

    void unpluggedBehindAQuestionThatIsConfirmedRestores() {
        const UnpluggedBehindTheQuestion test("quorviConfirmButtonOK");
        QVERIFY(test.rebuilt);
        QCOMPARE(test.session.home.savedPollingRate(), 500);
        QCOMPARE(test.session.home.savedLights(), 3);
        QTRY_COMPARE(
            changes(test.recordBefore, test.session.record()), QStringLiteral("3: 1 -> 2, 213: 0 -> 3"));
        QVERIFY(test.window->showsNoMouse());
        test.session.attach();
        QVERIFY(test.window->showsMouse());
        QCOMPARE(test.window->selectedTitle("quorviMenuPollingRate"), QStringLiteral("500 Hz"));
        QVERIFY(test.window->isChecked("quorviBoxLightOnWheel"));
    }
};

QUORVI_SESSION_TEST_MAIN(PlugAndUnplugTest)
#include "PlugAndUnplugTest.moc"
