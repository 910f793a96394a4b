// The sheet that asks by what the delays of steps are to be multiplied.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>

namespace Ui {
class FactorPanel;
}

namespace quorvi {

/// Accepted by OK and Enter, which can be used only while the field holds a factor.
class FactorPanel : public QDialog {
  public:
    struct Texts {
        QString request;
        QString hint; ///< what can be typed
    };

    /// The rest of the texts is looked up now: set setInterfaceTextLookup() before. The sign is what the
    /// user's language has before decimals.
    FactorPanel(QWidget* parent, const Texts& texts, char16_t decimalSign);
    ~FactorPanel() override;

    /// In thousandths; nothing while the field holds none.
    [[nodiscard]] std::optional<std::int32_t> factor() const;

  private:
    std::unique_ptr<Ui::FactorPanel> m_ui;
    char16_t m_decimalSign;
};

} // namespace quorvi
