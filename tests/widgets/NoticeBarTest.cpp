#include "widgets/NoticeBar.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/FilledText.h"
#include "widgets/ShownText.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// What is told at the foot of a window, one thing at a time.
class NoticeBarTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(600, 400);
        m_bar = new NoticeBar({.dismiss = QStringLiteral("OK"), .offer = QStringLiteral("Undo")}, *m_window);
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

    void whatIsAboveMakesRoomWhereItCan() {
        auto* above = new QLabel;
        auto* layout = new QVBoxLayout(m_window.get());
        layout->addWidget(above);
        above->show();
        const QMargins usual = layout->contentsMargins();
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QTRY_VERIFY(above->geometry().bottom() < m_bar->y());
        button()->click();
        QCOMPARE(layout->contentsMargins(), usual);
    }

    void whereThereIsNoRoomTheWindowStaysAsItIs() {
        auto* above = new QLabel;
        auto* layout = new QVBoxLayout(m_window.get());
        layout->addWidget(above);
        above->show();
        const QMargins usual = layout->contentsMargins();
        above->setMinimumHeight(m_window->height() - usual.top() - usual.bottom() - 5);
        m_bar->tell(2, {QStringLiteral("Exported."), NoticeSign::information});
        QCoreApplication::processEvents();
        QCOMPARE(layout->contentsMargins(), usual);
        QCOMPARE(m_window->height(), 400);
        m_window->resize(600, 600);
        QTRY_VERIFY(above->geometry().bottom() < m_bar->y());
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

  private:
    [[nodiscard]] QPushButton* button(const char* name = "buttonNotice") const {
        return m_bar->findChild<QPushButton*>(QLatin1String(name));
    }
    [[nodiscard]] QPushButton* offer() const { return button("buttonNoticeOffer"); }
    [[nodiscard]] QString text() const {
        return m_bar->findChild<QLabel*>(QStringLiteral("textNotice"))->text();
    }

    std::unique_ptr<QWidget> m_window;
    NoticeBar* m_bar = nullptr;
};

QUORVI_WIDGET_TEST_MAIN(NoticeBarTest)
#include "NoticeBarTest.moc"
