#include "editors/PaneTableModel.h"

#include "pane/KyvarQuorviPane.h"
#include "resources/TableTags.h"

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

void PaneTableModel::setCellValue(const QVariant& value, int columnIdentifier, int row) {
    m_pane.setObjectValue(value, columnIdentifier, row);
}

CellKind PaneTableModel::cellKind(int columnIdentifier, int row) const {
    if (columnIdentifier == kProfileAutoswitchColumn)
        return CellKind::checkBox;
    // The first profile is the one that always exists, and keeps its name.
    const bool isName =
        columnIdentifier == kMacroNameColumn || (columnIdentifier == kProfileNameColumn && row > 0);
    return isName ? CellKind::name : CellKind::text;
}

QString PaneTableModel::shownCell(int columnIdentifier, const QVariant& value) const {
    return columnIdentifier == kStepDelayColumn ? m_pane.titleOfDelay(value)
                                                : TableModel::shownCell(columnIdentifier, value);
}

// What stands in a cell without a text; the text itself is read out without that.
QString PaneTableModel::spokenText(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileAutoswitchColumn)
        return text(value.toBool() ? "Switches automatically" : "Does not switch automatically");
    if (columnIdentifier == kProfileApplicationColumn && value.toString().isEmpty())
        return text("No application");
    return {};
}

// What to do where there is nothing. Plain text, whatever an application is called.
QString PaneTableModel::explanation(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileApplicationColumn && value.toString().isEmpty())
        return text("No application: assign one with the gear button.");
    return {};
}

} // namespace quorvi
