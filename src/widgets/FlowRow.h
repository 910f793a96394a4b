// A row that wraps into further rows if it does not fit.
#pragma once

#include <QLayout>

#include <vector>

namespace quorvi {

/// Its items keep their size hints and are placed from the row's start. The last one may be apart, at the
/// end.
class FlowRow : public QLayout {
    Q_OBJECT
    Q_PROPERTY(bool lastApart READ isLastApart WRITE setLastApart)

  public:
    explicit FlowRow(QWidget* parent = nullptr);
    ~FlowRow() override;

    [[nodiscard]] bool isLastApart() const { return m_lastApart; }
    void setLastApart(bool apart);

    void addItem(QLayoutItem* item) override;
    void addLayout(QLayout* layout);
    [[nodiscard]] int count() const override { return int(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    [[nodiscard]] QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;    ///< in one row
    [[nodiscard]] QSize minimumSize() const override; ///< as wide as its widest item
    void setGeometry(const QRect& place) override;

  private:
    struct Row {
        std::vector<QLayoutItem*> items;
        int width = 0;
        int height = 0;
    };
    [[nodiscard]] std::vector<Row> rowsIn(int width) const;
    [[nodiscard]] int heightOf(const std::vector<Row>& rows) const;
    void placeRow(const Row& row, const QRect& place) const;

    std::vector<QLayoutItem*> m_items; // owned, as in every layout of the toolkit
    bool m_lastApart = false;
};

} // namespace quorvi
