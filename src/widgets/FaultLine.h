// A line that says what is probably not meant, with a button that puts it right.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace quorvi {

class FaultSign;

/// Takes no room while there is nothing to say, unless it is to keep its room.
class FaultLine : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString buttonTitle READ buttonTitle WRITE setButtonTitle)
    Q_PROPERTY(QString buttonPurpose READ buttonPurpose WRITE setButtonPurpose)

  public:
    explicit FaultLine(QWidget* parent = nullptr);

    /// Says the text, which is plain. The button is called like that, and is hidden without a title.
    void say(const QString& text, const QString& buttonTitle);
    /// There is nothing to say.
    void clear();
    /// Says nothing for a while, but keeps the room that it has: what is above does not move.
    void pause();

    [[nodiscard]] QString text() const;

    /// What the button is called, and what screen readers say of it: the text that the line says, and this
    /// until it says one.
    [[nodiscard]] QString buttonTitle() const;
    void setButtonTitle(const QString& title);
    [[nodiscard]] QString buttonPurpose() const;
    void setButtonPurpose(const QString& purpose);
    /// Whether the keys go to the button.
    [[nodiscard]] bool hasFocusedButton() const;

  signals:
    /// The button was clicked.
    void mendingChosen();

  private:
    QWidget* m_contents;
    FaultSign* m_sign;
    QLabel* m_text;
    QPushButton* m_button;
};

} // namespace quorvi
