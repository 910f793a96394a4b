// The texts of the interface files. They are looked up at run time in the bundle's string table, with the
// English text as key, so a translation is a file and not a separate build.
#pragma once

#include <QString>

#include <functional>

namespace quorvi {

/// Returns the translation of an English text, or the text itself if there is none.
using InterfaceTextLookup = std::function<QString(const QString& english)>;

/// Sets the function that interfaceText() uses. Set it before the views are built, because they keep their
/// texts. An empty function restores the English texts.
void setInterfaceTextLookup(InterfaceTextLookup lookup);

/// The translation of an English UTF-8 text. The interface compiler generates a call for each text of an
/// interface file; the comment is its note to translators, which string tables do not use.
[[nodiscard]] QString interfaceText(const char* english, const char* comment = nullptr);

} // namespace quorvi
