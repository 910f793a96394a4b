// The rows of the list of steps of the current macro.
#pragma once

#include <functional>
#include <vector>

#include "document/Document.h"
#include "editors/macros/TypedDelays.h"
#include "window/EditorContext.h"
#include "window/TableModel.h"

class QMenu;

namespace quorvi {

class StepsModel final : public TableModel {
  public:
    /// The menu's items are the delays, with the milliseconds for tags. It must outlive the model.
    StepsModel(
        const EditorContext& context, const QMenu& delays, std::function<std::vector<int>()> selectedRows);

    /// None without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// What the step does, or the index of the item that shows its delay, -1 for none; an empty text for a
    /// row past the end.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Gives the step the delay of the item at the index, and so all that are selected with it; does nothing
    /// for any other value.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

    /// Shows the row, -1 for none, as the one that is played just now, by bold letters.
    void showPlayed(int row);

    /// Has the views ask again what the steps do.
    void showActions();

    /// The delay exactly, whether the menu has it or not.
    [[nodiscard]] QString typedText(int columnIdentifier, int row) const override;
    /// Gives the step the delay that was typed, and so all that are selected with it. Anything else changes
    /// nothing, and the bar at the foot says why.
    void takeTypedText(const QString& typed, int columnIdentifier, int row) override;

    /// How the delay is shown exactly, in milliseconds.
    [[nodiscard]] QString exactText(std::int32_t milliseconds) const { return m_typed.text(milliseconds); }
    /// The title of the item for the value of a delay's cell; nothing for one without an item. The cell of a
    /// delay that the menu does not have shows it exactly instead.
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;

  private:
    [[nodiscard]] QVariant ownData(int columnIdentifier, int row, int role) const override;
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    [[nodiscard]] QString shownCell(int columnIdentifier, int row) const override;
    [[nodiscard]] QString explanation(int columnIdentifier, const QVariant& value) const override;
    /// The sign of what the step does.
    [[nodiscard]] int symbolOf(int row) const;
    void showColumn(int columnIdentifier);
    [[nodiscard]] std::int32_t delayOf(int row) const;
    /// The row and, when it is selected, all others that are.
    [[nodiscard]] std::vector<int> rowsWith(int row) const;
    void setDelay(std::int32_t milliseconds, int row);

    Document& m_document;
    std::function<std::vector<int>()> m_selectedRows;
    TypedDelays m_typed;
    const QMenu& m_delays;
    int m_played = -1; ///< the row that is played just now
};

} // namespace quorvi
