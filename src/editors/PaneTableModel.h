// The rows of the list of stages, whose editor is the controller itself, asked of it cell by cell.
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

  private:
    KyvarQuorviPane& m_pane;
    int m_tableTag;
};

} // namespace quorvi
