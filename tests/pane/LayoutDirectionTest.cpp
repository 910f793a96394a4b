// The panel is mirrored when the language that its texts are in is written from the right, whatever the
// host's.

#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QTest>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

struct Speaking {
    explicit Speaking(const char* locale) : all("LC_ALL", locale), list("LANGUAGE", std::nullopt) {}
    EnvironmentVariable all;
    EnvironmentVariable list;
};

} // namespace

class LayoutDirectionTest : public QObject {
    Q_OBJECT

  private slots:
    void theLanguageOfTheTextsDecides_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<bool>("mirrored");
        QTest::newRow("Arabic") << "ar_EG.UTF-8" << true;
        QTest::newRow("English") << "en_GB.UTF-8" << false;
        QTest::newRow("German") << "de_DE.UTF-8" << false;
        QTest::newRow("none") << "C" << false;
        // Written from the right, but the panel does not speak it.
        QTest::newRow("Hebrew") << "he_IL.UTF-8" << false;
    }

    void theLanguageOfTheTextsDecides() {
        QFETCH(QString, locale);
        QFETCH(bool, mirrored);
        const Speaking speaking(locale.toUtf8().constData());
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        const Qt::LayoutDirection wanted = mirrored ? Qt::RightToLeft : Qt::LeftToRight;
        QWidget* view = fixture.pane->mainView();
        QCOMPARE(view->layoutDirection(), wanted);
        QCOMPARE(fixture.find<QWidget>("quorviTableProfiles")->layoutDirection(), wanted);
        QCOMPARE(fixture.find<QWidget>("quorviMenuTop1")->layoutDirection(), wanted);
        QCOMPARE(fixture.find<QLabel>("labelInput6")->layoutDirection(), wanted);
        QCOMPARE(view->findChildren<QDialog*>().size(), 6);
        for (const QDialog* sheet : view->findChildren<QDialog*>())
            QCOMPARE(sheet->layoutDirection(), wanted);
        QVERIFY(view->findChildren<QMenu*>().size() > 15);
        for (const QMenu* menu : view->findChildren<QMenu*>())
            QCOMPARE(menu->layoutDirection(), wanted);
        QCOMPARE(fixture.window->layoutDirection(), Qt::LeftToRight); // the host's
    }

    void thePopUpsStayByTheirInputs_data() {
        QTest::addColumn<QString>("locale");
        QTest::newRow("Arabic") << "ar_EG.UTF-8";
        QTest::newRow("English") << "en_GB.UTF-8";
    }

    void thePopUpsStayByTheirInputs() {
        QFETCH(QString, locale);
        const Speaking speaking(locale.toUtf8().constData());
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        const auto* drawing = fixture.find<MouseView>("viewMouse");
        QVERIFY(drawing->middleOfInput(1).x() < drawing->middleOfInput(2).x());
        const auto edges = [&](int input) {
            return fixture.find<PopUpButton>(qPrintable(QString("quorviMenuTop%1").arg(input)))->geometry();
        };
        for (const int left : {1, 3, 4, 5})
            QVERIFY(edges(left).right() < drawing->geometry().left());
        for (const int right : {2, 6, 7, 8, 9})
            QVERIFY(edges(right).left() > drawing->geometry().right());
    }

    void theCurrentProfileIsSelectedInTheMirroredList() {
        const Speaking arabic("ar_EG.UTF-8");
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        QCOMPARE(fixture.selectedRow("quorviTableProfiles"), fixture.pane->profileIndex());
        QVERIFY(fixture.pane->profileIndex() >= 0);
    }

    void theHeadingStandsWhereTheLanguageBegins() {
        const Speaking arabic("ar_EG.UTF-8");
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        const auto* heading = fixture.find<QLabel>("quorviTextProfile");
        QVERIFY(heading->alignment().testFlag(Qt::AlignRight));
        QVERIFY(heading->alignment().testFlag(Qt::AlignAbsolute));
    }

    void theLightsOfTheProfileAreOnTheDrawing() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        auto* drawing = fixture.find<MouseView>("viewMouse");
        const QImage bothLit = drawing->grab().toImage();
        fixture.selectTab(4);
        fixture.click("quorviBoxLightOnWheel");
        const QImage batteryLit = drawing->grab().toImage();
        QVERIFY(batteryLit != bothLit);
        fixture.click("quorviBoxLightOnBattery");
        QVERIFY(drawing->grab().toImage() != batteryLit);
        fixture.click("quorviBoxLightOnBattery");
        fixture.click("quorviBoxLightOnWheel");
        QCOMPARE(drawing->grab().toImage(), bothLit);
    }
};

QUORVI_PANE_TEST_MAIN(LayoutDirectionTest)
#include "LayoutDirectionTest.moc"
