#include "widgets/NoticeBar.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "widgets/FilledText.h"
#include "widgets/Metrics.h"
#include "widgets/ScrollPage.h"
#include "widgets/ShownText.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// What is told above a page, one thing at a time.
class NoticeBarTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(600, 400);
        m_page = new QWidget(m_window.get());
        m_page->setGeometry(0, 50, 600, 350);
        m_bar = new NoticeBar({.dismiss = QStringLiteral("Close message"),
                                  .dismissTip = QStringLiteral("Closes this message."),
                                  .offer = QStringLiteral("Undo")},
            *m_window, *m_page);
        m_window->show();
    }
    void cleanup() { m_window.reset(); }

    void isHiddenUntilThereIsSomethingToTell() {
        QVERIFY(!m_bar->isVisible());
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QVERIFY(m_bar->isVisible());
        QCOMPARE(text(), QStringLiteral("Exported."));
    }

    void theLowestNumberIsShownWhicheverCameFirst() {
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        QCOMPARE(text(), QStringLiteral("Not saved."));
        m_bar->tell(1, {QStringLiteral("Not running."), NoticeSign::warning});
        QCOMPARE(text(), QStringLiteral("Not saved."));
    }

    void theButtonTakesOneAwayAndShowsTheNext() {
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        button()->click();
        QCOMPARE(text(), QStringLiteral("Exported."));
        QVERIFY(m_bar->isVisible());
        button()->click();
        QVERIFY(!m_bar->isVisible());
    }

    void whatIsNoLongerSoGoesByItself() {
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        m_bar->withdraw(1);
        QCOMPARE(text(), QStringLiteral("Not saved."));
        m_bar->withdraw(0);
        QCOMPARE(text(), QStringLiteral("Exported."));
        m_bar->withdraw(2);
        QVERIFY(!m_bar->isVisible());
    }

    void whatWasTakenAwayCanBeToldAgain() {
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        button()->click();
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        QVERIFY(m_bar->isVisible());
    }

    void aNewTextOfANumberTakesThePlaceOfTheOld() {
        m_bar->tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        m_bar->tell(0, {QStringLiteral("Still not saved."), NoticeSign::warning});
        QCOMPARE(text(), QStringLiteral("Still not saved."));
        button()->click();
        QVERIFY(!m_bar->isVisible());
    }

    void anOfferHasATitleOfItsOwn() {
        m_bar->tell(
            2, {.text = QStringLiteral("Recorded."), .offer = [] {}, .offerTitle = QStringLiteral("Mend")});
        QCOMPARE(offer()->text(), QStringLiteral("Mend"));
        m_bar->tell(
            2, {.text = QStringLiteral("Recorded."), .offer = [] {}, .offerTitle = QStringLiteral("Remove")});
        QCOMPARE(offer()->text(), QStringLiteral("Remove"));
        m_bar->tell(2, {.text = QStringLiteral("Recorded."), .offer = [] {}});
        QCOMPARE(offer()->text(), QStringLiteral("Undo"));
    }

    void whatIsOfferedIsDoneOnce() {
        int done = 0;
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QVERIFY(!offer()->isVisible());
        m_bar->tell(1, {QStringLiteral("Deleted."), NoticeSign::information, [&] { ++done; }});
        QVERIFY(offer()->isVisible());
        QCOMPARE(offer()->accessibleDescription(), QStringLiteral("Deleted."));
        offer()->click();
        QCOMPARE(done, 1);
        QCOMPARE(text(), QStringLiteral("Exported."));
        QVERIFY(!offer()->isVisible());
    }

    void anOfferIsWithdrawnWithItsText() {
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        m_bar->tell(1, {QStringLiteral("Deleted."), NoticeSign::information, [] {}});
        m_bar->withdrawOffers();
        QCOMPARE(text(), QStringLiteral("Exported."));
        m_bar->withdrawOffers();
        QCOMPARE(text(), QStringLiteral("Exported."));
    }

    void thePageMakesRoomAtItsTopWhereItCan() {
        auto* below = new QLabel;
        (new QVBoxLayout(m_page))->addWidget(below);
        below->show();
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QVERIFY(m_bar->y() >= m_page->y());
        QTRY_VERIFY(below->mapTo(m_window.get(), QPoint()).y() > m_bar->geometry().bottom());
        button()->click();
        QCOMPARE(m_page->contentsMargins(), QMargins());
    }

    void whereThereIsNoRoomTheWindowStaysAsItIs() {
        auto* below = new QLabel;
        (new QVBoxLayout(m_page))->addWidget(below);
        below->show();
        const QMargins usual = m_page->layout()->contentsMargins();
        below->setMinimumHeight(m_page->height() - usual.top() - usual.bottom() - 5);
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QCoreApplication::processEvents();
        QCOMPARE(m_page->contentsMargins(), QMargins());
        QCOMPARE(m_window->height(), 400);
        QVERIFY(m_bar->y() >= m_page->y()); // what is above the page stays free
        m_page->resize(600, 550);
        QTRY_VERIFY(below->mapTo(m_window.get(), QPoint()).y() > m_bar->geometry().bottom());
    }

    void theBarIsAsWideAsWhatIsOnThePage() {
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QCOMPARE(m_bar->x(), metrics::narrowPageMargin);
        QCOMPARE(m_bar->width(), 600 - 2 * metrics::narrowPageMargin);
        m_page->resize(2000, 350);
        QCOMPARE(m_bar->x(), (2000 - metrics::maxContentWidth) / 2);
        QCOMPARE(m_bar->width(), metrics::maxContentWidth);
    }

    void theTabKeyComesToItsButtonsFirst() {
        QPushButton before(m_window.get());
        auto* after = new QPushButton(m_page);
        m_bar->followInTabOrder(before);
        before.show();
        after->show();
        m_bar->tell(1, {QStringLiteral("Deleted."), NoticeSign::information, [] {}});
        QCOMPARE(before.nextInFocusChain(), offer());
        QCOMPARE(offer()->nextInFocusChain(), button());
    }

    void aNameThatCannotTurnATextStaysAsItIs() {
        QCOMPARE(nameWithin(QStringLiteral("Exported to ^1."), QStringLiteral("Größe 2")),
            QStringLiteral("Größe 2"));
    }

    void aNameThatCouldIsIsolated() {
        const QString arabic = QString::fromUtf8("لعبة");
        const QString latin = QStringLiteral("Game");
        QCOMPARE(
            nameWithin(QStringLiteral("Exported to ^1."), arabic), QChar(0x2068) + arabic + QChar(0x2069));
        QCOMPARE(nameWithin(arabic, latin), QChar(0x2068) + latin + QChar(0x2069));
    }

    void theMarksOfANameDoNotReachBeyondIt() {
        for (const char16_t mark : {u'\u202A', u'\u202B', u'\u202C', u'\u202D', u'\u202E', u'\u2066',
                 u'\u2067', u'\u2068', u'\u2069'})
            QCOMPARE(nameWithin(QStringLiteral("Exported to ^1."), QStringLiteral("a") + QChar(mark) + "b"),
                QChar(0x2068) + QStringLiteral("ab") + QChar(0x2069));
    }

    void aTextIsFilledOnce() {
        QCOMPARE(filledText(QStringLiteral("^2 to ^1, ^3^^1"), {QStringLiteral("^2"), QStringLiteral("b")}),
            QStringLiteral("b to ^2, ^3^^2"));
        QCOMPARE(filledText(QStringLiteral("^"), {QStringLiteral("a")}), QStringLiteral("^"));
    }

    void aNameIsCutAndIsNeverNothing() {
        const QString text = QStringLiteral("Exported to ^1.");
        QCOMPARE(nameFor(text, QString(100, 'n')), QString(80, 'n') + QChar(0x2026));
        QCOMPARE(nameFor(text, QString()), QStringLiteral("?"));
    }

    /// Only the page that is seen makes room, as far as it can: one that scrolls always can.
    void ofSeveralPagesTheOneThatIsSeenMakesRoom() {
        auto* pages = new QStackedWidget(m_window.get());
        pages->setGeometry(0, 50, 600, 350);
        auto* high = new QWidget;
        high->setMinimumHeight(340);
        (new QVBoxLayout(high))->addWidget(new QLabel(QStringLiteral("x")));
        high->layout()->itemAt(0)->widget()->setMinimumHeight(330);
        auto* scrolls = new ScrollPage;
        auto* content = new QWidget(scrolls);
        (new QVBoxLayout(content))->addWidget(new QLabel(QStringLiteral("x")));
        content->layout()->itemAt(0)->widget()->setMinimumHeight(2000);
        pages->addWidget(high);
        pages->addWidget(scrolls);
        pages->show();
        NoticeBar bar({}, *m_window, *pages);
        bar.tell(0, {QStringLiteral("Not saved."), NoticeSign::warning});
        QCOMPARE(high->contentsMargins().top(), 0); // the bar lies over it
        pages->setCurrentIndex(1);
        QTRY_COMPARE(scrolls->contentsMargins().top(), metrics::rowGap + bar.height());
        QTRY_VERIFY(content->mapTo(m_window.get(), QPoint()).y() >= bar.geometry().bottom());
        pages->setCurrentIndex(0);
        QCOMPARE(scrolls->contentsMargins().top(), 0);
        QVERIFY(m_window->height() == 400);
    }

  private:
    [[nodiscard]] QPushButton* button(const char* name = "buttonNotice") const {
        return m_bar->findChild<QPushButton*>(QLatin1String(name));
    }
    [[nodiscard]] QPushButton* offer() const { return button("buttonNoticeOffer"); }
    [[nodiscard]] QString text() const {
        return m_bar->findChild<QLabel*>(QStringLiteral("textNotice"))->text();
    }

    std::unique_ptr<QWidget> m_window;
    QWidget* m_page = nullptr;
    NoticeBar* m_bar = nullptr;
};

QUORVI_WIDGET_TEST_MAIN(NoticeBarTest)
#include "NoticeBarTest.moc"
