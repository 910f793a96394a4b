// The installed applications and games as the rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QIcon>

#include <optional>
#include <vector>

#include "applications/InstalledApplications.h"

namespace quorvi {

/// Sorted by name as the user's language sorts, without regard to case. A row's icon is looked for when it is
/// first asked for, so that a long list opens as fast as a short one.
class ApplicationList : public QAbstractListModel {
  public:
    enum Role { IdRole = Qt::UserRole, SearchRole, GameRole, LauncherRole };

    using QAbstractListModel::QAbstractListModel;

    /// Replaces what is listed.
    void setApplications(std::vector<InstalledApplication> applications);
    /// Puts games among them. The row of an entry that only starts one of these games goes, and the game has
    /// its icon when it has none itself. All other rows stay, and what is selected with them.
    void addGames(std::vector<InstalledApplication> games);
    /// What a screen reader reads instead of a game's name; "^1" is the name, "^2" the launcher's.
    void setSpokenGame(const QString& text) { m_spokenGame = text; }
    [[nodiscard]] const InstalledApplication& application(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Name, icon, IdRole, SearchRole (what a search looks at), GameRole (the identifier of the game that it
    /// is or starts) and LauncherRole, as InstalledApplication has them.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        InstalledApplication application;
        mutable std::optional<QIcon> icon; ///< nothing while nobody has asked
    };
    void removeEntriesOf(std::vector<InstalledApplication>& games);
    void insert(std::vector<Row> rows);

    std::vector<Row> m_rows;
    QString m_spokenGame;
};

} // namespace quorvi
