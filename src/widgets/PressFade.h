// Fades the numbers of released mouse inputs from the press colours to their own.
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
    /// In milliseconds. There is no fading in a style whose SH_Widget_Animation_Duration is 0, as desktops
    /// with reduced motion request.
    static constexpr int duration = 200;

    /// Active while both exist.
    PressFade(QWidget& view, const InputMarks& marks);

    /// The remaining part of the input's press: 1 when it has just ended, 0 if it does not fade.
    [[nodiscard]] qreal left(int input) const;

  signals:
    /// left() of some inputs has decreased.
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
