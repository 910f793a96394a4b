// How the rows of the list of applications are drawn.
#pragma once

#include <QListView>
#include <QStyledItemDelegate>

namespace quorvi {

/// Draws the rows as those of a list with the focus: some styles grey the others, and here the focus is in
/// the search field all the time. Small icons take as much room as the others, so that the names are in line.
/// A game's launcher stands at the end of its row.
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
