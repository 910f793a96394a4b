// The rows of the list of steps of the current macro.
#pragma once

#include "document/Document.h"
#include "window/TableModel.h"

class QMenu;

namespace quorvi {

class StepsModel final : public TableModel {
  public:
    /// The menu's items are the delays, with the milliseconds for tags. It and the document must outlive it.
    StepsModel(Document& document, const QMenu& delays, const PanelText& text);

    /// None without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// What the step does, or the index of the item that shows its delay, -1 for none; an empty text for a
    /// row past the end.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Gives the step the delay of the item at the index; does nothing for any other value.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

    /// What the cell of a delay shows for its value; nothing for one without an item.
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;

  private:
    [[nodiscard]] QString shownCell(int columnIdentifier, const QVariant& value) const override;

    Document& m_document;
    const QMenu& m_delays;
};

} // namespace quorvi
