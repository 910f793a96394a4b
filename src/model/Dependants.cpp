#include "model/Dependants.h"

#include <algorithm>

#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

/// Calls the function with each input of the profile that has the command, and the command's parameter.
template <typename Function>
void forEachInputWith(std::int32_t command, const Dictionary& profile, const Function& function) {
    const Dictionary buttons = profile.dictionary(keys::buttons);
    for (int input = 1; input <= limits::buttons; ++input) {
        const Dictionary assignment = buttons.dictionary(keys::button(input));
        if (assignment && assignment.integer(keys::command) == command)
            function(input, assignment.integer(keys::param1));
    }
}

bool isOnlyMacroOfItsId(std::size_t index, const Array& macros) {
    const std::int32_t macroId = macros.dictionary(index).integer(keys::macroId);
    for (std::size_t other = 0; other < macros.size(); ++other) {
        const Dictionary macro = macros.dictionary(other);
        if (other != index && macro && macro.integer(keys::macroId) == macroId)
            return false;
    }
    return macros.dictionary(index) && macroId >= 0; // no input runs a macro with a negative identifier
}

} // namespace

std::vector<ProfileInput> inputsThatRun(const Dictionary& tree, std::size_t macro) {
    const Array macros = tree.array(keys::macros);
    const Array profiles = tree.array(keys::profiles);
    const std::int32_t macroId = macros.dictionary(macro).integer(keys::macroId);
    std::vector<ProfileInput> found;
    if (!isOnlyMacroOfItsId(macro, macros))
        return found;
    for (std::size_t profile = 0; profile < profiles.size(); ++profile)
        forEachInputWith(commands::runMacro, profiles.dictionary(profile), [&](int input, std::int32_t id) {
            if (id == macroId)
                found.push_back({profile, input});
        });
    return found;
}

std::vector<RedirectedInput> inputsRedirectedWithout(const Dictionary& tree, std::size_t profile) {
    const Array profiles = tree.array(keys::profiles);
    std::vector<RedirectedInput> found;
    for (std::size_t other = 0; other < profiles.size(); ++other) {
        if (other == profile)
            continue;
        forEachInputWith(
            commands::switchToProfile, profiles.dictionary(other), [&](int input, std::int32_t number) {
                const auto next = static_cast<std::size_t>(number); // numbers count from 1
                if (number < 1 || next > profiles.size() || next - 1 < profile)
                    return;
                found.push_back(
                    {{other, input}, next - 1, next < profiles.size() ? std::optional(next) : std::nullopt});
            });
    }
    return found;
}

std::vector<std::size_t> macrosRunBy(const Dictionary& profile, const Array& macros) {
    std::vector<std::size_t> found;
    forEachInputWith(commands::runMacro, profile, [&](int, std::int32_t macroId) {
        const int index = KyvarFindMacroInArray(macroId, nullptr, macros);
        const auto macro = static_cast<std::size_t>(index);
        if (index >= 0 && std::find(found.begin(), found.end(), macro) == found.end())
            found.push_back(macro);
    });
    return found;
}

std::vector<int> inputsWithoutMacro(const Dictionary& profile, const Array& macros) {
    std::vector<int> found;
    forEachInputWith(commands::runMacro, profile, [&](int input, std::int32_t macroId) {
        if (KyvarFindMacroInArray(macroId, nullptr, macros) < 0)
            found.push_back(input);
    });
    return found;
}

} // namespace quorvi
