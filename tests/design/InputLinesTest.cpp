// The lines from the numbers on the mouse to their pop-ups, in the geometry of every language, in small and
// large letters and windows: none crosses another, another number or a text.

#include "widgets/InputLines.h"

#include <QLabel>
#include <QLineF>

#include "design/Languages.h"
#include "support/Fonts.h"
#include "widgets/MouseView.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr qreal kClear = 2.0;   // pixels between a line and another number
constexpr double kLarger = 4.0; // points, of who needs large letters

bool cross(const QLineF& a, const QLineF& b) {
    QPointF where;
    return a.intersects(b, &where) == QLineF::BoundedIntersection;
}

QList<QLineF> partsOf(const QPolygonF& line) {
    QList<QLineF> parts;
    for (int i = 1; i < line.size(); ++i)
        parts << QLineF(line.at(i - 1), line.at(i));
    return parts;
}

bool cross(const QPolygonF& one, const QPolygonF& other) {
    const QList<QLineF> parts = partsOf(one);
    const QList<QLineF> others = partsOf(other);
    for (const QLineF& part : parts)
        for (const QLineF& second : others)
            if (cross(part, second))
                return true;
    return false;
}

qreal distance(const QPolygonF& line, const QPointF& point) {
    constexpr int steps = 200;
    qreal nearest = QLineF(line.first(), point).length();
    const QList<QLineF> parts = partsOf(line);
    for (const QLineF& part : parts)
        for (int step = 0; step <= steps; ++step)
            nearest = qMin(nearest, QLineF(part.pointAt(qreal(step) / steps), point).length());
    return nearest;
}

bool crosses(const QPolygonF& line, const QRectF& area) {
    const QList<QLineF> sides{{area.topLeft(), area.topRight()}, {area.topRight(), area.bottomRight()},
        {area.bottomRight(), area.bottomLeft()}, {area.bottomLeft(), area.topLeft()}};
    const QList<QLineF> parts = partsOf(line);
    for (const QLineF& part : parts)
        for (const QLineF& side : sides)
            if (cross(part, side))
                return true;
    return false;
}

} // namespace

class InputLinesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { m_font = QApplication::font(); }
    void cleanup() { QApplication::setFont(m_font); }

    void noLineCrossesAnything_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QSize>("size");
        for (const char* language : languages)
            for (const double larger : {0.0, kLarger})
                for (const QSize& size : {QSize(580, 500), QSize(580, 1000), QSize(660, 610), QSize(760, 560),
                         QSize(1024, 600), QSize(1600, 1000), QSize(3840, 2100)})
                    QTest::addRow("%s, %g larger, %d x %d", language, larger, size.width(), size.height())
                        << QString(language) << installedFont("Noto Sans", 10 + larger) << size;
    }
    void noLineCrossesAnything() {
        QFETCH(QString, language);
        QFETCH(QFont, font);
        QFETCH(QSize, size);
        QApplication::setFont(font);
        const SpokenInterface spoken(language.toStdString());
        spoken.view->resize(size);
        spoken.view->show();
        QVERIFY(QTest::qWaitForWindowExposed(spoken.view.get()));
        QCoreApplication::processEvents();
        const auto* lines = spoken.view->findChild<InputLines*>();
        const QWidget& page = *lines->parentWidget();
        const MouseView& mouse = *spoken.views->main.viewMouse;
        for (int input = 1; input <= mouseInputs; ++input) {
            const QPolygonF line = lines->lineOf(input);
            for (int other = 1; other <= mouseInputs; ++other) {
                const QByteArray pair = QByteArray::number(input) + " and " + QByteArray::number(other);
                const auto* label = page.findChild<QLabel*>(QString("labelInput%1").arg(other));
                QVERIFY2(!crosses(line, placeOf(*label, page)), pair);
                if (other == input)
                    continue;
                QVERIFY2(!cross(line, lines->lineOf(other)), pair);
                const QPointF number = mouse.mapTo(&page, QPoint()) + mouse.middleOfInput(other);
                QVERIFY2(distance(line, number) > mouse.radiusOfInput() + kClear, pair);
                const auto* popUp = page.findChild<QWidget*>(QString("quorviMenuTop%1").arg(other));
                QVERIFY2(!crosses(line, placeOf(*popUp, page)), pair);
            }
            QVERIFY(!crosses(line, placeOf(*spoken.views->main.textButtonsHint, page)));
        }
    }

    void theMouseGrowsWithTheWindowAndEnds() {
        const SpokenInterface spoken("en");
        spoken.view->show();
        const MouseView& mouse = *spoken.views->main.viewMouse;
        const auto scaleIn = [&](const QSize& size) {
            spoken.view->resize(size);
            QCoreApplication::processEvents();
            return mouse.fromSheet().m11();
        };
        const qreal usual = scaleIn({760, 560});
        QVERIFY2(usual > 1.2, qPrintable(QString::number(usual)));
        QVERIFY(scaleIn({580, 500}) < usual);
        const qreal large = scaleIn({1600, 1000});
        QVERIFY2(large > 1.79 && large < 1.81, qPrintable(QString::number(large)));
        QCOMPARE(scaleIn({3840, 2100}), large);
    }

  private:
    static QRectF placeOf(const QWidget& widget, const QWidget& page) {
        return {widget.mapTo(&page, QPoint()), QSizeF(widget.size())};
    }

    QFont m_font;
};

QUORVI_WIDGET_TEST_MAIN(InputLinesTest)
#include "InputLinesTest.moc"
