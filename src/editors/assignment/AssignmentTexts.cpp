#include "editors/assignment/AssignmentTexts.h"

#include <algorithm>

#include "document/Document.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "model/Numbering.h"
#include "widgets/ShownText.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

/// The pattern with the assigned profile's or macro's name; without a name if it is missing.
QString titleWithName(const QString& pattern, const plist::Dictionary& item) {
    const QString name = QString::fromStdU16String(item.string(keys::name));
    return filledText(pattern, {nameWithin(pattern, shownName(name))});
}

/// The assigned macro; nil if it is missing.
plist::Dictionary macroOf(const Document& document, const plist::Dictionary& assignment) {
    const int index = KyvarFindMacroInArray(assignment.integer(keys::param1), nullptr, document.macros());
    return index >= 0 ? document.macros().dictionary(static_cast<std::size_t>(index)) : plist::Dictionary();
}

} // namespace

QString assignmentTitle(const Document& document, const plist::Dictionary& assignment,
    const QString& plainTitle, const PanelText& text) {
    const std::int32_t param = assignment.integer(keys::param1);
    switch (assignment.integer(keys::command)) {
    case commands::switchToProfile:
        return titleWithName(text("Profile: ^1"),
            document.profiles().dictionary(static_cast<std::size_t>(indexOfNumber(param))));
    case commands::runMacro: {
        const plist::Dictionary macro = macroOf(document, assignment);
        const QString pattern = text("Macro: ^1");
        return macro ? titleWithName(pattern, macro) : filledText(pattern, {text("(missing)")});
    }
    case commands::singleKey:
        return filledText(text("Press Key ^1"),
            {QString::fromStdU16String(shownKeyCombination(
                UsbToAdbKeycode(param & 0xFF), UsbToAdbModifiers(assignment.integer(keys::param2) & 0xFF)))});
    default:
        return plainTitle;
    }
}

QString stepsOfMacro(const Document& document, const plist::Dictionary& assignment, const PanelText& text) {
    if (assignment.integer(keys::command) != commands::runMacro)
        return {};
    const plist::Array steps = macroOf(document, assignment).array(keys::steps);
    QStringList texts;
    for (std::size_t i = 0; i < std::min<std::size_t>(steps.size(), limits::macroSteps); ++i)
        texts << shownStep(steps.dictionary(i), text);
    return joinedText(text("^1 · ^2"), texts);
}

} // namespace quorvi
