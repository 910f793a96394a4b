// The rows of a list whose editor is the controller itself, asked of it cell by cell.
#pragma once

#include "window/TableModel.h"

namespace quorvi {

class KyvarQuorviPane;

class PaneTableModel final : public TableModel {
  public:
    /// The columns are those of tableColumns() for the tag. The pane must outlive it.
    PaneTableModel(KyvarQuorviPane& pane, int tableTag);

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    [[nodiscard]] QString shownCell(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] QString spokenText(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] QString explanation(int columnIdentifier, const QVariant& value) const override;

    KyvarQuorviPane& m_pane;
    int m_tableTag;
};

} // namespace quorvi
