// Inputs of the mouse that have just been let go: their numbers fade from the colours of a press to their
// own.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <array>

#include "widgets/InputMarks.h"

class QWidget;

namespace quorvi {

class PressFade : public QObject {
    Q_OBJECT

  public:
    /// In milliseconds. Nothing fades in a style whose SH_Widget_Animation_Duration is 0, as desktops ask for
    /// that want less motion.
    static constexpr int duration = 200;

    /// Works while both exist.
    PressFade(QWidget& view, const InputMarks& marks);

    /// What is left of the input's press: 1 where it has just ended, 0 where nothing fades.
    [[nodiscard]] qreal left(int input) const;

  signals:
    /// left() of some inputs has become less.
    void changed();

  private:
    void follow();
    void step();

    QWidget& m_view;
    const InputMarks& m_marks;
    std::array<bool, mouseInputs + 1> m_wasPressed{};
    std::array<QElapsedTimer, mouseInputs + 1> m_since; ///< valid while the input fades
    QTimer m_frames;
};

} // namespace quorvi
