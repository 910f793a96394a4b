// A pane as one page of a settings application that is not ours.
#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

#include "host/LoadedPane.h"

namespace quorvi {

/// Shows the pane and tells it when the page comes and goes, however the host does that: pages are hidden or
/// destroyed, shown twice in a row, or left as they are when the application ends. At most one page of the
/// process is shown at a time; showing another one hides it.
class PanePage : public QWidget {
  public:
    explicit PanePage(std::unique_ptr<LoadedPane> pane, QWidget* parent = nullptr);
    ~PanePage() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void settle();
    void select();
    void unselect();

    std::unique_ptr<LoadedPane> m_pane;
    QTimer m_settling;
};

} // namespace quorvi
