// How the mouse looks: a lit battery has no level, a theme of high contrast has neither shades nor glow, the
// lines over the mouse stand out from all of it, and it is drawn once for many paint events.

#include <QPainter>

#include <set>

#include "widgets/MouseBody.h"
#include "widgets/MouseDrawing.h"
#include "widgets/MousePicture.h"
#include "widgets/ThemeColours.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr int kScale = 3;

QPalette paletteOf(const QColor& window, const QColor& text) {
    QPalette palette(window, window);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            palette.setColor(group, role, window);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(group, role, text);
        palette.setColor(group, QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    }
    return palette;
}

const QPalette kLight = paletteOf(QColor(0xef, 0xf0, 0xf1), QColor(0x23, 0x26, 0x29));
const QPalette kDark = paletteOf(QColor(0x2a, 0x2e, 0x32), QColor(0xfc, 0xfc, 0xfc));

QImage mouseIn(const QPalette& palette, bool wheel, bool battery) {
    QImage picture(mouseSheet.size().toSize() * kScale, QImage::Format_RGB32);
    picture.fill(palette.color(QPalette::Window));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kScale, kScale);
    painter.translate(-mouseSheet.topLeft());
    drawMouse(painter, palette, wheel, battery);
    return picture;
}

QRect inPicture(const QRectF& onSheet) {
    const QRectF moved = onSheet.translated(-mouseSheet.topLeft());
    return QRectF(moved.topLeft() * kScale, moved.size() * kScale).toRect();
}

int coloursOf(const QImage& picture) {
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    return int(colours.size());
}

} // namespace

class MouseLookTest : public QObject {
    Q_OBJECT

  private slots:
    void nothingIsDrawnInTheBattery() {
        const QRect within = inPicture(batteryLight().adjusted(2, 2, -2, -2));
        for (const QPalette& palette : {kLight, kDark, paletteOf(Qt::white, Qt::black)}) {
            const QImage unlit = mouseIn(palette, false, false);
            const QImage lit = mouseIn(palette, false, true);
            QCOMPARE(lit.copy(within), unlit.copy(within));
            QVERIFY(lit.copy(inPicture(batteryLight())) != unlit.copy(inPicture(batteryLight())));
        }
    }

    void aLightGlowsBeyondItsOutline() {
        for (const QRectF& light : {wheelLight(), batteryLight()}) {
            const QRect beside = inPicture(QRectF(light.left() - 6, light.center().y() - 1, 3, 2));
            QVERIFY(mouseIn(kLight, true, true).copy(beside) != mouseIn(kLight, false, false).copy(beside));
            const QPalette contrast = paletteOf(Qt::white, Qt::black);
            QCOMPARE(
                mouseIn(contrast, true, true).copy(beside), mouseIn(contrast, false, false).copy(beside));
        }
    }

    void highContrastIsFlat() {
        const QRectF palm(40, 215, 140, 35);
        QVERIFY(coloursOf(mouseIn(kLight, false, false).copy(inPicture(palm))) > 10);
        for (const QPalette& palette : {paletteOf(Qt::white, Qt::black), paletteOf(Qt::black, Qt::white)}) {
            const QImage picture = mouseIn(palette, false, false);
            QCOMPARE(coloursOf(picture.copy(inPicture(palm))), 1);
            // No shadow on the table either.
            QCOMPARE(picture.pixelColor(inPicture(QRectF(110, 322, 1, 1)).topLeft()),
                palette.color(QPalette::Window));
        }
    }

    void linesStandOutFromAllOfTheShell_data() {
        QTest::addColumn<QPalette>("palette");
        QTest::newRow("light") << kLight;
        QTest::newRow("dark") << kDark;
        QTest::newRow("white") << paletteOf(Qt::white, QColor(0x30, 0x30, 0x30));
    }
    void linesStandOutFromAllOfTheShell() {
        QFETCH(QPalette, palette);
        const MouseTones tones = mouseTones(palette);
        const std::initializer_list<QColor> grounds{
            palette.color(QPalette::Window), tones.lightest, tones.darkest};
        const QColor line = lineOn(palette, 0.4, grounds);
        const QColor mark = markOn(palette, grounds);
        const QImage picture = mouseIn(palette, false, false);
        // The shell between its outline and its parts, where lines pass.
        for (const QRectF& shell : {QRectF(46, 60, 38, 60), QRectF(138, 60, 40, 60), QRectF(44, 150, 40, 90),
                 QRectF(136, 150, 44, 90), QRectF(90, 176, 5, 3)}) {
            const QRect area = inPicture(shell);
            for (int y = area.top(); y <= area.bottom(); y += kScale)
                for (int x = area.left(); x <= area.right(); x += kScale) {
                    const QColor ground = picture.pixelColor(x, y);
                    QVERIFY2(contrastOf(line, ground) >= 2.95, qPrintable(ground.name()));
                    QVERIFY2(contrastOf(mark, ground) >= 2.95, qPrintable(ground.name()));
                }
        }
    }

    void theMouseIsDrawnOnceForManyPaintEvents() {
        QWidget view;
        view.resize(200, 320);
        QPixmap screen(view.size());
        MousePicture picture;
        const auto drawingsAfter = [&](bool wheel) {
            QPainter painter(&screen);
            picture.paint(painter, view, wheel, false);
            return picture.drawings();
        };
        QCOMPARE(drawingsAfter(false), 1);
        QCOMPARE(drawingsAfter(false), 1);
        QCOMPARE(drawingsAfter(true), 2);
        view.setPalette(kDark);
        QCOMPARE(drawingsAfter(true), 3);
        view.resize(210, 330);
        screen = QPixmap(view.size());
        QCOMPARE(drawingsAfter(true), 4);
        screen = QPixmap(view.size() * 2);
        screen.setDevicePixelRatio(2);
        QCOMPARE(drawingsAfter(true), 5);
        QCOMPARE(drawingsAfter(true), 5);
    }
};

QUORVI_WIDGET_TEST_MAIN(MouseLookTest)
#include "MouseLookTest.moc"
