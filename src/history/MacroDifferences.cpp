#include "history/ComparedTrees.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

/// The steps without delays.
Value withoutDelays(const Array& steps) {
    const auto bare = Array::create();
    for (const Value& step : steps.items()) {
        const auto copy = Dictionary::create();
        const Dictionary whole = step.dictionary();
        for (const auto& entry : whole.entries())
            if (entry.key != keys::delay)
                copy.append(entry.key, entry.value);
        bare.append(copy);
    }
    return bare;
}

void compareSteps(const Both& macro, const Phrase& name, DifferenceList& list) {
    const auto [was, is] = macro.take(keys::steps);
    const auto [wasDelay, isDelay] = macro.take(keys::delay);
    const auto countOf = [](const Value& steps) {
        return plainPhrase(static_cast<std::int64_t>(steps.array().size()));
    };
    if (was.array().size() != is.array().size())
        list.addChange(patternPhrase(u"Steps of macro “^1”", {name}), countOf(was), countOf(is));
    else if (!(withoutDelays(was.array()) == withoutDelays(is.array())))
        list.add(patternPhrase(u"Macro “^1” had different steps", {name}));
    else if (!(was == is) || !(wasDelay == isDelay))
        list.add(patternPhrase(u"Macro “^1” had different delays", {name}));
}

} // namespace

void compareMacros(const Both& macro, DifferenceList& list) {
    const auto [was, is] = macro.take(keys::name);
    const Phrase name = namePhrase(*is.string());
    if (!(was == is))
        list.add(patternPhrase(u"Macro “^1” was named “^2”", {name, namePhrase(*was.string())}));
    compareSteps(macro, name, list);
    (void)macro.take(keys::macroId); // not visible to the user
    list.addOtherUnlessEqual(macro);
}

} // namespace quorvi
