#include "window/TableList.h"

#include <QScopedValueRollback>

#include <utility>

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

TableList::TableList(KyvarQuorviTableView& table, std::unique_ptr<TableModel> model)
    : m_table(table), m_model(std::move(model)) {
    m_table.setModelLater(m_model.get());
    QObject::connect(
        &m_table, &KyvarQuorviTableView::selectedRowChanged, m_model.get(), [this] { selectionDidChange(); });
}

TableList::~TableList() = default;

void TableList::selectionDidChange() const {
    if (!m_quiet && m_selectionChanged)
        m_selectionChanged();
}

void TableList::reload() {
    m_table.completeModel();
    const std::vector<int> rows = m_table.selectedRows();
    const int current = m_table.selectedRow();
    m_model->reload();
    if (rows.empty())
        return;
    {
        const QScopedValueRollback quiet(m_quiet, true);
        m_table.selectRows(rows, current);
    }
    if (rows.back() >= m_model->rowCount())
        selectionDidChange();
}

void TableList::reloadQuietly() {
    const QScopedValueRollback quiet(m_quiet, true);
    reload();
}

void TableList::selectQuietly(int row) {
    const QScopedValueRollback quiet(m_quiet, true);
    m_table.selectRowAlone(row);
}

} // namespace quorvi
