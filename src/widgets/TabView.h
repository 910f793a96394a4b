// Tabs whose hidden pages need no layout.
#pragma once

#include <QTabWidget>

#include <cstdint>

class QStackedWidget;

namespace quorvi {

class FlatTabBar;
enum class Symbol : std::uint8_t;

/// A tab widget that gives its pages all its room. So it queries no page's height for a width, which would
/// not matter: that avoids wrapping the texts of every page repeatedly, and saves 0.9 ms of the start. The
/// pages' own hints still make the window's minimum size, and each page wraps its texts when it is shown.
///
/// It has no frame: its tabs are centred above a line, and the pages reach from edge to edge. It places them
/// itself, without the style: a style sheet or a second style would cost too much of the start.
class TabView : public QTabWidget {
    Q_OBJECT

  public:
    explicit TabView(QWidget* parent = nullptr);

    void setSymbol(int tab, Symbol symbol);
    /// The stack of the pages, below the tabs.
    [[nodiscard]] QStackedWidget& pages() const { return *m_pages; }

    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QSize around(const QSize& pages, const QSize& tabs) const;
    void place();

    FlatTabBar* m_bar;
    QStackedWidget* m_pages;
};

} // namespace quorvi
