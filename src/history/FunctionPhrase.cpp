#include "base/Unicode.h"
#include "history/ComparedTrees.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "model/CommandCodes.h"
#include "model/Commands.h"
#include "model/Keys.h"
#include "model/Lookups.h"
#include "model/Numbering.h"

namespace quorvi {

namespace {

using plist::Dictionary;

/// Negative if none has the identifier.
int placeOfMacro(std::int32_t macroId, const plist::Array& macros) {
    return KyvarFindMacroInArray(macroId, nullptr, macros);
}

Phrase profileAt(std::int32_t place, const plist::Array& profiles) {
    const Dictionary profile = profiles.dictionary(static_cast<std::size_t>(place));
    return profile ? patternPhrase(u"Profile “^1”", {namePhrase(profile.string(keys::name))})
                   : patternPhrase(u"Missing profile");
}

Phrase macroAt(int place, const plist::Array& macros) {
    const Dictionary macro = macros.dictionary(static_cast<std::size_t>(place));
    return macro ? patternPhrase(u"Macro “^1”", {namePhrase(macro.string(keys::name))})
                 : patternPhrase(u"Missing macro");
}

} // namespace

Phrase functionPhrase(const Dictionary& assignment, const Lists& lists) {
    const std::int32_t code = assignment.integer(keys::command);
    const std::int32_t param = assignment.integer(keys::param1);
    switch (code) {
    case commands::switchToProfile:
        return profileAt(indexOfNumber(param), lists.profiles);
    case commands::runMacro:
        return macroAt(placeOfMacro(param, lists.macros), lists.macros);
    case commands::singleKey:
        return patternPhrase(u"Press ^1",
            {plainPhrase(shownKeyCombination(UsbToAdbKeycode(static_cast<std::uint32_t>(param)),
                UsbToAdbModifiers(static_cast<std::uint32_t>(assignment.integer(keys::param2)))))});
    default:
        const Command* command = findCommand(code);
        return command ? patternPhrase(toUtf16(command->title))
                       : patternPhrase(u"Function ^1", {plainPhrase(code)});
    }
}

bool doTheSame(const Dictionary& earlier, const Dictionary& now, const ComparedTrees& trees) {
    const std::int32_t code = earlier.integer(keys::command);
    if (code != now.integer(keys::command))
        return false;
    const std::int32_t was = earlier.integer(keys::param1);
    const std::int32_t is = now.integer(keys::param1);
    switch (code) {
    case commands::noFunction:
        return true;
    case commands::switchToProfile:
        return trees.profiles.areSame(indexOfNumber(was), indexOfNumber(is));
    case commands::runMacro:
        return trees.macros.areSame(
            placeOfMacro(was, trees.earlier.macros), placeOfMacro(is, trees.now.macros));
    default:
        return was == is && earlier.value(keys::param2) == now.value(keys::param2);
    }
}

} // namespace quorvi
