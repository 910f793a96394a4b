// A pane as a page of an external settings application.
#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

#include "host/LoadedPane.h"

namespace quorvi {

/// Shows the pane and notifies it when the page is shown and hidden, however the host does that: pages may be
/// hidden or destroyed, shown twice in a row, or stay open when the application ends. At most one page of the
/// process is shown at a time; showing another hides it.
class PanePage : public QWidget {
  public:
    explicit PanePage(std::unique_ptr<LoadedPane> pane, QWidget* parent = nullptr);
    ~PanePage() override;

    /// False: a host that scrolls its pages would give this one the height of its highest tab, and scroll all
    /// of it away with that. The tabs scroll by themselves.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

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
