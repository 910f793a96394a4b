// The installed applications and games as the rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QIcon>

#include <optional>
#include <vector>

#include "applications/InstalledApplications.h"

namespace quorvi {

/// Sorted by name in the user's language, ignoring case. A row's icon is loaded when first needed, so that a
/// long list opens as fast as a short one.
class ApplicationList : public QAbstractListModel {
  public:
    enum Role { IdRole = Qt::UserRole, SearchRole, GameRole, LauncherRole };

    using QAbstractListModel::QAbstractListModel;

    /// Replaces the list.
    void setApplications(std::vector<InstalledApplication> applications);
    /// Adds games. Removes the row of an entry that only starts one of these games; a game without an icon
    /// gets that row's. All other rows and their selection stay.
    void addGames(std::vector<InstalledApplication> games);
    /// The text that screen readers read for a game; "^1" is its name, "^2" the launcher's.
    void setSpokenGame(const QString& text) { m_spokenGame = text; }
    [[nodiscard]] const InstalledApplication& application(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Name, icon, IdRole, SearchRole (the searched texts), GameRole (the identifier of the game that it is
    /// or starts) and LauncherRole, as in InstalledApplication.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        InstalledApplication application;
        mutable std::optional<QIcon> icon; ///< std::nullopt until first needed
    };
    void removeEntriesOf(std::vector<InstalledApplication>& games);
    void insert(std::vector<Row> rows);

    std::vector<Row> m_rows;
    QString m_spokenGame;
};

} // namespace quorvi
