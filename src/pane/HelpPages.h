// The pages of the help that belong to what the user sees.
#pragma once

#include <string>

namespace quorvi {

/// The page to open for the tab, 0 buttons to 4 device: the file "<tab>.html" beside the index, or the index
/// when there is no such file and for any other number. Takes the path of the index. A page has a file of its
/// own because a place within a page would be lost: openers pass on paths, not addresses with a "#".
[[nodiscard]] std::string helpPageOfTab(const std::string& index, int tab);

} // namespace quorvi
