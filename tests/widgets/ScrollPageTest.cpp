#include "widgets/ScrollPage.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

#include "widgets/ViewActivation.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// A page that scrolls where it must.
class ScrollPageTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_page = std::make_unique<ScrollPage>();
        auto* content = new QWidget(m_page.get());
        auto* layout = new QVBoxLayout(content);
        m_buttons.clear();
        for (int i = 0; i < 10; ++i) {
            m_buttons << new QPushButton(QString::number(i));
            m_buttons.last()->setFixedHeight(40);
            layout->addWidget(m_buttons.last());
        }
        m_narrow = std::make_unique<QSignalSpy>(m_page.get(), &ScrollPage::narrowChanged);
    }
    void cleanup() {
        m_narrow.reset();
        m_page.reset();
    }

    void hasNoAreaWhileItsContentFits() {
        open(800, 600);
        QVERIFY(!m_page->findChild<QScrollArea*>());
        QCOMPARE(m_buttons[0]->parentWidget()->geometry(), m_page->rect());
    }

    void scrollsWhereItsContentDoesNotFitAndNoLongerThan() {
        open(800, 200);
        QVERIFY(m_page->scrolls());
        const auto* area = m_page->findChild<QScrollArea*>();
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
        QVERIFY(!area->horizontalScrollBar()->isVisible());
        QVERIFY(area->verticalScrollBar()->isVisible());
        QCOMPARE(m_buttons[0]->parentWidget()->width(), area->viewport()->width());
        m_page->resize(800, 600);
        QTRY_VERIFY(!m_page->scrolls());
        QVERIFY(!area->verticalScrollBar()->isVisible());
        QCOMPARE(m_buttons[0]->parentWidget()->size(), m_page->size());
    }

    void asksForLittleHeight() {
        open(800, 600);
        QVERIFY(m_page->minimumSizeHint().height() < 200);
        QVERIFY(m_page->sizeHint().height() > 400);
    }

    void growsWithItsContent() {
        open(800, 600);
        m_buttons[0]->setFixedHeight(400);
        QTRY_VERIFY(m_page->scrolls());
    }

    void keepsTheFocusWhenItBeginsToScroll() {
        open(800, 600);
        m_buttons[1]->setFocus();
        m_buttons[0]->setFixedHeight(400);
        QTRY_VERIFY(m_page->scrolls());
        QVERIFY(m_buttons[1]->hasFocus());
    }

    void whatTheKeysReachIsScrolledIntoSight() {
        open(800, 200);
        m_buttons[0]->setFocus();
        for (int i = 1; i < 10; ++i) {
            QTest::keyClick(m_page->focusWidget(), Qt::Key_Tab);
            QVERIFY(m_buttons[i]->hasFocus());
            QVERIFY(isSeen(*m_buttons[i]));
        }
        m_buttons[0]->setFocus(Qt::ShortcutFocusReason);
        QVERIFY(isSeen(*m_buttons[0]));
    }

    void asksForTheNarrowFormBelowTheNarrowWidth() {
        open(619, 600);
        QVERIFY(m_page->isNarrow());
        QCOMPARE(m_narrow->takeFirst().first().toBool(), true);
        m_page->resize(620, 600);
        QTRY_COMPARE(m_narrow->count(), 1);
        QCOMPARE(m_narrow->takeFirst().first().toBool(), false);
    }

    void asksForTheNarrowFormWhereTheUsualOneDoesNotFit() {
        m_buttons[0]->setMinimumWidth(900);
        QVERIFY(m_page->minimumSizeHint().width() <= 580); // or nobody could make it narrow
        connect(m_page.get(), &ScrollPage::narrowChanged, m_buttons[0],
            [this](bool narrow) { m_buttons[0]->setMinimumWidth(narrow ? 600 : 900); });
        open(800, 600);
        QVERIFY(m_page->isNarrow());
        QVERIFY(m_page->minimumSizeHint().width() >= 600);
        m_page->resize(1000, 600);
        QTRY_VERIFY(!m_page->isNarrow());
    }

    void makesRoomAtItsTopInAnyHeight() {
        open(800, 200);
        m_page->setContentsMargins(0, 60, 0, 0);
        QTRY_COMPARE(m_page->findChild<QScrollArea*>()->geometry(), QRect(0, 60, 800, 140));
    }

    void canBeScrolledWhileAllOfItIsInactive() {
        open(800, 200);
        makeViewActive(m_page.get(), false);
        QVERIFY(!m_buttons[0]->isEnabled());
        QVERIFY(m_page->findChild<QScrollArea*>()->verticalScrollBar()->isEnabled());
    }

  private:
    void open(int width, int height) {
        m_page->resize(width, height);
        m_page->show();
        m_page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
        QTRY_COMPARE(m_page->size(), QSize(width, height));
    }
    [[nodiscard]] bool isSeen(const QWidget& widget) const {
        return m_page->rect().contains(QRect(widget.mapTo(m_page.get(), QPoint()), widget.size()));
    }

    std::unique_ptr<ScrollPage> m_page;
    std::unique_ptr<QSignalSpy> m_narrow;
    QList<QPushButton*> m_buttons;
};

QUORVI_WIDGET_TEST_MAIN(ScrollPageTest)
#include "ScrollPageTest.moc"
