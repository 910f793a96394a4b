// The running profile and the reason, below the list of profiles.
#pragma once

#include <QString>

#include "events/HelperNews.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// The running profile and the reason; empty without a profile.
[[nodiscard]] QString runningText(const HelperNews& helper, const QString& profile, const PanelText& text);

/// `profile` is the name of the running profile; empty for none.
void showRunningProfile(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const QString& profile,
    const PanelText& text);

} // namespace quorvi
