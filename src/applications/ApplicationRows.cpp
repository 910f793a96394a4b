#include "applications/ApplicationRows.h"

#include <QPainter>

#include "applications/ApplicationList.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kGap = 8; // around the launcher's name

/// The launcher's area at the end of the row; empty for an application.
QRect launcherIn(const QStyleOptionViewItem& option, const QString& launcher) {
    const int width = launcher.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(launcher) + kGap;
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
        QSize(width, option.rect.height()), option.rect.adjusted(kGap, 0, -kGap, 0));
}

} // namespace

void ApplicationRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->decorationSize = m_list.iconSize();
    for (const auto role : {QPalette::Text, QPalette::HighlightedText, QPalette::Highlight})
        option->palette.setBrush(QPalette::Inactive, role, option->palette.brush(QPalette::Active, role));
    const QString launcher = index.data(ApplicationList::LauncherRole).toString();
    if (launcher.isEmpty())
        return;
    const int room = option->rect.width() - option->decorationSize.width() -
                     launcherIn(*option, launcher).width() - 3 * kGap;
    option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, room);
}

void ApplicationRows::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QString launcher = index.data(ApplicationList::LauncherRole).toString();
    if (launcher.isEmpty())
        return;
    const bool selected = option.state & QStyle::State_Selected;
    painter->save();
    painter->setFont(option.font);
    painter->setPen(selected ? option.palette.color(QPalette::Active, QPalette::HighlightedText)
                             : mutedTextColour(option.palette));
    painter->drawText(launcherIn(option, launcher),
        int(QStyle::visualAlignment(option.direction, Qt::AlignRight)) | Qt::AlignVCenter, launcher);
    painter->restore();
}

} // namespace quorvi
