// Which profile runs now and why, below the list of profiles.
#pragma once

#include <QString>

#include "events/HelperNews.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// Which profile runs and why; empty without a profile.
[[nodiscard]] QString runningText(const HelperNews& helper, const QString& profile, const PanelText& text);

/// The profile is the name of the one that the helper says is running; empty for none.
void showRunningProfile(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const QString& profile,
    const PanelText& text);

} // namespace quorvi
