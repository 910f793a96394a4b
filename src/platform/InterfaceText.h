// The texts of the interface files. They are looked up while the program runs, in the bundle's string table
// with the English text as key, so that a translation is a file beside the program and not a build of it.
#pragma once

#include <QString>

#include <functional>

namespace quorvi {

/// Takes the English text and gives the text to show; the English text itself when there is no other.
using InterfaceTextLookup = std::function<QString(const QString& english)>;

/// Sets what interfaceText() asks. Must be set before the views are built, because they keep the texts that
/// they are built with. An empty function goes back to the English texts.
void setInterfaceTextLookup(InterfaceTextLookup lookup);

/// The text to show for an English UTF-8 text. The interface compiler writes a call of this for each text of
/// an interface file; the comment is its note to translators, which the string table does not use.
[[nodiscard]] QString interfaceText(const char* english, const char* comment = nullptr);

} // namespace quorvi
