// A list of the window: reloads that keep the selection, notifications of a choice, and the cells' abilities.
#include "window/TableList.h"

#include <vector>

#include "widgets/KyvarQuorviTableView.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr int kFirstColumn = 1;
constexpr int kNameColumn = 2;
constexpr int kBoxColumn = 3;
constexpr std::array kColumns{TableColumn{kFirstColumn, "First", 0}, TableColumn{kNameColumn, "Name", 0},
    TableColumn{kBoxColumn, "Box", 0, "What the box is for"}};

QString inCapitals(const char* key) {
    return QString::fromUtf8(key).toUpper();
}

class Names final : public TableModel {
  public:
    Names() : TableModel(kColumns, inCapitals) {}

    [[nodiscard]] int numberOfRows() const override { return static_cast<int>(values.size()); }
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override {
        return columnIdentifier == kFirstColumn ? QVariant(row) : values.at(static_cast<std::size_t>(row));
    }
    void setCellValue(const QVariant& value, int /*columnIdentifier*/, int row) override {
        values.at(static_cast<std::size_t>(row)) = value;
    }

    std::vector<QVariant> values{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")};

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int /*row*/) const override {
        switch (columnIdentifier) {
        case kNameColumn:
            return CellKind::name;
        case kBoxColumn:
            return CellKind::checkBox;
        default:
            return CellKind::text;
        }
    }
};

struct List {
    List() {
        list.reload(); // a table that gets its rows tells of its selection
        list.onSelectionChange([this] { heard.push_back(table.selectedRow()); });
    }
    void keepRows(std::size_t count) { names->values.resize(count); }
    [[nodiscard]] QModelIndex cell(int column, int row) const {
        return names->index(row, names->columnOf(column));
    }

    std::vector<int> heard; ///< the selected row at each change that was told of
    KyvarQuorviTableView table;
    std::unique_ptr<Names> made = std::make_unique<Names>();
    Names* names = made.get();
    TableList list{table, std::move(made)};
};

} // namespace

class TableListTest : public QObject {
    Q_OBJECT

  private slots:
    void aChoiceOfTheUserIsHeard() {
        List rows;
        rows.table.selectRowAlone(1);
        rows.table.deselectAll();
        QCOMPARE(rows.heard, (std::vector{1, -1}));
    }

    void aQuietSelectionIsNotHeard() {
        List rows;
        rows.list.selectQuietly(2);
        QCOMPARE(rows.table.selectedRow(), 2);
        rows.list.selectQuietly(-1);
        QCOMPARE(rows.table.selectedRow(), -1);
        QVERIFY(rows.heard.empty());
    }

    void theSelectionOutlivesAReloadAndNobodyHears() {
        List rows;
        rows.list.selectQuietly(1);
        rows.keepRows(2);
        rows.list.reload();
        QCOMPARE(rows.table.selectedRow(), 1);
        QVERIFY(rows.heard.empty());
        rows.table.selectRowAlone(0);
        QCOMPARE(rows.heard, std::vector{0}); // and is heard again afterwards
    }

    void aSelectedRowThatIsGoneIsAChangeOfTheSelection() {
        List rows;
        rows.list.selectQuietly(2);
        rows.keepRows(2);
        rows.list.reload();
        QCOMPARE(rows.heard, std::vector{-1});
    }

    void aQuietReloadTellsOfNoRowThatIsGone() {
        List rows;
        rows.list.selectQuietly(2);
        rows.keepRows(2);
        rows.list.reloadQuietly();
        QCOMPARE(rows.table.selectedRow(), -1);
        QVERIFY(rows.heard.empty());
    }

    void aCellAllowsWhatItsKindSays() {
        List rows;
        QVERIFY(!(rows.cell(kFirstColumn, 0).flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)));
        QVERIFY(rows.cell(kNameColumn, 0).flags() & Qt::ItemIsEditable);
        QVERIFY(rows.cell(kBoxColumn, 0).flags() & Qt::ItemIsUserCheckable);
        QVERIFY(!rows.cell(kBoxColumn, 0).data(Qt::DisplayRole).isValid());
        rows.names->setColumnEnabled(kNameColumn, false);
        QVERIFY(!(rows.cell(kNameColumn, 0).flags() & Qt::ItemIsEnabled));
        QVERIFY(rows.cell(kBoxColumn, 0).flags() & Qt::ItemIsEnabled);
        rows.names->setColumnEnabled(kNameColumn, true);
        QVERIFY(rows.cell(kNameColumn, 0).flags() & Qt::ItemIsEnabled);
    }

    void aCheckBoxIsSetByItsStateAndANameByItsText() {
        List rows;
        QVERIFY(!rows.names->setData(rows.cell(kBoxColumn, 0), QStringLiteral("typed"), Qt::EditRole));
        QVERIFY(rows.names->setData(rows.cell(kBoxColumn, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(rows.names->values.at(0), QVariant(true));
        QCOMPARE(rows.cell(kBoxColumn, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QVERIFY(rows.names->setData(rows.cell(kNameColumn, 1), QStringLiteral("typed"), Qt::EditRole));
        QCOMPARE(rows.cell(kNameColumn, 1).data().toString(), QStringLiteral("typed"));
    }

    void headersAreInTheUsersLanguage() {
        const Names names;
        QCOMPARE(names.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("NAME"));
        QVERIFY(!names.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
        QCOMPARE(names.headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QStringLiteral("WHAT THE BOX IS FOR"));
    }
};

QUORVI_WIDGET_TEST_MAIN(TableListTest)
#include "TableListTest.moc"
