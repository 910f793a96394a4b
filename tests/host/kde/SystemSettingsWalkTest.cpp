// A user's whole way through System Settings: found by a search, opened, edited, left, opened again. With a
// folder in QUORVI_DIARY each stop leaves a picture there and a paragraph in README.md: the content of the
// file and the mouse, and the messages to the helper.

#include <QTest>

#include <fstream>

#include "host/kde/KdeHost.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

const QString kWheelLight = QStringLiteral("check box 'Wheel light'");
const QString kDeviceTab = QStringLiteral("page tab 'Device'");
const QString kKeyword = QStringLiteral("polling rate");

class Diary {
  public:
    explicit Diary(KdeHost& kde) : m_kde(kde) {}

    void note(const std::string& stop) {
        if (m_folder.empty())
            return;
        const std::string picture = std::to_string(++m_stops) + "-" + stop + ".png";
        QVERIFY(runProgram({"import", "-window", "root", m_folder + "/" + picture}).exitCode == 0);
        std::ofstream diary(m_folder + "/README.md", m_stops == 1 ? std::ios::trunc : std::ios::app);
        if (m_stops == 1)
            diary << "# The panel in System Settings\n";
        const auto saved = m_kde.session.home.savedSettings();
        diary << "\n![" << stop << "](" << picture << ")\n\nFile: "
              << (saved ? "lights " + std::to_string(m_kde.session.home.savedLights()) : "none")
              << "; mouse: lights " << m_kde.session.recordByte(kFirstProfileLights) << "; helper told:";
        for (const std::string& command : m_monitor.commands())
            if (!command.empty()) // the helper's own device list
                diary << " " << command;
        diary << "\n";
    }

  private:
    const std::string m_folder = qEnvironmentVariable("QUORVI_DIARY").toStdString();
    int m_stops = 0;
    KdeHost& m_kde;
    EventMonitor m_monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
};

/// Where the light on the wheel is set.
void showLights(KdeHost& kde, bool on) {
    QVERIFY(kde.showsPanel());
    kde.click(kDeviceTab);
    QTRY_COMPARE_WITH_TIMEOUT(kde.thing(kWheelLight).is(AccessibleState::checked), on, kWindowPatienceMs);
}

} // namespace

class SystemSettingsWalkTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void whatIsFoundBySearchAndChangedIsKeptWhenThePageIsLeftAndOpenedAgain() {
        KdeHost kde;
        Diary diary(kde);
        kde.startAtOverview();
        kde.search("pollin");
        QVERIFY(kde.isFound(kKeyword));
        diary.note("searched");
        kde.openFound(kKeyword);
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.commands("KyRO 1"), std::string("KyRO 1"));
        QVERIFY(!kde.session.home.savedSettings());
        diary.note("opened");
        showLights(kde, true);
        kde.click(kWheelLight);
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.home.savedLights(), 2, kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.recordByte(kFirstProfileLights), 2, kWindowPatienceMs);
        QCOMPARE(kde.commands("KyPR 0"), std::string("KyPR 0"));
        diary.note("edited");
        kde.leavePanel();
        QCOMPARE(kde.commands("KyRO 0 KyPR 0"), std::string("KyRO 0 KyPR 0"));
        QCOMPARE(kde.session.home.savedLights(), 2);
        diary.note("left");
        kde.returnToPanel();
        showLights(kde, false);
        QCOMPARE(kde.commands("KyRO 1"), std::string("KyRO 1"));
        diary.note("opened-again");
        QVERIFY(kde.close());
        QCOMPARE(kde.commands("KyRO 0 KyPR 0"), std::string("KyRO 0 KyPR 0"));
        QCOMPARE(kde.session.home.savedLights(), 2);
        QCOMPARE(kde.session.recordByte(kFirstProfileLights), 2);
        diary.note("closed");
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsWalkTest)
#include "SystemSettingsWalkTest.moc"
