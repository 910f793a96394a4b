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

/// Lists the installed applications and games, with a search field above that has the focus; "Other…" opens a
/// file panel for whatever is not among them. The list is read when the panel is shown: making one costs no
/// more than its views. Games come when they have been read, and leave what is selected. A choice accepts the
/// dialog, Cancel and Escape reject it.
class ApplicationPanel : public QDialog {
    Q_OBJECT

  public:
    struct Surroundings {
        std::filesystem::path home = {}; ///< the folder that games are looked for in; empty for none
        /// For what is said later on.
        PanelText text = [](const char* english) { return interfaceText(english); };
    };

    /// Texts are looked up now: set setInterfaceTextLookup() before.
    explicit ApplicationPanel(QWidget* parent = nullptr);
    ApplicationPanel(QWidget* parent, Surroundings surroundings);
    ~ApplicationPanel() override;

    /// The path of what was chosen since the panel was last shown: a desktop entry, an application bundle or
    /// any other file; see applicationInformation(). Empty when nothing was, and for a game.
    [[nodiscard]] QString chosenPath() const { return m_chosenPath; }
    /// What a profile keeps of what was chosen; nothing when nothing was, or when nothing could be kept.
    [[nodiscard]] std::optional<ApplicationInformation> chosen() const;

    /// Chooses the selected application; does nothing when there is none.
    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;
    /// Takes an open file panel along: nothing could come of its choice any more.
    void hideEvent(QHideEvent* event) override;
    /// Leads the keys that move in a list from the search field to the list.
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
    QPointer<GamesReader> m_reader; ///< null when it has read all
    QTimer m_longReading;
    QString m_chosenPath;
    std::optional<ApplicationInformation> m_chosenGame;
};

} // namespace quorvi
