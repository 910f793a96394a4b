// The desktop's list: one entry file per application in the XDG autostart folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/FileCalls.h"
#include "loginitems/DesktopEntry.h"
#include "loginitems/LoginItemStore.h"

namespace quorvi {

/// The list is the folder's .desktop files that carry X-KyvarQuorvi-Path, in the byte order of their names.
/// Other programs' files do not count as elements, so a name that happens to match never changes or removes
/// one; nor do folders and unreadable files.
///
/// A changed element keeps its file name; an appended one gets the first free name derived from the
/// application's. If a write removes or changes an element that the user had turned off (Hidden, or the
/// desktop's own switch), the element written instead is off too: replacing the entry of a moved application
/// must not turn it on again.
class AutostartLoginItemStore final : public LoginItemStore {
  public:
    /// Returns the executable of an application bundle; empty if there is none.
    using ExecutableOf = std::function<std::string(const std::string& applicationPath)>;

    /// `folder` and those above it are created when the first entry is written. `calls` must outlive the
    /// store.
    AutostartLoginItemStore(
        std::string folder, ExecutableOf executableOf, FileCalls& calls = systemFileCalls());

    /// A missing folder counts as an empty list for Add, and returns resNotFound for Remove.
    [[nodiscard]] Status read(LoginItemAccess access, LoginItems& items) override;
    /// Every entry is written before any is removed. Returns memFullErr for an element without an executable.
    [[nodiscard]] Status write(const LoginItems& items) override;

  private:
    struct Element {
        std::string fileName;
        DesktopEntry entry;
    };
    struct Change {
        std::string fileName;
        std::string text;
    };

    [[nodiscard]] std::string pathOf(const std::string& fileName) const;
    [[nodiscard]] std::string freeFileName(
        const std::string& applicationPath, const std::vector<Change>& changes) const;
    [[nodiscard]] Status apply(const std::vector<Change>& changes, const std::vector<std::size_t>& leftOut);

    std::string m_folder;
    ExecutableOf m_executableOf;
    FileCalls& m_calls;
    std::vector<Element> m_elements;
};

} // namespace quorvi
