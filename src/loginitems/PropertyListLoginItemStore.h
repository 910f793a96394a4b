// The login window's own list: the property list "loginWindow.plist" of a Preferences folder.
#pragma once

#include <string>
#include <string_view>

#include "base/FileCalls.h"
#include "loginitems/LoginItemStore.h"
#include "plist/Value.h"

namespace quorvi {

/// The list's name in its Preferences folder.
inline constexpr std::string_view kLoginItemsFile = "loginWindow.plist";

/// The list is the array "AutoLaunchedApplicationDictionary" of the file's top-level dictionary, its elements
/// dictionaries of "Path" (string) and "Hide" (boolean). Every other key of the file and every remaining
/// element is kept unchanged, in order.
///
/// Reading creates a missing file, empty. For Add, a file that is not a property list (such as an empty one)
/// and a dictionary without the list count as an empty list, which write() replaces; for Remove both return
/// resNotFound. A property list of another shape returns resNotFound for both, so that it stays.
class PropertyListLoginItemStore final : public LoginItemStore {
  public:
    /// `preferencesFolder` is never created. `calls` must outlive the store.
    explicit PropertyListLoginItemStore(
        const std::string& preferencesFolder, FileCalls& calls = systemFileCalls());

    [[nodiscard]] Status read(LoginItemAccess access, LoginItems& items) override;
    [[nodiscard]] Status write(const LoginItems& items) override;

  private:
    std::string m_path;
    FileCalls& m_calls;
    plist::Dictionary m_root;
};

} // namespace quorvi
