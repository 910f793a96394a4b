// A pop-up's title and arrow are next to each other in every style, the arrow at the end of the line.

#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionComboBox>

#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr int kTag = 7;
constexpr int kBlankTag = 8; ///< of an item whose title shows nothing
constexpr int kWidth = 200;
constexpr const char* kForgetful = "one that forgets the arrow";

/// Mirrors a combo box's text and leaves its arrow at the right, as a style in use does.
class ForgetfulStyle : public QProxyStyle {
  public:
    ForgetfulStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget) const override {
        return control == CC_ComboBox && part == SC_ComboBoxArrow
                   ? QProxyStyle::subControlRect(control, &unmirrored(option), part, widget)
                   : QProxyStyle::subControlRect(control, option, part, widget);
    }
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override {
        QProxyStyle::drawComplexControl(
            control, control == CC_ComboBox ? &unmirrored(option) : option, painter, widget);
    }

  private:
    const QStyleOptionComboBox& unmirrored(const QStyleOptionComplex* option) const {
        m_unmirrored = *static_cast<const QStyleOptionComboBox*>(option);
        m_unmirrored.direction = Qt::LeftToRight;
        return m_unmirrored;
    }
    mutable QStyleOptionComboBox m_unmirrored;
};

/// Columns of a picture, from the first to the last.
struct Columns {
    int first = kWidth;
    int last = -1;
    void add(int column) {
        first = qMin(first, column);
        last = qMax(last, column);
    }
};

int difference(QRgb one, QRgb other) {
    return qAbs(qRed(one) - qRed(other)) + qAbs(qGreen(one) - qGreen(other)) +
           qAbs(qBlue(one) - qBlue(other));
}

/// Where the two pictures differ.
Columns differing(const QImage& one, const QImage& other) {
    constexpr int seen = 40;
    Columns columns;
    for (int x = 0; x < one.width(); ++x)
        for (int y = 0; y < one.height(); ++y)
            if (difference(one.pixel(x, y), other.pixel(x, y)) > seen)
                columns.add(x);
    return columns;
}

/// What stands on a picture without a title, between its frames: the arrow.
Columns arrowOn(const QImage& picture) {
    constexpr int frame = 8;
    constexpr int seen = 60;
    Columns columns;
    for (int x = frame; x < picture.width() - frame; ++x)
        for (int y = frame; y < picture.height() - frame; ++y)
            if (difference(picture.pixel(x, y), picture.pixel(picture.width() / 2, y)) > seen)
                columns.add(x);
    return columns;
}

} // namespace

class PopUpLookTest : public QObject {
    Q_OBJECT

  private slots:
    void titleAndArrowDoNotMeet_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<bool>("mirrored");
        QTest::addColumn<QString>("title");
        QStringList styles = QStyleFactory::keys();
        styles << kForgetful;
        for (const QString& style : std::as_const(styles))
            for (const bool mirrored : {false, true})
                for (const char* title : {"Undo", "A title that is far too long for the button"})
                    QTest::addRow("%s, %s, %s", qPrintable(style), mirrored ? "mirrored" : "plain", title)
                        << style << mirrored << title;
    }
    void titleAndArrowDoNotMeet() {
        QFETCH(QString, style);
        QFETCH(bool, mirrored);
        QFETCH(QString, title);
        QApplication::setStyle(style == kForgetful ? new ForgetfulStyle : QStyleFactory::create(style));
        PopUpButton button;
        button.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        button.setMenu(menuWith(title));
        button.resize(kWidth, button.sizeHint().height());
        QVERIFY(button.selectItemWithTag(kBlankTag)); // some styles draw the arrow of an empty button paler
        const QImage empty = button.grab().toImage();
        QVERIFY(button.selectItemWithTag(kTag));
        const Columns text = differing(button.grab().toImage(), empty);
        const Columns arrow = arrowOn(empty);
        QVERIFY(text.last > text.first);
        QVERIFY(arrow.last > arrow.first);
        if (mirrored) {
            QVERIFY2(arrow.last < kWidth / 4, qPrintable(QString::number(arrow.last)));
            QVERIFY2(arrow.last < text.first, qPrintable(QString::number(text.first)));
            QVERIFY2(text.last > kWidth * 3 / 4, qPrintable(QString::number(text.last)));
        } else {
            QVERIFY2(arrow.first > kWidth * 3 / 4, qPrintable(QString::number(arrow.first)));
            QVERIFY2(text.last < arrow.first, qPrintable(QString::number(text.last)));
            QVERIFY2(text.first < kWidth / 4, qPrintable(QString::number(text.first)));
        }
    }

    // The parts of a title that is written from the right follow each other from the right, and marks that
    // say so take no room.
    void aTitleFromTheRightIsReadFromTheRight() {
        QApplication::setStyle(QStringLiteral("Fusion"));
        const QString macro = QStringLiteral("\u0627\u0644\u0645\u0627\u0643\u0631\u0648:");
        const QString marked = QStringLiteral("\u202B") + macro + QStringLiteral("\u202C");
        const QImage whole = pictureOf(macro + " WWW");
        QCOMPARE(pictureOf(marked + " WWW"), whole);
        const Columns all = differing(whole, pictureOf({}));
        const Columns latin = differing(whole, pictureOf(macro + " MMM"));
        QVERIFY2(latin.last < (all.first + all.last) / 2 + 10, qPrintable(QString::number(latin.last)));
    }

  private:
    static QImage pictureOf(const QString& title) {
        PopUpButton button;
        button.setLayoutDirection(Qt::RightToLeft);
        button.setMenu(menuWith(title));
        button.selectItemWithTag(kTag);
        button.resize(kWidth, button.sizeHint().height());
        return button.grab().toImage();
    }
    static QMenu* menuWith(const QString& title) {
        auto menu = std::make_unique<QMenu>();
        for (const auto& [tag, shown] : {std::pair(kTag, title), {kBlankTag, QStringLiteral(" ")}}) {
            QAction* item = menu->addAction(QString());
            setTitleOfItem(*item, shown);
            setTagOfItem(*item, tag);
        }
        return menu.release();
    }
};

QUORVI_WIDGET_TEST_MAIN(PopUpLookTest)
#include "PopUpLookTest.moc"
