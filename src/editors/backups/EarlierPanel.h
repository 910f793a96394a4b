// The sheet in which the user looks through the dated copies of the settings and chooses one.
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

/// Lists the copies, newest first, and shows what is different in the selected one. The copies are read and
/// compared one at a time while the sheet is up, so that it opens as fast with forty as with one. Accepted by
/// Restore, rejected by Cancel and Escape.
class EarlierPanel : public QDialog {
  public:
    struct Surroundings {
        const History& history; ///< must outlive the sheet
        plist::Dictionary now;  ///< the present settings; nobody changes them while the sheet is up
        PanelText text;
        QDateTime time = QDateTime::currentDateTime(); ///< what "today" is told by
    };

    /// Texts are looked up now: set setInterfaceTextLookup() before.
    EarlierPanel(QWidget* parent, Surroundings surroundings);
    ~EarlierPanel() override;

    /// The copy that is selected; nothing when none is, or it cannot be read.
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
