// A line that warns of a probable mistake, with a button that corrects it.
#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace quorvi {

class FaultSign;

/// Takes no room while its text is empty, except after pause(). The button stands next to the text, or below
/// it where the text would be squeezed.
class FaultLine : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString buttonTitle READ buttonTitle WRITE setButtonTitle)
    Q_PROPERTY(QString buttonPurpose READ buttonPurpose WRITE setButtonPurpose)

  public:
    explicit FaultLine(QWidget* parent = nullptr);

    /// Shows the plain text, and the button with this title; hides the button if the title is empty.
    void say(const QString& text, const QString& buttonTitle);
    /// Empties the line and gives up its room.
    void clear();
    /// Empties the line but keeps its room, so that the controls above do not move.
    void pause();

    [[nodiscard]] QString text() const;

    /// The button's title, and its description for screen readers while the line shows no text; otherwise the
    /// description is that text.
    [[nodiscard]] QString buttonTitle() const;
    void setButtonTitle(const QString& title);
    [[nodiscard]] QString buttonPurpose() const;
    void setButtonPurpose(const QString& purpose);
    /// Whether the button has the focus.
    [[nodiscard]] bool hasFocusedButton() const;

  signals:
    /// The button was clicked.
    void mendingChosen();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void placeButton();

    QWidget* m_contents;
    FaultSign* m_sign;
    QLabel* m_text;
    QPushButton* m_button;
    QBoxLayout* m_row; ///< of text and button
};

} // namespace quorvi
