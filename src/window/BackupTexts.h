// What the window says of backups: what is different in them, and what of them was left out.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

#include "history/Backup.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// What was different in the earlier tree, a sentence each (see differencesBetween).
[[nodiscard]] QStringList differenceTexts(
    const plist::Dictionary& earlier, const plist::Dictionary& now, const PanelText& text);

/// What of a backup has no place in the settings, and why, a sentence each.
[[nodiscard]] QStringList leftOutTexts(const std::vector<LeftOut>& leftOut, const PanelText& text);

/// The sentence, and below it the first of what was left out and how much more there is.
[[nodiscard]] QString withLeftOut(const QString& sentence, const QStringList& leftOut, const PanelText& text);

} // namespace quorvi
