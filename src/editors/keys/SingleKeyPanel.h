// The sheet that captures one key.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>

#include <cstdint>
#include <functional>
#include <optional>

#include "capture/KeySink.h"
#include "window/KeyChoice.h"

class QLineEdit;

namespace quorvi {

class Sheets;

/// One key is captured, without the modifiers that are held with it. Every key belongs to the sheet while it
/// is seen, so that none of them presses its buttons.
class SingleKeyPanel : public QObject, public KeySink {
  public:
    /// They may go before this object.
    struct Views {
        QDialog* panel;
        QLineEdit* field;
    };

    /// Calls keyCaptureEnded when the sheet has gone. When it comes it gets the focus a little later, and
    /// only then the keyboard.
    SingleKeyPanel(const Views& views, Sheets& sheets, std::function<void()> keyCaptureEnded);

    /// Runs the sheet, which shows the key at first. Gives the key that was captured last or else that one;
    /// nothing when the user has called it off, or when the panel did not outlive the sheet.
    [[nodiscard]] std::optional<KeyChoice> ask(const KeyChoice& shown);
    /// The key that the sheet shows, or has shown last, as a virtual key code; 255 while there is none.
    [[nodiscard]] std::uint8_t keyCode() const { return m_choice.key; }
    /// Shows the captured key.
    void show();

    [[nodiscard]] bool wantsKeys() const override { return m_panel && m_panel->isVisible(); }
    void receiveKey(const CapturedKey& key) override;
    void followModifiers(std::uint16_t modifiers) override { m_lastModifiers = modifiers; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QDialog> m_panel;
    QLineEdit* m_field;
    Sheets& m_sheets;
    std::function<void()> m_keyCaptureEnded;
    KeyChoice m_choice;
    std::uint16_t m_lastModifiers = 0; ///< of the last event that the sheet saw
};

} // namespace quorvi
