#include "model/Lookups.h"

#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

bool hasName(const Dictionary& dictionary, const std::u16string* name) {
    const auto* own = dictionary.value(keys::name).string();
    return name && own && *own == *name;
}

template <typename Predicate>
int firstIndex(const Array& dictionaries, Predicate matches) {
    for (std::size_t i = 0; i < dictionaries.size(); ++i) {
        const auto dictionary = dictionaries.dictionary(i);
        if (dictionary && matches(dictionary))
            return static_cast<int>(i);
    }
    return -1;
}

bool isPlainClick(const Dictionary& assignment) {
    return assignment && assignment.integer(keys::command) == commands::click &&
           assignment.integer(keys::param2) == 0;
}

} // namespace

int KyvarFindProfileInArray(const std::u16string* name, const Array& profiles) {
    return firstIndex(profiles, [&](const Dictionary& profile) { return hasName(profile, name); });
}

int KyvarFindMacroInArray(std::int32_t macroId, const std::u16string* name, const Array& macros) {
    return firstIndex(macros, [&](const Dictionary& macro) {
        return (macroId >= 0 && macro.integer(keys::macroId) == macroId) || hasName(macro, name);
    });
}

int KyvarFindUnusedMacroID(const Array& macros) {
    if (macros.size() >= limits::macros)
        return -1;
    for (int macroId = 0; macroId <= limits::highestMacroId; ++macroId) {
        if (KyvarFindMacroInArray(macroId, nullptr, macros) < 0)
            return macroId;
    }
    return -1;
}

int KyvarFindClickInProfile(const Dictionary& profile, std::uint32_t buttonMask) {
    const auto buttons = profile.dictionary(keys::buttons);
    for (int bit = 0; buttons && bit < 32; ++bit) {
        if ((buttonMask >> bit & 1U) != 0 && isPlainClick(buttons.dictionary(keys::button(bit + 1))))
            return bit;
    }
    return -1;
}

} // namespace quorvi
