// Every control of the panel, moved once: changed and changed back.
#pragma once

#include <functional>
#include <vector>

#include "sensitivity/SensitivityFixture.h"

namespace quorvi::test {

struct ControlMove {
    QString name;
    int tab; ///< that the control is on
    /// What it may change: the beginnings of paths, with "#" for the current profile's index, "@" for the
    /// current stage's and "*" for any step.
    QStringList mayChange;
    std::function<void(SensitivityFixture&)> move;
};

/// In the order of the tabs. A control that is disabled or has nothing to act on is left alone.
[[nodiscard]] const std::vector<ControlMove>& controlMoves();

} // namespace quorvi::test
