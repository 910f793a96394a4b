// A growing line, whose beginning is left out.
#include "widgets/ElidedLabel.h"

#include <QTest>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

/// Whether the drawn line begins, at its left, with dots: there is no ink above the lower half of the
/// letters.
bool beginsWithDots(ElidedLabel& label) {
    const QImage picture = label.grab().toImage();
    const QRgb ground = picture.pixel(0, 0);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
    constexpr int dots = 8; // pixels, less than "…" has
    for (int y = ink.top(); y < ink.center().y(); ++y)
        for (int x = ink.left(); x < ink.left() + dots; ++x)
            if (picture.pixel(x, y) != ground)
                return false;
    return ink.width() > dots;
}

} // namespace

class ElidedLabelTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    void asksForTheRoomOfSomeLettersWhileItHasAText() {
        ElidedLabel label;
        QCOMPARE(label.sizeHint().width(), 0);
        label.setText("s");
        QCOMPARE(label.sizeHint().width(), label.fontMetrics().horizontalAdvance("s"));
        label.setText("Ctrl+S, Ctrl+Shift+E");
        const int some = label.sizeHint().width();
        QVERIFY(some >= label.fontMetrics().horizontalAdvance("…Shift+E"));
        label.setText(label.text() + label.text());
        QCOMPARE(label.sizeHint().width(), some);
        QCOMPARE(label.minimumSizeHint().width(), 0); // or it would widen the window
    }

    void theDotsStandWhereTheTextBeginsInEitherWindow() {
        ElidedLabel label;
        label.setText(QStringLiteral("Ctrl+S, Ctrl+Shift+E, Enter, Ctrl+S, Ctrl+Shift+E, Enter"));
        label.resize(120, 24);
        QVERIFY(beginsWithDots(label));
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        label.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(beginsWithDots(label));
    }
};

QUORVI_WIDGET_TEST_MAIN(ElidedLabelTest)
#include "ElidedLabelTest.moc"
