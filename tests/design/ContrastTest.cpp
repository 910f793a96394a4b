// The contrast of the panel's own drawings with their backgrounds, in a light, a dark and high-contrast
// palettes: at least 3:1 for signs and 4.5:1 for texts, and 7:1 for both in high-contrast palettes.

#include <QPainter>
#include <QStandardItemModel>

#include "design/Themes.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MouseDrawing.h"
#include "widgets/MouseLights.h"
#include "widgets/StageBar.h"
#include "widgets/StateLabel.h"
#include "widgets/StepsTimeline.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"
#include "widgets/WarningSign.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// The widget as it stands in a window of these colours.
QImage pictureOf(QWidget& widget, const QPalette& palette) {
    widget.setPalette(palette);
    QImage picture(widget.size() * 2, QImage::Format_RGB32);
    picture.setDevicePixelRatio(2);
    picture.fill(palette.color(QPalette::Window));
    widget.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

/// The highest contrast to the colour that a pixel next to the place, in points of the widget, has.
qreal contrastNear(const QImage& picture, const QPointF& place, const QColor& ground, int reach = 3) {
    qreal highest = 1;
    const QPoint middle = (place * picture.devicePixelRatio()).toPoint();
    for (int y = middle.y() - reach; y <= middle.y() + reach; ++y)
        for (int x = middle.x() - reach; x <= middle.x() + reach; ++x)
            if (picture.rect().contains(x, y))
                highest = qMax(highest, contrastOf(picture.pixelColor(x, y), ground));
    return highest;
}

} // namespace

class ContrastTest : public QObject {
    Q_OBJECT

