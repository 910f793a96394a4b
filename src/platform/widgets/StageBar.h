// The sensitivity stages of a profile at one glance: a bar of as many fields as there are stages, with the
// current one marked. It only shows; stages are edited in their own panel.
#pragma once

#include <QStringList>
#include <QWidget>

namespace quorvi {

class StageBar : public QWidget {
    Q_OBJECT

  public:
    explicit StageBar(QWidget* parent = nullptr);

    /// The text of each stage from the first, and the index of the current one; an index outside the list
    /// marks none. An empty list shows an empty bar.
    void setStages(const QStringList& stages, int current);
    [[nodiscard]] const QStringList& stages() const { return m_stages; }
    [[nodiscard]] int currentStage() const { return m_current; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QStringList m_stages;
    int m_current = -1;
};

} // namespace quorvi
