// Tabs whose hidden pages cost no layout.
#pragma once

#include <QTabWidget>

namespace quorvi {

/// A tab widget that gives its pages all the room that it has. So it asks no page how high it wants to be at
/// some width: the answer would change nothing, and to wrap the texts of every page again and again takes a
/// good part of the time until the first window. The pages' own hints still make the window's minimum size,
/// and each page wraps its texts when it is shown.
class TabView : public QTabWidget {
    Q_OBJECT

  public:
    explicit TabView(QWidget* parent = nullptr);

    /// As the inherited one, which lays the first page out as soon as it is added. It is what the interface
    /// compiler calls.
    int addTab(QWidget* page, const QString& title);

    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
};

} // namespace quorvi
