#include "model/ProfileMatching.h"

#include <array>

#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Dictionary;

constexpr int kScorePerKey = 1000;

struct Criterion {
    std::string_view key;
    const std::u16string* wanted;
};
using Criteria = std::array<Criterion, 4>;

/// 0 if no key counts or one differs; either way the profile is not chosen.
int score(const Dictionary& driver, const Criteria& criteria) {
    int total = 0;
    for (const auto& [key, wanted] : criteria) {
        const auto* bound = driver.value(key).string();
        if (!wanted || !bound || bound->empty())
            continue;
        if (*bound != *wanted)
            return 0;
        total += kScorePerKey;
    }
    return total;
}

} // namespace

int KyvarMatchProfile(const plist::Array& profiles, bool automaticOnly, const std::u16string* application,
    const std::u16string* identifier, const std::u16string* signature, const std::u16string* executable) {
    const Criteria criteria = {{{keys::application, application}, {keys::identifier, identifier},
        {keys::signature, signature}, {keys::executable, executable}}};
    int best = -1;
    int bestScore = 0;
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        const auto driver = profiles.dictionary(i).dictionary(keys::driver);
        if (!driver || (automaticOnly && !driver.boolean(keys::autoSwitch)))
            continue;
        if (const int own = score(driver, criteria); own > bestScore) {
            best = static_cast<int>(i);
            bestScore = own;
        }
    }
    return best;
}

} // namespace quorvi
