// The text shown in an empty list.
#pragma once

#include <QLabel>

class QAbstractItemView;

namespace quorvi {

/// A text in the middle of the list's viewport; clicks go to the list.
class EmptyText : public QLabel {
  public:
    /// Belongs to the list's viewport.
    explicit EmptyText(QAbstractItemView& list);

    /// Fills the viewport, with less space around the text where it would be cut, and is visible while the
    /// list has no rows or no model. Call this when either changes.
    void fit();
    /// Takes its colour from the list's palette. Call this when that changes.
    void takeColour();

  private:
    QAbstractItemView& m_list;
};

} // namespace quorvi
