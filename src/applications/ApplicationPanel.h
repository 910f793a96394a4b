// The sheet in which the user chooses an application.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <optional>

#include "applications/ApplicationList.h"
#include "platform/InterfaceText.h"
#include "widgets/FilledText.h"

namespace Ui {
class ApplicationPanel;
}

namespace quorvi {

class GamesReader;
class OtherApplicationDialog;

/// Lists the installed applications and games, with a focused search field above; "Other…" opens a file panel
/// for anything else. The list is read when the panel is shown, so creating the panel is cheap. Games are
/// added when they have been read, and keep the selection. A choice accepts the dialog; Cancel and Escape
/// reject it.
class ApplicationPanel : public QDialog {
    Q_OBJECT

  public:
    struct Surroundings {
        std::filesystem::path home = {}; ///< the folder to search for games; empty for none
        /// For texts needed later.
        PanelText text = [](const char* english) { return interfaceText(english); };
    };

    /// Looks up texts now: call setInterfaceTextLookup() before.
    explicit ApplicationPanel(QWidget* parent = nullptr);
    ApplicationPanel(QWidget* parent, Surroundings surroundings);
    ~ApplicationPanel() override;

    /// The path chosen since the panel was last shown: a desktop entry, an application bundle or any other
    /// file; see applicationInformation(). Empty without a choice, and for a game.
    [[nodiscard]] QString chosenPath() const { return m_chosenPath; }
    /// The data to store for the choice; std::nullopt without a choice, or if there is no usable data.
    [[nodiscard]] std::optional<ApplicationInformation> chosen() const;

    /// Chooses the selected application; does nothing if there is none.
    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;
    /// Closes an open file panel too: its choice could have no effect any more.
    void hideEvent(QHideEvent* event) override;
    /// Forwards list navigation keys from the search field to the list.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void readGames();
    void stopReadingGames();
    void addGames();
    [[nodiscard]] QString text(const char* english) const { return m_surroundings.text(english); }
    void search(const QString& text);
    void selectBest();
    [[nodiscard]] bool selectFirst(int role, const QString& value, Qt::MatchFlag how);
    void updateViews();
    void chooseOther();
    void choose(const QString& path);
    [[nodiscard]] QModelIndex selected() const;

    Surroundings m_surroundings;
    std::unique_ptr<Ui::ApplicationPanel> m_ui;
    ApplicationList m_list;
    QSortFilterProxyModel m_found;
    QPointer<OtherApplicationDialog> m_other;
    QPointer<GamesReader> m_reader; ///< null when finished
    QTimer m_longReading;
    QString m_chosenPath;
    std::optional<ApplicationInformation> m_chosenGame;
};

} // namespace quorvi
