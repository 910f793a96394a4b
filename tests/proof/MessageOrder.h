// The permitted messages to the helper, and their order.
#pragma once

#include <QStringList>

namespace quorvi::test {

/// Stands for a save with which others may have made another profile the current one.
inline const QString kAnyProfile = QStringLiteral("KyPR *");

/// The first thing that is wrong with all that the helper was told from one showing of the panel to its
/// hiding, when the panel saved with these profiles as the current one; empty when all is well. Shown comes
/// first, hidden after everything but the save at hiding; recordings begin and end in turn, within.
[[nodiscard]] QString brokenOrder(const QStringList& commands, const QStringList& saves);

} // namespace quorvi::test
