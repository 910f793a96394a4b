// The sheet in which the user browses the dated copies of the settings and chooses one.
#pragma once

#include <QDateTime>
#include <QDialog>
#include <QTimer>

#include <memory>
#include <optional>

#include "editors/backups/EarlierCopies.h"

namespace Ui {
class EarlierPanel;
}

namespace quorvi {

/// Lists the copies, newest first, and shows the differences of the selected one. Reads and compares the
/// copies one at a time while the sheet is open, so that it opens as fast with forty as with one. Accepted by
/// Restore, rejected by Cancel and Escape.
class EarlierPanel : public QDialog {
  public:
    struct Surroundings {
        const History& history; ///< must outlive the sheet
        plist::Dictionary now;  ///< the present settings; not changed while the sheet is open
        PanelText text;
        QDateTime time = QDateTime::currentDateTime(); ///< determines "today"
    };

    /// Looks up texts now: call setInterfaceTextLookup() before.
    EarlierPanel(QWidget* parent, Surroundings surroundings);
    ~EarlierPanel() override;

    /// The selected copy; std::nullopt if none is selected, or it cannot be read.
    [[nodiscard]] std::optional<DatedCopy> chosen() const;

    /// Does nothing while no copy is selected.
    void accept() override;

  private:
    void compareNext();
    void showSelected();
    [[nodiscard]] int selectedRow() const;

    Surroundings m_surroundings;
    EarlierCopies m_copies;
    std::unique_ptr<Ui::EarlierPanel> m_ui;
    QTimer m_comparing;
    int m_compared = 0; ///< copies before this row have been compared
};

} // namespace quorvi
