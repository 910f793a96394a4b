// The name of an input of the mouse beside its pop-up: its number in a disc, and after it, where there is
// room, a note in small letters.
#pragma once

#include "widgets/LineLabel.h"

namespace quorvi {

/// The text is the digit, behind an ampersand that makes it a key, and the name: "&4  Rear side button". The
/// disc shows the digit; whoever reads the label aloud reads the whole text.
class InputLabel : public LineLabel {
    Q_OBJECT

  public:
    explicit InputLabel(QWidget* parent = nullptr) : LineLabel(parent) {}

    /// Whether the number is drawn as that of the pointed or focused input.
    void setMarked(bool marked);
    [[nodiscard]] bool isMarked() const { return m_marked; }
    /// Sets what is said after the name, as a hint; empty for nothing. It is not drawn where it would be cut,
    /// so say it in another place too.
    void setNote(const QString& note);
    [[nodiscard]] QString note() const { return m_note; }
    /// Whether there is a note and it is drawn.
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
