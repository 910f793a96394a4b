// The sheet in which the user chooses an application.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <QString>

#include <memory>

#include "platform/applications/ApplicationList.h"

namespace Ui {
class ApplicationPanel;
}

namespace quorvi {

class OtherApplicationDialog;

/// Lists the installed applications, with a search field above that has the focus; "Other…" opens a file
/// panel for whatever is not among them. The list is read when the panel is shown: making one costs no more
/// than its views. A choice accepts the dialog, Cancel and Escape reject it.
class ApplicationPanel : public QDialog {
    Q_OBJECT

  public:
    /// Texts are looked up now: set setInterfaceTextLookup() before.
    explicit ApplicationPanel(QWidget* parent = nullptr);
    ~ApplicationPanel() override;

    /// The path of what was chosen since the panel was last shown: a desktop entry, an application bundle or
    /// any other file; see applicationInformation(). Empty when nothing was.
    [[nodiscard]] QString chosenPath() const { return m_chosenPath; }

    /// Chooses the selected application; does nothing when there is none.
    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;
    /// Takes an open file panel along: nothing could come of its choice any more.
    void hideEvent(QHideEvent* event) override;
    /// Leads the keys that move in a list from the search field to the list.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void search(const QString& text);
    void updateViews();
    void chooseOther();
    void choose(const QString& path);
    [[nodiscard]] QModelIndex selected() const;

    std::unique_ptr<Ui::ApplicationPanel> m_ui;
    ApplicationList m_list;
    QSortFilterProxyModel m_found;
    QPointer<OtherApplicationDialog> m_other;
    QString m_chosenPath;
};

} // namespace quorvi
