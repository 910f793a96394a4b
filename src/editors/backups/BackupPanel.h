// The sheet that says what is different in a backup before it is restored.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class BackupPanel;
}

namespace quorvi {

/// Accepted by Restore, rejected by Cancel and Escape.
class BackupPanel : public QDialog {
  public:
    struct Contents {
        QString question;        ///< with the file's name
        QStringList differences; ///< a sentence each
        QString leftOut;         ///< what would be left out, in a few lines; empty for nothing
    };

    /// Texts are looked up now: set setInterfaceTextLookup() before.
    BackupPanel(QWidget* parent, const Contents& contents);
    ~BackupPanel() override;

  private:
    std::unique_ptr<Ui::BackupPanel> m_ui;
};

} // namespace quorvi
