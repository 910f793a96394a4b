#include "history/ComparedTrees.h"
#include "model/Keys.h"
#include "model/Numbering.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

Phrase currentProfilePhrase(std::int32_t number, const Array& profiles) {
    const Dictionary profile = profiles.dictionary(static_cast<std::size_t>(indexOfNumber(number)));
    return profile ? namePhrase(profile.string(keys::name)) : patternPhrase(u"Missing profile");
}

/// Whether another profile is the current one.
bool compareCurrentProfiles(const Both& settings, const ComparedTrees& trees, DifferenceList& list) {
    const auto [was, is] = settings.take(keys::profileId);
    if (trees.profiles.areSame(indexOfNumber(was.integer()), indexOfNumber(is.integer())))
        return false;
    Phrase wasPhrase = currentProfilePhrase(was.integer(), trees.earlier.profiles);
    Phrase isPhrase = currentProfilePhrase(is.integer(), trees.now.profiles);
    if (was == is && wasPhrase == isPhrase)
        return false;
    list.addChange(patternPhrase(u"Current profile"), std::move(wasPhrase), std::move(isPhrase));
    return true;
}

void compareCurrentResolutions(const Both& settings, bool followsFromOthers, DifferenceList& list) {
    Phrase wasPhrase = resolutionPhrase(settings.earlier);
    Phrase isPhrase = resolutionPhrase(settings.now);
    bool isSame = true;
    for (const auto key : {keys::stage, keys::dpiX, keys::dpiY, keys::independentXY}) {
        const auto [was, is] = settings.take(key);
        isSame = isSame && was == is;
    }
    if (!isSame && !followsFromOthers)
        list.addChange(patternPhrase(u"Current sensitivity"), std::move(wasPhrase), std::move(isPhrase));
}

Phrase hertzPhrase(const Value& rate) {
    return patternPhrase(u"^1 Hz", {plainPhrase(rate.integer())});
}

} // namespace

void compareSettings(
    const Both& settings, bool toldOfStages, const ComparedTrees& trees, DifferenceList& list) {
    const bool isOtherProfile = compareCurrentProfiles(settings, trees, list);
    compareCurrentResolutions(settings, isOtherProfile || toldOfStages, list);
    const auto [was, is] = settings.take(keys::pollingRate);
    if (!(was == is))
        list.addChange(patternPhrase(u"Polling rate"), hertzPhrase(was), hertzPhrase(is));
    list.addOtherUnlessEqual(settings);
}

} // namespace quorvi
