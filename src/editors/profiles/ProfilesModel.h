// The rows of the list of profiles.
#pragma once

#include <QIcon>

#include <functional>
#include <map>

#include "document/Document.h"
#include "window/TableModel.h"

namespace quorvi {

class ProfilesModel final : public TableModel {
  public:
    /// The document must outlive it. `hasChanged` is called when names have changed.
    ProfilesModel(Document& document, const PanelText& text, std::function<void()> hasChanged);

    /// 0 without a mouse.
    [[nodiscard]] int numberOfRows() const override;
    /// For a row past the end, an empty text, and "no" for the check box.
    [[nodiscard]] QVariant cellValue(int columnIdentifier, int row) const override;
    /// Renames the profile, or sets whether it switches automatically. The profile becomes the current one.
    void setCellValue(const QVariant& value, int columnIdentifier, int row) override;

  private:
    [[nodiscard]] CellKind cellKind(int columnIdentifier, int row) const override;
    [[nodiscard]] QString spokenText(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] QString explanation(int columnIdentifier, const QVariant& value) const override;
    [[nodiscard]] QString shownCell(int columnIdentifier, int row) const override;
    /// How the profile that runs is told apart, and the sign of an application.
    [[nodiscard]] QVariant ownData(int columnIdentifier, int row, int role) const override;
    [[nodiscard]] QVariant nameData(int row, int role) const;
    [[nodiscard]] QVariant applicationData(int row, int role) const;
    [[nodiscard]] std::u16string nameOf(int row) const;
    void rename(const QVariant& value, int row);
    void editProfileOf(int row);

    Document& m_document;
    std::function<void()> m_hasChanged;
    mutable std::map<QString, QIcon> m_icons; ///< of applications that were drawn, by their identifiers
};

} // namespace quorvi
