// The texts of the interface files, read from the files themselves.
#pragma once

#include <string>
#include <vector>

namespace quorvi::test {

/// Texts that the user can see at the same time.
struct TextsOfPlace {
    std::string place; ///< the object name of the window or the page
    std::vector<std::string> texts;
};

/// Every text that is to be translated, from all interface files: shown ones, tool tips, and what screen
/// readers say.
[[nodiscard]] std::vector<std::string> textsOfInterfaceFiles();

/// The shown texts that can hold an access key: each window's, and for each page of a window with tabs the
/// page's together with what stands around it, the titles of all its pages included.
[[nodiscard]] std::vector<TextsOfPlace> textsShownTogether();

} // namespace quorvi::test
