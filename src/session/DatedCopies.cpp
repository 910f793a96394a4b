#include "session/DatedCopies.h"

#include <utility>

#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "session/SaveNotices.h"

namespace quorvi {

DatedCopies::DatedCopies(Place place, FileCalls& calls, SaveNotices& notices)
    : m_place(std::move(place)), m_history(m_place.folder, calls), m_notices(notices) {}

void DatedCopies::keepBeforeFirstChange(const std::filesystem::path& file, const plist::Dictionary& tree) {
    if (!m_history.isDue(m_place.now()))
        return;
    const auto held = storedTree(keys::storage, file);
    if (KyvarValidateConfig(held, limits::minimumVersion) && plist::Value(held) != plist::Value(tree))
        keep(held, CopyReason::firstChangeOfDay);
}

bool DatedCopies::keep(const plist::Dictionary& tree, CopyReason reason) {
    if (m_place.folder.empty())
        return false;
    if (const int error = m_history.keep(tree, reason, m_place.now())) {
        m_notices.tellOfFailedCopy(m_place.folder, error);
        return false;
    }
    m_notices.copiesWork();
    return true;
}

} // namespace quorvi
