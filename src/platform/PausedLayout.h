// Putting views together without laying out what nobody sees yet.
#pragma once

#include <QLayout>
#include <QWidget>

namespace quorvi {

/// For as long as it lives, the widget's layout places nothing. A stack shows its first page while it is
/// being filled, and a page that is shown is laid out at once, in whatever size it has before there is a
/// window; the first showing of the window lays everything out anyway.
class PausedLayout {
  public:
    explicit PausedLayout(const QWidget& widget) : m_layout(widget.layout()) { setEnabled(false); }
    ~PausedLayout() { setEnabled(true); }
    PausedLayout(const PausedLayout&) = delete;
    PausedLayout& operator=(const PausedLayout&) = delete;

  private:
    void setEnabled(bool enabled) {
        if (m_layout)
            m_layout->setEnabled(enabled);
    }

    QLayout* m_layout;
};

} // namespace quorvi
