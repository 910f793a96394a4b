// The user's choices are in the settings file and in the mouse a moment later, byte for byte.

#include <QComboBox>
#include <QMenu>
#include <QTest>
#include <QWindow>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi::test;

namespace {

/// A panel with the mouse connected, at the device tab, and what the mouse held before anything was done.
struct DeviceTab {
    DeviceTab() {
        if (!window.showsMouse())
            qFatal("the panel does not show the mouse");
        window.clickTab(kDeviceTab);
        before = session.record();
    }
    /// Waits until the mouse holds another record and says what is new in it.
    [[nodiscard]] QString changesOfTheMouse() const {
        (void)QTest::qWaitFor([&] { return session.record() != before; }, kWindowPatienceMs);
        return changes(before, session.record());
    }
    /// The pop-up's menu, once it is open.
    [[nodiscard]] QMenu* openMenu(const char* popUp) const {
        auto* menu = window.find<QComboBox>(popUp)->findChild<QMenu*>();
        if (!menu || !QTest::qWaitFor([&] { return menu->isVisible(); }, kWindowPatienceMs))
            qFatal("the menu of %s does not open", popUp);
        return menu;
    }

    Session session;
    OpenWindow window;
    std::vector<std::uint8_t> before;
};

} // namespace

class SettingsReachTheMouseTest : public QObject {
    Q_OBJECT

  private slots:
    void aClickOnALight_data() {
        QTest::addColumn<QByteArray>("box");
        QTest::addColumn<int>("lights");
        QTest::addColumn<QString>("changed");
        QTest::newRow("wheel") << QByteArray("quorviBoxLightOnWheel") << 2 << "213: 3 -> 2";
        QTest::newRow("battery") << QByteArray("quorviBoxLightOnBattery") << 1 << "213: 3 -> 1";
    }

    void aClickOnALight() {
        QFETCH(QByteArray, box);
        QFETCH(int, lights);
        QFETCH(QString, changed);
        const DeviceTab panel;
        panel.window.click(box.constData());
        QVERIFY(!panel.window.isChecked(box.constData()));
        QCOMPARE(panel.session.home.savedLights(), lights);
        QCOMPARE(panel.changesOfTheMouse(), changed);
        panel.window.click(box.constData());
        QCOMPARE(panel.session.home.savedLights(), 3);
        QTRY_COMPARE(changes(panel.before, panel.session.record()), QString());
    }

    void bothLightsOff() {
        const DeviceTab panel;
        panel.window.click("quorviBoxLightOnWheel");
        panel.window.click("quorviBoxLightOnBattery");
        QCOMPARE(panel.session.home.savedLights(), 0);
        QTRY_COMPARE(changes(panel.before, panel.session.record()), QStringLiteral("213: 3 -> 0"));
    }

    void aPollingRateChosenWithTheMouse_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("rate");
        QTest::addColumn<QString>("changed");
        QTest::newRow("125 Hz") << "125 Hz" << 125 << "3: 2 -> 8";
        QTest::newRow("1000 Hz") << "1000 Hz" << 1000 << "3: 2 -> 1";
    }

    void aPollingRateChosenWithTheMouse() {
        QFETCH(QString, title);
        QFETCH(int, rate);
        QFETCH(QString, changed);
        const DeviceTab panel;
        choose(panel.window.find("quorviMenuPollingRate"), {title});
        QCOMPARE(panel.window.selectedTitle("quorviMenuPollingRate"), title);
        QCOMPARE(panel.session.home.savedPollingRate(), rate);
        QCOMPARE(panel.changesOfTheMouse(), changed);
    }

    void aPollingRateChosenWithTheKeyboard_data() {
        QTest::addColumn<Qt::Key>("arrow");
        QTest::addColumn<int>("rate");
        QTest::addColumn<QString>("changed");
        QTest::newRow("one up") << Qt::Key_Up << 125 << "3: 2 -> 8";
        QTest::newRow("one down") << Qt::Key_Down << 1000 << "3: 2 -> 1";
    }

    void aPollingRateChosenWithTheKeyboard() {
        QFETCH(Qt::Key, arrow);
        QFETCH(int, rate);
        QFETCH(QString, changed);
        const DeviceTab panel;
        QWindow* window = panel.window.host().windowHandle();
        QTest::keyClick(window, Qt::Key_R, Qt::AltModifier); // the key of "Polling rate"
        QTRY_VERIFY(panel.window.find("quorviMenuPollingRate")->hasFocus());
        QTest::keyClick(window, Qt::Key_Space);
        QMenu* menu = panel.openMenu("quorviMenuPollingRate");
        QTest::keyClick(menu, arrow);
        QTest::keyClick(menu, Qt::Key_Return);
        QTRY_VERIFY(!menu->isVisible());
        QCOMPARE(panel.session.home.savedPollingRate(), rate);
        QCOMPARE(panel.changesOfTheMouse(), changed);
    }
};

QUORVI_SESSION_TEST_MAIN(SettingsReachTheMouseTest)
#include "SettingsReachTheMouseTest.moc"
