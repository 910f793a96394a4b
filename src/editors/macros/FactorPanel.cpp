#include "editors/macros/FactorPanel.h"

#include <QPushButton>

#include "macros/DelayText.h"
#include "resources/Interface.h"
#include "ui_FactorPanel.h"

namespace quorvi {

FactorPanel::FactorPanel(QWidget* parent, const Texts& texts, char16_t decimalSign)
    : QDialog(parent), m_ui(std::make_unique<Ui::FactorPanel>()), m_decimalSign(decimalSign) {
    m_ui->setupUi(this);
    keepTextsWhole(*this);
    m_ui->labelFactor->setText(texts.request);
    m_ui->textFactorHint->setText(texts.hint);
    m_ui->quorviFieldFactor->setAccessibleDescription(texts.hint);
    QPushButton* confirm = m_ui->quorviFactorButtonOK;
    confirm->setEnabled(false);
    connect(m_ui->quorviFieldFactor, &QLineEdit::textChanged, confirm,
        [this, confirm] { confirm->setEnabled(factor().has_value()); });
    connect(confirm, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->quorviFactorButtonCancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ui->quorviFieldFactor->setFocus();
}

FactorPanel::~FactorPanel() = default;

std::optional<std::int32_t> FactorPanel::factor() const {
    return factorInText(m_ui->quorviFieldFactor->text().toStdU16String(), m_decimalSign);
}

} // namespace quorvi
