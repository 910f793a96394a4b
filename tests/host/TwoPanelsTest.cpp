// Two settings applications at once, of one user each time with settings of their own, and one helper.

#include <QTest>

#include <csignal>

#include "host/Session.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

struct Panel {
    explicit Panel(const Session& session) {
        home.awaitDeviceList();
        program =
            session.startSettings({}, {"HOME=" + home.path(), "XDG_CONFIG_HOME=" + home.path() + "/.config"});
    }
    [[nodiscard]] bool getsTheList() const {
        return QTest::qWaitFor([&] { return home.deviceListHasCome(); }, kWindowPatienceMs);
    }

    UserHome home;
    std::unique_ptr<ChildProcess> program;
};

} // namespace

class TwoPanelsTest : public QObject {
    Q_OBJECT

  private slots:
    void bothGetTheListAndOneGoesOnWithoutTheOther_data() {
        QTest::addColumn<bool>("firstStays");
        QTest::newRow("the first one stays") << true;
        QTest::newRow("the second one stays") << false;
    }

    void bothGetTheListAndOneGoesOnWithoutTheOther() {
        QFETCH(bool, firstStays);
        const Session session;
        const Panel first(session);
        QVERIFY(first.getsTheList());
        const Panel second(session);
        QVERIFY(second.getsTheList());
        QCOMPARE(session.helpers().size(), std::size_t(1));

        first.home.awaitDeviceList();
        second.home.awaitDeviceList();
        QCOMPARE(session.panelsToldOfDetaching(), 2);
        QVERIFY(first.getsTheList());
        QVERIFY(second.getsTheList());

        const Panel& leaving = firstStays ? second : first;
        const Panel& staying = firstStays ? first : second;
        leaving.program->signal(SIGTERM);
        QCOMPARE(leaving.program->wait(), std::optional(0));
        QTRY_VERIFY(session.runs("KyvarQuorviPane"));
        staying.home.awaitDeviceList();
        session.attach();
        QVERIFY(staying.getsTheList());
        QCOMPARE(session.panelsToldOfDetaching(), 1);
        QVERIFY(staying.program->isRunning());
    }
};

QUORVI_SESSION_TEST_MAIN(TwoPanelsTest)
#include "TwoPanelsTest.moc"
