// How a list looks: how high it is, which one has the focus, and the buttons below it.
#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include "widgets/FlatButton.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ListButtonRow.h"
#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

/// A window with a list and a field, and an empty rest below them.
struct Page {
    explicit Page(int rows) : entries(rows, 2) {
        list.setModel(&entries);
        layout.addWidget(&list);
        layout.addWidget(&other);
        layout.addStretch();
        window.resize(400, 600);
    }
    void show() {
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    QStandardItemModel entries;
    QWidget window;
    QVBoxLayout layout{&window};
    KyvarQuorviTableView list{&window};
    QPushButton other{"Other", &window};
};

struct Buttons {
    Buttons() {
        for (const char* word : {"Add", "Delete", "Application", "More"}) {
            auto* button = new FlatButton(&row);
            button->setText(word);
            button->setIcon(button->style()->standardIcon(QStyle::SP_FileIcon));
            all << button;
        }
        row.show();
    }
    [[nodiscard]] QStringList words() const {
        QStringList words;
        for (const QPushButton* button : all)
            words << button->text();
        return words;
    }

    ListButtonRow row;
    QList<QPushButton*> all;
};

const QStringList kWords{"Add", "Delete", "Application", "More"};
const QStringList kNoWords{"", "", "", ""};

} // namespace

class ListLookTest : public QObject {
    Q_OBJECT

  private slots:
    void theCornerAboveTheNumbersLooksLikeTheTitlesAndSelectsNothing() {
        Page page(3);
        page.list.setSeveralSelectable();
        page.list.setRowsNumbered();
        page.show();
        auto* corner = page.list.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(corner && corner->isVisible());
        QVERIFY(corner->isEnabled());
        QTest::mouseClick(page.window.windowHandle(), Qt::LeftButton, {},
            corner->mapTo(&page.window, corner->rect().center()));
        QCOMPARE(page.list.selectedRows().size(), std::size_t(0));
    }

    void theTextOfAnEmptyListStandsInItsMiddle_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }
    void theTextOfAnEmptyListStandsInItsMiddle() {
        QFETCH(const Qt::LayoutDirection, direction);
        Page page(0);
        page.window.setLayoutDirection(direction);
        page.list.setEmptyText("Nothing yet");
        page.list.verticalHeader()->setFixedWidth(40); // the room of the numbers
        page.list.verticalHeader()->show();
        page.show();
        const auto* text = page.list.viewport()->findChild<QLabel*>();
        QTRY_COMPARE(page.list.width() - page.list.viewport()->width(), 40 + 2 * page.list.frameWidth());
        QTRY_COMPARE(text->mapTo(&page.list, text->rect().center()).x(), page.list.rect().center().x());
    }

    void theTextOfAnEmptyListIsWholeInAListAsLowAsItsLines() {
        Page page(0);
        page.list.setEmptyText("Nothing yet.\nAdd something.");
        page.show();
        const auto* text = page.list.viewport()->findChild<QLabel*>();
        const QRect room(0, 0, 300, 300);
        const int lines = text->fontMetrics().boundingRect(room, Qt::TextWordWrap, text->text()).height();
        page.list.setFixedHeight(page.list.height() - page.list.viewport()->height() + lines);
        QTRY_COMPARE(text->height(), lines);
        QVERIFY(text->heightForWidth(text->width()) <= lines);
        QVERIFY(text->contentsRect().left() > 0); // letters do not touch the list's frame
    }

    void aListIsAsHighAsTheRowsThatItShows() {
        for (const int rows : {1, 5}) {
            Page page(rows);
            page.list.setTallRows();
            page.list.setRowsShown(5, 3);
            page.show();
            const int row = page.list.rowHeight(0);
            QCOMPARE(row, page.list.fontMetrics().height() + metrics::tallRowAir);
            QTRY_COMPARE(page.list.viewport()->height(), 5 * row); // not one more, and adding moves nothing
            QVERIFY(page.list.minimumSizeHint().height() < page.list.height());
        }
    }

    void aListWithManyRowsLeavesRoomAndScrolls() {
        Page page(12);
        page.list.setLeastRows(4);
        page.window.resize(400, 120);
        page.show();
        QTRY_VERIFY(page.list.viewport()->height() >= 4 * page.list.rowHeight(0));
    }

    void theListWithTheFocusHasAFrameAroundAllOfIt() {
        Page page(3);
        page.show();
        page.other.setFocus();
        const auto corners = [&] {
            const QImage image = page.list.grab().toImage();
            return QList<QColor>{image.pixelColor(1, 1), image.pixelColor(image.width() - 2, 1),
                image.pixelColor(image.width() - 2, image.height() - 2),
                image.pixelColor(image.width() / 2, 1)};
        };
        const QColor mark = markColour(page.list.palette());
        QVERIFY(!corners().contains(mark));
        page.list.setFocus();
        QCOMPARE(corners(), QList<QColor>({mark, mark, mark, mark}));
        page.window.resize(300, 300);
        QTRY_COMPARE(corners(), QList<QColor>({mark, mark, mark, mark}));
        page.other.setFocus();
        QVERIFY(!corners().contains(mark));
    }

    void clicksReachTheListBelowTheFrame() {
        Page page(3);
        page.show();
        page.list.setFocus();
        const QPoint edge(1, page.list.height() / 2);
        QCOMPARE(page.list.childAt(edge), page.list.viewport());
    }

    void theButtonsOfAListSayWordsWhereAllFit() {
        Buttons buttons;
        buttons.row.resize(buttons.row.sizeHint());
        QCOMPARE(buttons.words(), kWords);
        for (const QPushButton* button : buttons.all)
            QVERIFY(button->width() >= button->sizeHint().width());
        QVERIFY(buttons.all.last()->geometry().right() < buttons.row.width());
        buttons.row.resize(buttons.row.width() - 1, buttons.row.height());
        QCOMPARE(buttons.words(), kNoWords);
        buttons.row.resize(buttons.row.minimumSizeHint());
        QVERIFY(buttons.all.last()->geometry().right() < buttons.row.width());
        buttons.row.resize(600, buttons.row.height());
        QCOMPARE(buttons.words(), kWords);
    }

    void theButtonsFollowTheDirectionOfReading() {
        Buttons buttons;
        buttons.row.resize(500, buttons.row.sizeHint().height());
        QCOMPARE(buttons.all.first()->x(), 0);
        QVERIFY(buttons.all.at(1)->x() > buttons.all.first()->geometry().right());
        buttons.row.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(buttons.all.first()->geometry().right(), 499);
        QVERIFY(buttons.all.at(1)->geometry().right() < buttons.all.first()->x());
    }

    void theWordsAreMeasuredAnewInAnotherFont() {
        Buttons buttons;
        buttons.row.resize(buttons.row.sizeHint());
        QCOMPARE(buttons.words(), kWords);
        QFont large = buttons.row.font();
        large.setPointSizeF(2 * large.pointSizeF());
        buttons.row.setFont(large);
        QCOMPARE(buttons.words(), kNoWords);
        buttons.row.resize(buttons.row.sizeHint());
        QCOMPARE(buttons.words(), kWords);
    }
};

QUORVI_WIDGET_TEST_MAIN(ListLookTest)
#include "ListLookTest.moc"
