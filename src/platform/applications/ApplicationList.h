// The installed applications as the rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QIcon>

#include <optional>
#include <vector>

#include "platform/applications/InstalledApplications.h"

namespace quorvi {

/// Sorted by name as the user's language sorts, without regard to case. A row's icon is looked for when it is
/// first asked for, so that a long list opens as fast as a short one.
class ApplicationList : public QAbstractListModel {
  public:
    enum Role { PathRole = Qt::UserRole, SearchRole };

    using QAbstractListModel::QAbstractListModel;

    /// Replaces what is listed.
    void setApplications(std::vector<InstalledApplication> applications);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Name, icon, PathRole (the desktop entry's path) and SearchRole (what a search looks at).
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        InstalledApplication application;
        mutable std::optional<QIcon> icon; ///< nothing while nobody has asked
    };
    std::vector<Row> m_rows;
};

} // namespace quorvi
