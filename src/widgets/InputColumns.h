// The layout of the inputs around the drawing of the mouse.
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quorvi {

/// Widgets added before the drawing, a MouseView, form rows on its left, widgets added after it on its right;
/// never mirrored. The drawing is as large as fields of their usual width and the height allow. The rows are
/// spread over its height, so that the lines between them stay short and never cross. Spare height stays
/// below.
class InputColumns : public QLayout {
  public:
    explicit InputColumns(QWidget* parent = nullptr);
    ~InputColumns() override;

    void addItem(QLayoutItem* item) override;
    void addLayout(QLayout* layout);
    [[nodiscard]] int count() const override { return int(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

  private:
    [[nodiscard]] std::size_t drawing() const;
    [[nodiscard]] int leastField() const;
    [[nodiscard]] int leastRow() const;
    [[nodiscard]] int leastRows() const;
    [[nodiscard]] int leastDrawing() const;
    [[nodiscard]] QSize drawingIn(const QSize& area) const;
    void place(std::size_t first, std::size_t last, const QRect& column) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace quorvi
