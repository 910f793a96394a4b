#include "applications/ApplicationList.h"

#include <QCollator>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmap>

#include <algorithm>

#include "applications/ApplicationIcon.h"
#include "widgets/FilledText.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// Launchers keep large posters; reading a screenful at full size would be noticeable.
QIcon iconOfPicture(const QString& file) {
    constexpr int largestSide = 128;
    QImageReader reader(file);
    const QSize size = reader.size();
    if (size.width() > largestSide || size.height() > largestSide)
        reader.setScaledSize(size.scaled(largestSide, largestSide, Qt::KeepAspectRatio));
    const QPixmap picture = QPixmap::fromImageReader(&reader);
    return picture.isNull() ? QIcon() : QIcon(picture);
}

QIcon iconOf(const InstalledApplication& application) {
    const QString& icon = application.icon;
    const bool isGame = !application.launcher.isEmpty();
    const bool isPicture = isGame && icon.startsWith(QLatin1Char('/')) && QFileInfo(icon).isFile();
    const QIcon found = isPicture ? iconOfPicture(icon) : iconNamed(icon);
    const QIcon usual =
        isGame && found.isNull() ? QIcon::fromTheme(QStringLiteral("applications-games")) : found;
    return usual.isNull() ? usualApplicationIcon() : usual;
}

/// The order of the rows.
class ByName {
  public:
    ByName() { m_collator.setCaseSensitivity(Qt::CaseInsensitive); }
    template <typename Row>
    bool operator()(const Row& a, const Row& b) const {
        const int order = m_collator.compare(a.application.name, b.application.name);
        return order != 0 ? order < 0 : a.application.id < b.application.id;
    }

  private:
    QCollator m_collator;
};

} // namespace

void ApplicationList::setApplications(std::vector<InstalledApplication> applications) {
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(applications.size());
    for (auto& application : applications)
        m_rows.push_back({std::move(application), std::nullopt});
    std::sort(m_rows.begin(), m_rows.end(), ByName());
    endResetModel();
}

void ApplicationList::addGames(std::vector<InstalledApplication> games) {
    removeEntriesOf(games);
    std::vector<Row> rows;
    rows.reserve(games.size());
    for (auto& game : games)
        rows.push_back({std::move(game), std::nullopt});
    std::sort(rows.begin(), rows.end(), ByName());
    insert(std::move(rows));
}

void ApplicationList::removeEntriesOf(std::vector<InstalledApplication>& games) {
    for (auto row = static_cast<int>(m_rows.size()) - 1; row >= 0; --row) {
        const auto entry = m_rows.begin() + row;
        const auto started = std::find_if(games.begin(), games.end(),
            [&](const auto& game) { return !game.game.isEmpty() && game.game == entry->application.game; });
        if (started == games.end())
            continue;
        if (started->icon.isEmpty())
            started->icon = entry->application.icon;
        beginRemoveRows({}, row, row);
        m_rows.erase(entry);
        endRemoveRows();
    }
}

/// Adjacent rows are announced together: at each announcement the view examines all rows.
void ApplicationList::insert(std::vector<Row> rows) {
    const ByName isBefore;
    for (auto first = rows.begin(); first != rows.end();) {
        const auto at = std::upper_bound(m_rows.begin(), m_rows.end(), *first, isBefore);
        auto end = std::next(first);
        while (end != rows.end() && (at == m_rows.end() || isBefore(*end, *at)))
            ++end;
        const auto row = static_cast<int>(at - m_rows.begin());
        beginInsertRows({}, row, row + static_cast<int>(end - first) - 1);
        m_rows.insert(at, std::make_move_iterator(first), std::make_move_iterator(end));
        endInsertRows();
        first = end;
    }
}

const InstalledApplication& ApplicationList::application(int row) const {
    return m_rows.at(static_cast<std::size_t>(row)).application;
}

int ApplicationList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ApplicationList::data(const QModelIndex& index, int role) const {
    const Row& row = m_rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return shownName(row.application.name);
    case Qt::AccessibleTextRole:
        return row.application.launcher.isEmpty() || m_spokenGame.isEmpty()
                   ? QVariant()
                   : filledText(m_spokenGame,
                         {nameFor(m_spokenGame, row.application.name), row.application.launcher});
    case Qt::DecorationRole:
        if (!row.icon)
            row.icon = iconOf(row.application);
        return *row.icon;
    case IdRole:
        return row.application.id;
    case SearchRole:
        return row.application.searchTexts;
    case GameRole:
        return row.application.game;
    case LauncherRole:
        return row.application.launcher;
    default:
        return {};
    }
}

} // namespace quorvi
