// The buttons below a list, in a row.
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QPushButton;

namespace quorvi {

/// Its children are flat push buttons, each with a sign and a word, placed from the start of the line in the
/// order of their creation. If the row is too narrow for all the words, none is shown, and the tool tips
/// explain the signs.
class ListButtonRow : public QWidget {
    Q_OBJECT

  public:
    explicit ListButtonRow(QWidget* parent = nullptr);

    [[nodiscard]] bool showsWords() const { return m_showsWords; }
    /// With all the words.
    [[nodiscard]] QSize sizeHint() const override;
    /// With the signs alone.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;

  private:
    /// The sizes that the buttons need, in their order.
    struct Sizes {
        QStringList words;
        std::vector<int> widths; ///< with the words
        int sign = 0;            ///< the width of a button without its word
        int height = 0;
    };
    [[nodiscard]] QList<QPushButton*> buttons() const;
    [[nodiscard]] QStringList shownWords() const;
    [[nodiscard]] const Sizes& sizes() const;
    void showWords(bool shown);
    void place();

    mutable Sizes m_sizes; ///< from when the words were last shown
    QSize m_told;          ///< the size that the layout knows
    bool m_showsWords = true;
};

} // namespace quorvi
