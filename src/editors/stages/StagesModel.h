// The rows of the stages editor's list.
#pragma once

#include "window/TableModel.h"

namespace quorvi {

class Document;
class EditedStages;

class StagesModel final : public TableModel {
  public:
    /// The arguments must outlive the model. Without a mouse there are no rows.
    StagesModel(const Document& document, const EditedStages& stages, PanelText text);

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;

  private:
    const Document& m_document;
    const EditedStages& m_stages;
};

} // namespace quorvi
