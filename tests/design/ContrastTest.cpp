// What the panel draws itself stands out from what is behind it, in a light, a dark and high-contrast
// palettes: signs by 3 to 1, texts by 4.5 to 1, and both by 7 to 1 where the palette is of high contrast.

#include <QPainter>

#include "design/Languages.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/MouseDrawing.h"
#include "widgets/MouseLights.h"
#include "widgets/StageBar.h"
#include "widgets/StateLabel.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

struct Theme {
    const char* name;
    const char* window;
    const char* base;
    const char* button;
    const char* text;
    const char* highlight;
    const char* highlightedText;
    bool highContrast;
};

// The first four as these styles and desktops have them.
constexpr Theme kThemes[] = {
    {"Fusion", "#efefef", "#ffffff", "#efefef", "#000000", "#308cc6", "#ffffff", false},
    {"Adwaita dark", "#353535", "#2d2d2d", "#373737", "#eeeeec", "#15539e", "#ffffff", false},
    {"Breeze light", "#eff0f1", "#fcfcfc", "#fcfcfc", "#232629", "#3daee9", "#ffffff", false},
    {"Breeze dark", "#2a2e32", "#1b1e20", "#31363b", "#fcfcfc", "#3daee9", "#fcfcfc", false},
    {"yellow marks", "#f0f0f0", "#ffffff", "#e0e0e0", "#202020", "#ffe680", "#000000", false},
    {"black on white", "#ffffff", "#ffffff", "#ffffff", "#000000", "#0000ff", "#ffffff", true},
    {"white on black", "#000000", "#000000", "#000000", "#ffffff", "#00007f", "#ffffff", true},
    {"marks like the text", "#000000", "#000000", "#000000", "#ffffff", "#ffffff", "#000000", true},
};

QPalette paletteOf(const Theme& theme) {
    QPalette palette(QColor(theme.button), QColor(theme.window));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window, theme.window);
        palette.setColor(group, QPalette::Base, theme.base);
        palette.setColor(group, QPalette::Button, theme.button);
        palette.setColor(group, QPalette::Highlight, theme.highlight);
        palette.setColor(group, QPalette::HighlightedText, theme.highlightedText);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(group, role, theme.text);
    }
    return palette;
}

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
            mouse.resize(2 * mouseSheet.toSize());
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
            QImage picture(mouseSheet.toSize() * 3, QImage::Format_RGB32);
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

    void theSignsOnButtonsAreSeen_data() { eachTheme(); }
    void theSignsOnButtonsAreSeen() {
        const QPalette before = QApplication::palette();
        QApplication::setPalette(palette());
        for (const Symbol symbol :
            {Symbol::Add, Symbol::Remove, Symbol::Gear, Symbol::Record, Symbol::Undo, Symbol::Redo}) {
            QImage picture(48, 48, QImage::Format_RGB32);
            const QColor button = palette().color(QPalette::Button);
            picture.fill(button);
            QPainter painter(&picture);
            symbolIcon(symbol).paint(&painter, picture.rect());
            painter.end();
            QVERIFY(contrastNear(picture, {24, 24}, button, 20) >= signs());
        }
        QApplication::setPalette(before);
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
    static const Theme& theme() {
        return *std::find_if(std::begin(kThemes), std::end(kThemes),
            [](const Theme& one) { return QString(one.name) == QTest::currentDataTag(); });
    }
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
