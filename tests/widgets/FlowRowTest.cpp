#include "widgets/FlowRow.h"

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

class Block : public QWidget {
  public:
    explicit Block(int width) : m_width(width) {}
    [[nodiscard]] QSize sizeHint() const override { return {m_width, 20}; }

  private:
    int m_width;
};

} // namespace

/// A row that goes on in further rows.
class FlowRowTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_row = std::make_unique<QWidget>();
        m_layout = new FlowRow(m_row.get());
        m_layout->setSpacing(10);
        m_blocks.clear();
        for (const int width : {100, 80, 60}) {
            m_blocks << new Block(width);
            m_layout->addWidget(m_blocks.last());
        }
    }
    void cleanup() { m_row.reset(); }

    void standsInOneRowWhereItFits() {
        QCOMPARE(m_layout->sizeHint(), QSize(260, 20));
        QCOMPARE(m_layout->heightForWidth(260), 20);
        place(300);
        QCOMPARE(m_blocks[0]->geometry(), QRect(0, 0, 100, 20));
        QCOMPARE(m_blocks[1]->geometry(), QRect(110, 0, 80, 20));
        QCOMPARE(m_blocks[2]->geometry(), QRect(200, 0, 60, 20));
    }

    void goesOnBelowWhereItDoesNot() {
        QCOMPARE(m_layout->minimumSize(), QSize(100, 20));
        QCOMPARE(m_layout->heightForWidth(259), 50);
        QCOMPARE(m_layout->heightForWidth(100), 80);
        place(200);
        QCOMPARE(m_blocks[1]->geometry(), QRect(110, 0, 80, 20));
        QCOMPARE(m_blocks[2]->geometry(), QRect(0, 30, 60, 20));
    }

    void theLastMayStandApartAtTheEnd() {
        m_layout->setLastApart(true);
        place(300);
        QCOMPARE(m_blocks[1]->geometry(), QRect(110, 0, 80, 20));
        QCOMPARE(m_blocks[2]->geometry(), QRect(240, 0, 60, 20));
        place(200);
        QCOMPARE(m_blocks[2]->geometry(), QRect(140, 30, 60, 20));
    }

    void isMirrored() {
        m_row->setLayoutDirection(Qt::RightToLeft);
        m_layout->setLastApart(true);
        place(300);
        QCOMPARE(m_blocks[0]->geometry(), QRect(200, 0, 100, 20));
        QCOMPARE(m_blocks[2]->geometry(), QRect(0, 0, 60, 20));
    }

    void leavesNoGapForWhatIsHidden() {
        m_blocks[0]->hide();
        QCOMPARE(m_layout->sizeHint(), QSize(150, 20));
        place(300);
        QCOMPARE(m_blocks[1]->geometry(), QRect(0, 0, 80, 20));
    }

  private:
    void place(int width) {
        m_row->resize(width, 100);
        m_layout->setGeometry(m_row->rect());
    }

    std::unique_ptr<QWidget> m_row;
    FlowRow* m_layout = nullptr;
    QList<QWidget*> m_blocks;
};

QUORVI_WIDGET_TEST_MAIN(FlowRowTest)
#include "FlowRowTest.moc"
