// What a list says while it has no rows.
#pragma once

#include <QLabel>

class QAbstractItemView;

namespace quorvi {

/// A text in the middle of the list's viewport; what is clicked is the list.
class EmptyText : public QLabel {
  public:
    /// Belongs to the list's viewport.
    explicit EmptyText(QAbstractItemView& list);

    /// Fills the viewport, and stands there while the list has no rows or no model: for when either changes.
    void fit();
    /// Takes its colour from the list's palette: for when that changes.
    void takeColour();

  private:
    QAbstractItemView& m_list;
};

} // namespace quorvi
