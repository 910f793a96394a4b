// What an input of the mouse does and why, for whoever points at it in the drawing.

#include <QLabel>

#include <algorithm>

#include "live/LiveHelper.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

/// "4  Rear side button" without the mark of the key that leads to it.
QString titleOf(const QLabel& label) {
    return withoutDirection(label.text()).remove(QLatin1Char('&')).simplified();
}

} // namespace

QString KyvarQuorviPane::explanationOfInput(int input) const {
    if (!fDocument.tree() || !hasDevice())
        return {};
    const auto* label = fMainView->findChild<QLabel*>(QStringLiteral("labelInput%1").arg(input));
    const PopUpButton* popUp = fAssignmentMenus[static_cast<std::size_t>(input - 1)];
    QStringList lines{titleOf(*label), withoutDirection(popUp->currentText()),
        stepsOfMacro(fDocument.buttons().dictionary(keys::button(input))), profileInUse()};
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

QString KyvarQuorviPane::stepsOfMacro(const plist::Dictionary& assignment) const {
    if (assignment.integer(keys::command) != commands::runMacro)
        return {};
    const int index = KyvarFindMacroInArray(assignment.integer(keys::param1), nullptr, fDocument.macros());
    if (index < 0)
        return {};
    const plist::Array steps =
        fDocument.macros().dictionary(static_cast<std::size_t>(index)).array(keys::steps);
    QStringList texts;
    for (std::size_t i = 0; i < std::min<std::size_t>(steps.size(), limits::macroSteps); ++i)
        texts << shownStep(steps.dictionary(i), panelText());
    return texts.join(QStringLiteral(" · "));
}

QString KyvarQuorviPane::profileInUse() const {
    if (fLive->state().runningProfile == static_cast<std::uint32_t>(fDocument.profileIndex() + 1))
        return fLive->runningText();
    const QString title = locString(QStringLiteral("Profile:"));
    return title + QLatin1Char(' ') + nameWithin(title, fViews->main.quorviTextProfile->text());
}

} // namespace quorvi
