// The sheet that shows a backup's differences before it is restored.
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
        QString leftOut;         ///< the items that would be left out, in a few lines; may be empty
    };

    /// Looks up texts now: call setInterfaceTextLookup() before.
    BackupPanel(QWidget* parent, const Contents& contents);
    ~BackupPanel() override;

  private:
    std::unique_ptr<Ui::BackupPanel> m_ui;
};

} // namespace quorvi
