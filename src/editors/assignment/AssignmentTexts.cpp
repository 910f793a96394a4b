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

/// What the title says of an assigned profile or macro; without a name when it is not there.
QString titleWithName(const QString& title, const plist::Dictionary& item) {
    const QString name = QString::fromStdU16String(item.string(keys::name));
    return title + QLatin1Char(' ') + nameWithin(title, shownName(name));
}

/// The macro that is assigned; nil when there is none like that.
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
        return titleWithName(
            text("Profile:"), document.profiles().dictionary(static_cast<std::size_t>(indexOfNumber(param))));
    case commands::runMacro: {
        const plist::Dictionary macro = macroOf(document, assignment);
        return macro ? titleWithName(text("Macro:"), macro)
                     : text("Macro:") + QLatin1Char(' ') + text("(missing)");
    }
    case commands::singleKey:
        return plainTitle + QLatin1Char(' ') +
               QString::fromStdU16String(shownKeyCombination(UsbToAdbKeycode(param & 0xFF),
                   UsbToAdbModifiers(assignment.integer(keys::param2) & 0xFF)));
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
    return texts.join(QStringLiteral(" · "));
}

} // namespace quorvi
