#include "widgets/WrappedLabel.h"

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr int kWidths[] = {60, 90, 150, 240, 400, 60, 150};

} // namespace

/// What is remembered is what a label says that remembers nothing.
class WrappedLabelTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        for (QLabel* label : {&m_plain, static_cast<QLabel*>(&m_wrapped)}) {
            label->setWordWrap(true);
            label->setFont(QFont());
            label->setText("Some words that take more than one line where there is little room for them");
        }
    }

    void isAsHighAsTheInheritedLabel() { compare(); }

    void followsItsText() {
        compare();
        const int before = m_wrapped.heightForWidth(150);
        m_plain.setText("Few words");
        m_wrapped.setText("Few words");
        compare();
        QVERIFY(m_wrapped.heightForWidth(150) < before);
    }

    void followsItsFont() {
        compare();
        const int before = m_wrapped.heightForWidth(150);
        QFont large;
        large.setPointSizeF(large.pointSizeF() * 2);
        m_plain.setFont(large);
        m_wrapped.setFont(large);
        compare();
        QVERIFY(m_wrapped.heightForWidth(150) > before);
    }

    void followsAWindowThatIsResized() {
        for (int width = 100; width < 160; ++width)
            QCOMPARE(m_wrapped.heightForWidth(width), m_plain.heightForWidth(width));
        compare();
    }

  private:
    void compare() {
        for (const int width : kWidths)
            QCOMPARE(m_wrapped.heightForWidth(width), m_plain.heightForWidth(width));
    }

    QLabel m_plain;
    WrappedLabel m_wrapped;
};

QUORVI_WIDGET_TEST_MAIN(WrappedLabelTest)
#include "WrappedLabelTest.moc"
