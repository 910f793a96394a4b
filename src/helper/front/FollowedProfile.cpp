#include "helper/front/FollowedProfile.h"

#include <vector>

#include "base/Unicode.h"
#include "helper/front/ProcessFacts.h"
#include "model/Keys.h"
#include "model/ProfileMatching.h"

namespace quorvi::front {

namespace {

/// One description of the application; empty parts are not matched. Signatures belong to another system's
/// files; no window has one.
struct Description {
    std::string application;
    std::string identifier;
    std::string executable;
};

int match(const plist::Array& profiles, const Description& description) {
    const auto application = toUtf16(description.application);
    const auto identifier = toUtf16(description.identifier);
    const auto executable = toUtf16(description.executable);
    const auto given = [](const std::u16string& text) { return text.empty() ? nullptr : &text; };
    return KyvarMatchProfile(
        profiles, true, given(application), given(identifier), nullptr, given(executable));
}

/// A profile bound to a file instead of an entry has the file's name for both. The executable alone does not
/// describe an entry: many entries start the same program ("flatpak", "sh").
std::vector<Description> descriptionsOf(const FrontApplication& application) {
    std::vector<Description> all;
    if (!application.identifier.empty()) {
        all.push_back({application.name, application.identifier, application.executable});
        all.push_back({"", application.identifier, ""});
    }
    for (const auto& game : application.games)
        all.push_back({"", game, ""});
    auto names = application.programs;
    names.insert(names.end(), {application.windowClass, application.windowName});
    for (const auto& name : names)
        if (!name.empty())
            all.push_back({name, "", name});
    if (application.identifier.empty() && !application.programs.empty() &&
        !runsOthers(application.programs.front()))
        all.push_back({"", "", application.programs.front()});
    return all;
}

} // namespace

FollowedProfile profileFor(const plist::Array& profiles, const FrontApplication& application) {
    for (const auto& description : descriptionsOf(application)) {
        const int index = match(profiles, description);
        if (index < 0)
            continue;
        const auto profile = static_cast<std::size_t>(index);
        const auto bound =
            toUtf8(profiles.dictionary(profile).dictionary(keys::driver).string(keys::application));
        const bool hasEntry = !application.identifier.empty();
        return {profile, hasEntry || bound.empty() ? application.shownName : bound};
    }
    return {};
}

} // namespace quorvi::front
