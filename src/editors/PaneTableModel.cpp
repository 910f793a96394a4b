#include "editors/PaneTableModel.h"

#include "pane/KyvarQuorviPane.h"

namespace quorvi {

PaneTableModel::PaneTableModel(KyvarQuorviPane& pane, int tableTag)
    : TableModel(tableColumns(tableTag),
          [&pane](const char* key) { return pane.locString(QString::fromUtf8(key)); }),
      m_pane(pane), m_tableTag(tableTag) {}

int PaneTableModel::numberOfRows() const {
    return m_pane.numberOfRowsInTableView(m_tableTag);
}

QVariant PaneTableModel::cellValue(int columnIdentifier, int row) const {
    return m_pane.objectValueForTableColumn(columnIdentifier, row);
}

} // namespace quorvi
