// The window's texts about backups: their differences and left-out items.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

#include "history/Backup.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// The differences from the earlier tree, a sentence each (see differencesBetween).
[[nodiscard]] QStringList differenceTexts(
    const plist::Dictionary& earlier, const plist::Dictionary& now, const PanelText& text);

/// The left-out items of a backup and the reasons, a sentence each.
[[nodiscard]] QStringList leftOutTexts(const std::vector<LeftOut>& leftOut, const PanelText& text);

/// The sentence, followed by the first left-out items and the number of the others.
[[nodiscard]] QString withLeftOut(const QString& sentence, const QStringList& leftOut, const PanelText& text);

} // namespace quorvi
