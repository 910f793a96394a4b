#include "platform/applications/ApplicationList.h"

#include <QApplication>
#include <QCollator>
#include <QFileInfo>
#include <QStyle>

#include <algorithm>
#include <array>

#include "platform/widgets/ShownText.h"

namespace quorvi {

namespace {

/// Names with these at their end stand for theme icons too, in old entries.
constexpr std::array kImageExtensions{".png", ".svg", ".xpm"};

QString themeName(QString icon) {
    for (const char* extension : kImageExtensions)
        if (icon.endsWith(QLatin1String(extension)))
            icon.chop(4);
    return icon;
}

QIcon iconOf(const QString& icon) {
    QIcon found;
    if (!icon.startsWith(QLatin1Char('/')))
        found = QIcon::fromTheme(themeName(icon));
    else if (QFileInfo(icon).isFile()) // reading a FIFO would never end
        found = QIcon(icon);
    if (found.isNull())
        found = QIcon::fromTheme(QStringLiteral("application-x-executable"));
    return found.isNull() ? QApplication::style()->standardIcon(QStyle::SP_FileIcon) : found;
}

} // namespace

void ApplicationList::setApplications(std::vector<InstalledApplication> applications) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(applications.begin(), applications.end(), [&](const auto& a, const auto& b) {
        const int order = collator.compare(a.name, b.name);
        return order != 0 ? order < 0 : a.id < b.id;
    });
    beginResetModel();
    m_rows.clear();
    for (auto& application : applications)
        m_rows.push_back({std::move(application), std::nullopt});
    endResetModel();
}

int ApplicationList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ApplicationList::data(const QModelIndex& index, int role) const {
    const Row& row = m_rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return shownName(row.application.name);
    case Qt::DecorationRole:
        if (!row.icon)
            row.icon = iconOf(row.application.icon);
        return *row.icon;
    case PathRole:
        return row.application.path;
    case SearchRole:
        return row.application.searchTexts;
    default:
        return {};
    }
}

} // namespace quorvi
