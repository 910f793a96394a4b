// The rows of the list of steps of the current macro.
#pragma once

#include "document/Document.h"
#include "editors/macros/TypedDelays.h"
#include "window/EditorContext.h"
#include "window/TableModel.h"

class QMenu;

namespace quorvi {

class StepsModel final : public TableModel {
  public:
    /// The menu's items are the delays, with the milliseconds for tags. It must outlive the model.
    StepsModel(const EditorContext& context, const QMenu& delays);

    /// None without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// What the step does, or the index of the item that shows its delay, -1 for none; an empty text for a
    /// row past the end.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Gives the step the delay of the item at the index; does nothing for any other value.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

    /// Has the views ask again what the steps do.
    void showActions();

    /// The delay exactly, whether the menu has it or not.
    [[nodiscard]] QString typedText(int columnIdentifier, int row) const override;
    /// Gives the step the delay that was typed. Anything else changes nothing, and the bar at the foot says
    /// why.
    void takeTypedText(const QString& typed, int columnIdentifier, int row) override;

    /// The title of the item for the value of a delay's cell; nothing for one without an item. The cell of a
    /// delay that the menu does not have shows it exactly instead.
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    [[nodiscard]] QString shownCell(int columnIdentifier, int row) const override;
    [[nodiscard]] QString explanation(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] std::int32_t delayOf(int row) const;
    void setDelay(std::int32_t milliseconds, int row);

    Document& m_document;
    TypedDelays m_typed;
    const QMenu& m_delays;
};

} // namespace quorvi
