// The rows of the list of macros.
#pragma once

#include <functional>
#include <map>

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

    /// Has the views ask again what the macro in the row types.
    void showTyped(int row);
    /// The same for all rows, by another keyboard layout.
    void showTypedAgain();

  private:
    /// The second line (TwoLineCells.h), which says what the macro types, and the whole of it as the tool
    /// tip.
    [[nodiscard]] QVariant ownData(int columnIdentifier, int row, int role) const override;
    /// What a macro types, for steps like these.
    struct Typed {
        plist::Value steps;
        QString line;
    };
    [[nodiscard]] QString typedLineOf(int row) const;
    [[nodiscard]] QString secondLine(int row) const;
    [[nodiscard]] QString explanationOf(int row) const;
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    void rename(const QVariant& value, int row);

    Document& m_document;
    std::function<void()> m_hasChanged;
    mutable std::map<int, Typed> m_typed; ///< by row: views ask for it with every drawing
};

} // namespace quorvi
