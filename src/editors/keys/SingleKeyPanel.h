// The sheet that captures one key.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

#include "capture/KeySink.h"
#include "window/KeyChoice.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quorvi {

class Sheets;

/// Captures one key, without held modifiers. While the sheet is visible it receives every key, so no key
/// presses its buttons.
class SingleKeyPanel : public QObject, public KeySink {
  public:
    /// They may be destroyed before this object.
    struct Views {
        QDialog* panel;
        QLineEdit* field;
        QLabel* request;
        QPushButton* confirm;
        QPushButton* cancel;
    };

    /// What the sheet says of what it asks for, in the user's language.
    struct Texts {
        QString request;
        QString confirming; ///< what OK does
        QString cancelling; ///< what Cancel does
    };

    /// Calls keyCaptureEnded when the sheet has closed. A new sheet gets the focus a little later, and only
    /// then the keyboard.
    SingleKeyPanel(const Views& views, Sheets& sheets, std::function<void()> keyCaptureEnded);

    /// Runs the sheet, which first shows the given key. Returns the last captured key, or else the given one;
    /// std::nullopt if the user cancels, or the panel is destroyed during the sheet.
    [[nodiscard]] std::optional<KeyChoice> ask(const KeyChoice& shown);
    /// The same with other texts than those for the key of an assignment.
    [[nodiscard]] std::optional<KeyChoice> askWith(const Texts& texts);
    /// The key shown now or last, as a virtual key code; 255 for none.
    [[nodiscard]] std::uint8_t keyCode() const { return m_choice.key; }
    /// Shows the captured key.
    void show();

    [[nodiscard]] bool wantsKeys() const override { return m_panel && m_panel->isVisible(); }
    void receiveKey(const CapturedKey& key) override;
    void followModifiers(std::uint16_t modifiers) override { m_lastModifiers = modifiers; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] Texts texts() const;
    void setTexts(const Texts& texts);

    QPointer<QDialog> m_panel;
    Views m_views;
    Sheets& m_sheets;
    std::function<void()> m_keyCaptureEnded;
    KeyChoice m_choice;
    std::uint16_t m_lastModifiers = 0; ///< of the last event that the sheet saw
};

} // namespace quorvi