  private slots:
    void contrastIsTheGuidelines() {
        QCOMPARE(contrastOf(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrastOf(Qt::white, Qt::white), 1.0);
        // Known values of the guidelines' own examples.
        QVERIFY(qAbs(contrastOf(QColor("#767676"), Qt::white) - 4.54) < 0.005);
        QVERIFY(qAbs(contrastOf(QColor("#ff0000"), Qt::white) - 4.0) < 0.005);
    }

    void whoChoosesContrastIsKnown_data() { eachTheme(); }
    void whoChoosesContrastIsKnown() {
        QCOMPARE(isHighContrast(palette()), theme().highContrast);
        QCOMPARE(wantedContrast(palette()), theme().highContrast ? 7.0 : 3.0);
        QCOMPARE(wantedTextContrast(palette()), theme().highContrast ? 7.0 : 4.5);
    }

    void coloursStandOut_data() { eachTheme(); }
    void coloursStandOut() {
        const QColor base = palette().color(QPalette::Base);
        const QColor window = palette().color(QPalette::Window);
        const qreal sign = signs();
        QVERIFY(contrastOf(outlineColour(palette()), base) >= sign);
        QVERIFY(contrastOf(markColour(palette()), base) >= sign);
        QVERIFY(contrastOf(markColour(palette()), window) >= sign);
        QVERIFY(contrastOf(lineOnWindow(palette(), 0.1), window) >= sign);
        QVERIFY(contrastOf(lineOnWindow(palette(), 0.1), base) >= sign);
        QVERIFY(contrastOf(mutedTextColour(palette()), base) >= texts());
        QVERIFY(contrastOf(mutedTextOnWindow(palette()), window) >= texts());
        QCOMPARE(mutedTextOnWindow(palette()) == palette().color(QPalette::WindowText), theme().highContrast);
        QVERIFY(
            contrastOf(markGroundColour(palette()), palette().color(QPalette::HighlightedText)) >= texts());
        for (const char* colour : {"#d02f2f", "#808080", "#ffffff", "#000000"})
            QVERIFY(contrastOf(signOnButton(palette(), QColor(colour)), palette().color(QPalette::Button)) >=
                    sign);
    }

    void theHighlightStaysWhereItStandsOut() {
        QCOMPARE(markColour(paletteOf(kThemes[0])), QColor("#308cc6"));
        QCOMPARE(markGroundColour(paletteOf(kThemes[4])), QColor("#ffe680"));
    }

    void greyedThingsRecede() {
        QPalette greyed = paletteOf(kThemes[0]);
        for (const auto role : {QPalette::WindowText, QPalette::Text})
            greyed.setColor(QPalette::Disabled, role, QColor("#bebebe"));
        const QColor active = lineOnWindow(greyed, 0.4);
        greyed.setCurrentColorGroup(QPalette::Disabled);
        const QColor window = greyed.color(QPalette::Window);
        QVERIFY(contrastOf(lineOnWindow(greyed, 0.4), window) < contrastOf(active, window));
    }

    void theMouseIsSeen_data() { eachTheme(); }
    void theMouseIsSeen() {
        const auto sign = signs();
        const QColor window = palette().color(QPalette::Window);
        for (const bool lit : {false, true}) {
            MouseLights mouse;
            mouse.resize(2 * mouseSheet.size().toSize());
            mouse.setLights(lit, lit);
            const QImage picture = pictureOf(mouse, palette());
            const auto at = [&](qreal x, qreal y) { return sheetOn(mouse.size()).map(QPointF(x, y)); };
            QVERIFY(contrastNear(picture, at(110, 14), window) >= sign);                    // its outline
            QVERIFY(contrastNear(picture, at(36, 150), window) >= sign);                    // a side button's
            QVERIFY(contrastNear(picture, at(96, 160), window) >= sign);                    // a top button's
            QVERIFY(contrastNear(picture, at(wheelLight().left(), 94), window) >= sign);    // the wheel's
            QVERIFY(contrastNear(picture, at(batteryLight().left(), 266), window) >= sign); // the battery's
        }
    }

    void theNumbersOnTheMouseAreRead_data() { eachTheme(); }
    void theNumbersOnTheMouseAreRead() {
        for (const BadgeState state : {BadgeState::Plain, BadgeState::Marked, BadgeState::Pressed}) {
            QImage picture(QSize(220, 330) * 3, QImage::Format_RGB32);
            picture.fill(palette().color(QPalette::Window));
            QPainter painter(&picture);
            painter.scale(3, 3);
            QFont font;
            font.setPixelSize(13);
            font.setBold(true);
            painter.setFont(font);
            drawBadge(painter, palette(), 8, state);
            painter.end();
            const QPointF middle = placeOfInput(8) * 3;
            const QColor ground = picture.pixelColor((middle + QPointF(0, 27)).toPoint());
            QVERIFY(contrastOf(ground, palette().color(QPalette::Window)) >=
                    (state == BadgeState::Plain ? signs() : 1.0));
            QVERIFY(contrastNear(picture, middle, ground, 14) >= texts());
        }
    }

    void whatWarnsIsRead_data() { eachTheme(); }
    void whatWarnsIsRead() {
        QVERIFY(contrastOf(warningGroundColour(), warningTextColour()) >= texts());
        StateLabel label;
        label.setText("■■■■■■■■");
        label.setAlignment(Qt::AlignCenter);
        label.resize(200, 30);
        label.setWarning(true);
        const QImage picture = pictureOf(label, palette());
        const QColor ground = picture.pixelColor(100, 2);
        QCOMPARE(ground, warningGroundColour());
        QVERIFY(contrastNear(picture, {100, 15}, ground, 20) >= texts());
    }

    void theSignOfAFaultIsSeen_data() { eachTheme(); }
    void theSignOfAFaultIsSeen() {
        const QColor window = palette().color(QPalette::Window);
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(window);
        QPainter painter(&picture);
        drawWarningSign(painter, picture.rect(), palette().color(QPalette::WindowText));
        painter.end();
        QVERIFY(contrastNear(picture, {32, 56}, window) >= signs());                   // its outline
        QVERIFY(contrastNear(picture, {32, 40}, warningGroundColour(), 6) >= signs()); // what is in it
        QVERIFY(contrastNear(picture, {4, 4}, window) < 1.01);
    }

    void theStagesAreRead_data() { eachTheme(); }
    void theStagesAreRead() {
        StageBar bar;
        bar.resize(400, bar.sizeHint().height());
        bar.setStages({{"800", 800, 800}, {"1600", 1600, 1600}}, 0);
        const QImage picture = pictureOf(bar, palette());
        const QColor base = palette().color(QPalette::Base);
        const QColor current = picture.pixelColor(20, 30);
        QVERIFY(contrastNear(picture, {399, 15}, base) >= signs()); // the frame
        const qreal text = bar.fontMetrics().height() / 2.0 + 5;
        QVERIFY(contrastNear(picture, {100, text}, current, 20) >= texts());
        QVERIFY(contrastNear(picture, {300, text}, base, 20) >= texts());
        const qreal level = bar.height() - 9;
        QVERIFY(contrastNear(picture, {20, level}, current, 4) >= signs());
        QVERIFY(contrastNear(picture, {220, level}, base, 4) >= signs());
    }

    void theCurveIsSeen_data() { eachTheme(); }
    void theCurveIsSeen() {
        AccelerationCurve curve;
        curve.resize(300, 200);
        curve.setFactor(1.8F);
        const QImage picture = pictureOf(curve, palette());
        const QColor base = palette().color(QPalette::Base);
        QVERIFY(contrastNear(picture, curve.pointAt(0.7, 1.8), base) >= signs());
        const QPointF axis(curve.pointAt(0, 1.8).x(), curve.pointAt(1, 1.8).y() + 20);
        QVERIFY(contrastNear(picture, axis, base, 2) >= signs());
        // The dashes have gaps.
        QVERIFY(contrastNear(picture, curve.pointAt(0.7, 1.0), base, 12) >= signs());
    }

    void theTimelineIsRead_data() { eachTheme(); }
    void theTimelineIsRead() {
        StepsTimeline timeline;
        timeline.resize(400, timeline.sizeHint().height());
        TimelineContent content;
        content.timeline = {.delays = {60, 60, 60, 2000},
            .laneOfStep = {0, 0, 0, 0},
            .lanes = {{LaneKind::buttons, 0}},
            .bars = {{0, 0, 1, BarKind::held, 1}, {0, 2, std::nullopt, BarKind::staysDown, 0}}};
        content.laneNames = QStringList("Mouse");
        timeline.setContent(content);
        timeline.ensurePolished();
        const QColor base = palette().color(QPalette::Base);
        const auto inView = [&](const QPoint& point) { return timeline.viewport()->mapTo(&timeline, point); };
        const auto middle = [&](int step) { return QPointF(inView(timeline.barOf(step).center())); };
        const QPoint ground = inView(timeline.barOf(0).topLeft() + QPoint(6, 4)) * 2;
        const QImage plain = pictureOf(timeline, palette());
        const QColor tint = tintColour(palette());
        QCOMPARE(plain.pixelColor(ground), tint);
        QVERIFY(contrastNear(plain, middle(0), tint, 12) >= texts());
        QVERIFY(contrastNear(plain, QPointF(inView(timeline.edgeOf(1))), base) >= signs()); // the outline
        QVERIFY(contrastNear(plain, middle(2), base, 12) >= signs());                       // the hatching
        const QPointF delay(
            (timeline.edgeOf(0).x() + timeline.edgeOf(1).x()) / 2.0, timeline.edgeOf(4).y() + 3);
        QVERIFY(contrastNear(plain, delay, base, 12) >= texts());
        timeline.setSelectedSteps({0, 1}, 0);
        const QImage selected = pictureOf(timeline, palette());
        const QColor mark = markGroundColour(palette());
        QCOMPARE(selected.pixelColor(ground), mark);
        QVERIFY(contrastNear(selected, middle(0), mark, 12) >= texts());
    }

    void theSignsOnButtonsAreSeen_data() { eachTheme(); }
    void theSignsOnButtonsAreSeen() {
        const QPalette before = QApplication::palette();
        QApplication::setPalette(palette());
        for (int symbol = 0; symbol <= int(Symbol::Close); ++symbol) {
            QImage picture(48, 48, QImage::Format_RGB32);
            const QColor button = palette().color(QPalette::Button);
            picture.fill(button);
            QPainter painter(&picture);
            symbolIcon(Symbol(symbol)).paint(&painter, picture.rect());
            painter.end();
            QVERIFY(contrastNear(picture, {24, 24}, button, 20) >= signs());
        }
        QApplication::setPalette(before);
    }

    void aSelectedRowIsReadWithoutTheFocusToo_data() { eachTheme(); }
    void aSelectedRowIsReadWithoutTheFocusToo() {
        KyvarQuorviTableView table;
        QStandardItemModel rows(2, 1);
        for (int row = 0; row < 2; ++row)
            rows.setItem(row, 0, new QStandardItem("■■■■■■■■"));
        table.setModel(&rows);
        table.resize(200, 120);
        QPalette faded = palette(); // as styles fade what has no focus
        faded.setColor(QPalette::Inactive, QPalette::Highlight,
            mixed(0.5, faded.color(QPalette::Highlight), faded.color(QPalette::Base)));
        faded.setColor(QPalette::Inactive, QPalette::HighlightedText, faded.color(QPalette::Text));
        table.setPalette(faded);
        table.show();
        QVERIFY(QTest::qWaitForWindowExposed(&table));
        table.selectRowAlone(0);
        table.clearFocus();
        const QRect row = table.visualRect(rows.index(0, 0));
        const QRect place(table.viewport()->mapTo(&table, row.topLeft()), row.size());
        QImage picture(table.size() * 2, QImage::Format_RGB32);
        picture.setDevicePixelRatio(2);
        for (const bool active : {true, false}) {
            QWidget other;
            if (!active) {
                other.show();
                other.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&other));
            }
            table.render(&picture);
            const QColor ground = picture.pixelColor((QPoint(place.right() - 4, place.center().y()) * 2));
            QCOMPARE(ground, markGroundColour(palette()));
            QVERIFY(
                contrastNear(picture, QPointF(place.left() + 24, place.center().y()), ground, 20) >= texts());
        }
    }

    void theStateOfARecordingIsRead_data() { eachTheme(); }
    void theStateOfARecordingIsRead() {
        StateLabel label;
        label.setText("Recording");
        label.resize(200, 30);
        const QImage picture = pictureOf(label, palette());
        const QColor ground = picture.pixelColor(390, 10);
        QCOMPARE(ground, markGroundColour(palette()));
        QVERIFY(contrastNear(picture, {30, 15}, ground, 20) >= texts());
    }

  private:
    static const Theme& theme() { return themeNamed(QTest::currentDataTag()); }
    static QPalette palette() { return paletteOf(theme()); }
    static qreal signs() { return theme().highContrast ? 7.0 : 3.0; }
    static qreal texts() { return theme().highContrast ? 7.0 : 4.5; }

    static void eachTheme() {
        QTest::addColumn<int>("theme");
        for (int i = 0; i < int(std::size(kThemes)); ++i)
            QTest::newRow(kThemes[i].name) << i;
    }
};

QUORVI_WIDGET_TEST_MAIN(ContrastTest)
#include "ContrastTest.moc"
