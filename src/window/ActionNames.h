// Names of the user's actions, for Change::action.
#pragma once

#include <string>

#include "widgets/FilledText.h"

namespace quorvi {

/// The action's name from a text in the user's language.
[[nodiscard]] std::u16string actionName(const QString& text);

/// The same with the name of a profile, a macro or an application in place of "^1", as nameFor() puts it.
[[nodiscard]] std::u16string actionName(const QString& text, const std::u16string& name);
[[nodiscard]] std::u16string actionName(const QString& text, const QString& name);

/// The text with the name in place of "^1", in the same way.
[[nodiscard]] QString textWithName(const QString& text, const std::u16string& name);

} // namespace quorvi
