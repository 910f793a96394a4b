// The rows of the list of macros.
#pragma once

#include <functional>

#include "document/Document.h"
#include "window/TableModel.h"

namespace quorvi {

class MacrosModel final : public TableModel {
  public:
    /// The document must outlive it. What is given hears of names that have changed.
    MacrosModel(Document& document, const PanelText& text, std::function<void()> hasChanged);

    /// None without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// The macro's name; an empty text for a row past the end.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Renames the macro, which becomes the current one.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    void rename(const QVariant& value, int row);

    Document& m_document;
    std::function<void()> m_hasChanged;
};

} // namespace quorvi
