// Draws the rows of the list of applications.
#pragma once

#include <QListView>
#include <QStyledItemDelegate>

namespace quorvi {

/// Draws the rows like those of a focused list: some styles grey unfocused ones, and here the search field
/// keeps the focus. Small icons take the same width as others, so that the names are aligned. A game's
/// launcher is at the end of its row.
class ApplicationRows : public QStyledItemDelegate {
  public:
    /// Belongs to the list.
    explicit ApplicationRows(QListView* list) : QStyledItemDelegate(list), m_list(*list) {}

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    const QListView& m_list;
};

} // namespace quorvi
