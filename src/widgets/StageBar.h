// A profile's sensitivity stages: a bar with a cell for each stage, the current one marked, and a level in
// each for comparison. A cell is chosen by a click, or by the arrow keys and Return.
#pragma once

#include <QList>
#include <QWidget>

#include "widgets/AccessibleWidgets.h"

class QVariantAnimation;

namespace quorvi {

/// One stage: its text, and its two resolutions. Negative ones count as 0.
struct StageField {
    QString text;
    int x = 0;
    int y = 0;
    QString spoken = {}; ///< its name for assistive programs
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
    /// The length of a resolution's level relative to its field: 0 to 1, with 1 for the highest of all.
    [[nodiscard]] qreal levelOf(int resolution) const;

    /// Animates the current stage's highlight from that stage's cell, unless the desktop requests no motion.
    /// Does nothing for an index outside the list.
    void moveGroundFrom(int stage);
    /// The place of the highlight: the index of a cell, or a value between two. -1 without a current stage.
    [[nodiscard]] qreal groundPlace() const { return m_ground; }

    [[nodiscard]] QRect cellOf(int stage) const;
    /// The stage of the cell at the point; -1 outside the cells.
    [[nodiscard]] int stageAt(const QPoint& point) const;
    /// The cell of the arrow keys, while the bar has the focus.
    [[nodiscard]] int focusedStage() const { return m_focused; }

    /// Acts like a click on the stage's cell. Does nothing for an index outside the list.
    void chooseStage(int stage);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    void stageChosen(int stage);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] QRectF placeOf(qreal stage) const;
    void paintGround(QPainter& painter) const;
    void paintDividers(QPainter& painter) const;
    void paintStage(QPainter& painter, int index) const;
    void paintFocus(QPainter& painter) const;
    void focusStage(int stage);
    void pointAt(int stage);
    void showGroundAt(qreal place);
    [[nodiscard]] bool isKnown(int stage) const { return stage >= 0 && stage < m_stages.size(); }
    [[nodiscard]] QFont currentFont() const;
    [[nodiscard]] bool mirrored() const;

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    QList<StageField> m_stages;
    QVariantAnimation* m_motion = nullptr; ///< created for the first animation
    qreal m_ground = -1;
    int m_current = -1;
    int m_focused = 0;
    int m_pressed = -1;
    int m_pointed = -1; ///< the cell under the pointer
};

} // namespace quorvi
