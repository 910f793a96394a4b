#include "editors/backups/BackupPanel.h"

#include <QPushButton>

#include "resources/Interface.h"
#include "ui_BackupPanel.h"

namespace quorvi {

BackupPanel::BackupPanel(QWidget* parent, const Contents& contents)
    : QDialog(parent), m_ui(std::make_unique<Ui::BackupPanel>()) {
    m_ui->setupUi(this);
    keepTextsWhole(*this);
    m_ui->quorviTextBackup->setText(contents.question);
    m_ui->quorviListBackupDifferences->setSentences(contents.differences);
    m_ui->quorviTextLeftOut->setText(contents.leftOut);
    m_ui->quorviTextLeftOut->setVisible(!contents.leftOut.isEmpty());
    // The safe answer: a file may have been dropped by mistake.
    m_ui->quorviBackupButtonCancel->setFocus();
    connect(m_ui->quorviBackupButtonRestore, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->quorviBackupButtonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

BackupPanel::~BackupPanel() = default;

} // namespace quorvi
