// The sensitivity stages of a profile at one glance: a bar of as many fields as there are stages, with the
// current one marked and a level in each that compares it with the others. It only shows; stages are edited
// in their own panel.
#pragma once

#include <QList>
#include <QWidget>

namespace quorvi {

/// One stage: its text, and its two resolutions. What is below 0 counts as 0.
struct StageField {
    QString text;
    int x = 0;
    int y = 0;
};

class StageBar : public QWidget {
    Q_OBJECT

  public:
    explicit StageBar(QWidget* parent = nullptr);

    /// The stages from the first, and the index of the current one; an index outside the list marks none. An
    /// empty list shows an empty bar.
    void setStages(const QList<StageField>& stages, int current);
    [[nodiscard]] const QList<StageField>& stages() const { return m_stages; }
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] int currentStage() const { return m_current; }
    /// How far the level of a resolution reaches across its field: 0 to 1, and 1 for the highest of all.
    [[nodiscard]] qreal levelOf(int resolution) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintStage(QPainter& painter, const QRectF& field, int index) const;
    [[nodiscard]] bool mirrored() const;

    QList<StageField> m_stages;
    int m_current = -1;
};

} // namespace quorvi
