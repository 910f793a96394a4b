// The name of a mouse input next to its pop-up: its number in a disc, the name, and a note in small letters
// if there is room.
#pragma once

#include "widgets/LineLabel.h"

namespace quorvi {

/// The text is an ampersand, the digit, which is thus the access key, and the name: "&4  Rear side button".
/// The disc shows the digit; screen readers read the whole text.
class InputLabel : public LineLabel {
    Q_OBJECT

  public:
    explicit InputLabel(QWidget* parent = nullptr) : LineLabel(parent) {}

    /// Sets whether to draw the number as that of the pointed or focused input.
    void setMarked(bool marked);
    [[nodiscard]] bool isMarked() const { return m_marked; }
    /// Sets the note after the name; empty for none. A note that does not fit is not drawn, so show it in
    /// another place too.
    void setNote(const QString& note);
    [[nodiscard]] QString note() const { return m_note; }
    /// Whether a note is drawn.
    [[nodiscard]] bool showsNote() const;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] int number() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] int badgeSize() const;
    [[nodiscard]] int widthOfName() const;
    [[nodiscard]] QFont noteFont() const;
    [[nodiscard]] int widthOfNote() const;

    QString m_note;
    bool m_marked = false;
};

} // namespace quorvi
