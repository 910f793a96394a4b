#include "editors/stages/EditedStages.h"

#include <algorithm>

#include "document/Document.h"
#include "document/StageResolution.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Numbering.h"
#include "plist/DeepCopy.h"

namespace quorvi {

void EditedStages::copyFrom(const Document& document) {
    m_settings = plist::mutableDeepCopy(document.settings());
    m_profile = plist::mutableDeepCopy(document.profile());
}

void EditedStages::forget() {
    m_settings = {};
    m_profile = {};
}

bool EditedStages::storeIn(Document& document) const {
    if (index() < 0 || !document.profile())
        return false;
    document.settings().set(keys::stage, index() + 1);
    copyResolution(stage(), document.settings());
    document.profile().set(keys::defaultStage, m_profile.integer(keys::defaultStage));
    document.profile().set(keys::stages, stages());
    document.editProfileIndex(document.profileIndex());
    return true;
}

plist::Array EditedStages::stages() const {
    return m_profile.array(keys::stages);
}

std::int32_t EditedStages::index() const {
    const std::int32_t index = indexOfNumber(m_settings.integer(keys::stage));
    return index >= 0 && static_cast<std::size_t>(index) < stages().size() ? index : -1;
}

plist::Dictionary EditedStages::stage() const {
    return stages().dictionary(static_cast<std::size_t>(index()));
}

void EditedStages::select(std::int32_t index) {
    if (!m_settings || index < 0 || static_cast<std::size_t>(index) >= stages().size())
        return;
    m_settings.set(keys::stage, index + 1);
    copyResolution(stage(), m_settings);
    m_profile.set(keys::defaultStage, index + 1);
}

bool EditedStages::duplicate() {
    const std::int32_t selected = index();
    const plist::Array list = stages();
    if (selected < 0 || list.size() >= limits::stages)
        return false;
    list.insert(static_cast<std::size_t>(selected) + 1, plist::deepCopy(list.value(std::size_t(selected))));
    select(selected + 1);
    return true;
}

bool EditedStages::remove() {
    const std::int32_t selected = index();
    const plist::Array list = stages();
    if (selected < 0 || list.size() <= limits::minimumStages)
        return false;
    list.remove(static_cast<std::size_t>(selected));
    select(std::min(selected, static_cast<std::int32_t>(list.size()) - 1));
    return true;
}

// The selected stage and the copied settings hold the same numbers, so every change is stored in both.

bool EditedStages::setX(int resolution) {
    if (index() < 0)
        return false;
    const bool bothAxes = !stage().boolean(keys::independentXY);
    for (const plist::Dictionary& holder : {stage(), m_settings}) {
        holder.set(keys::dpiX, resolution);
        if (bothAxes)
            holder.set(keys::dpiY, resolution);
    }
    return true;
}

bool EditedStages::setY(int resolution) {
    if (index() < 0)
        return false;
    for (const plist::Dictionary& holder : {stage(), m_settings})
        holder.set(keys::dpiY, resolution);
    return true;
}

bool EditedStages::setIndependentAxes(bool independent) {
    if (index() < 0)
        return false;
    for (const plist::Dictionary& holder : {stage(), m_settings}) {
        holder.set(keys::independentXY, independent);
        if (!independent)
            holder.set(keys::dpiY, holder.integer(keys::dpiX));
    }
    return true;
}

} // namespace quorvi
