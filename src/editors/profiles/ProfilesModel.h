// The rows of the list of profiles.
#pragma once

#include <functional>

#include "document/Document.h"
#include "window/TableModel.h"

namespace quorvi {

class ProfilesModel final : public TableModel {
  public:
    /// The document must outlive it. What is given hears of names that have changed.
    ProfilesModel(Document& document, const PanelText& text, std::function<void()> hasChanged);

    /// None without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// For a row past the end a text that is empty, and "no" for the check box.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Renames the profile, or has it switch automatically or not. The profile becomes the current one.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    [[nodiscard]] QString spokenText(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] QString explanation(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] std::u16string nameOf(int row) const;
    void rename(const QVariant& value, int row);
    void editProfileOf(int row);

    Document& m_document;
    std::function<void()> m_hasChanged;
};

} // namespace quorvi
