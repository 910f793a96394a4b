// The desktop's list: one entry file per application in the XDG autostart folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/FileCalls.h"
#include "loginitems/DesktopEntry.h"
#include "loginitems/LoginItemStore.h"

namespace quorvi {

/// The list is the folder's .desktop files that carry X-KyvarQuorvi-Path, in the order of the bytes of their
/// names. Files of other programs are no elements, so that a name that happens to match never changes or
/// removes one; neither are folders and what cannot be read.
///
/// A changed element keeps its file's name; an appended one takes the first free name made from the
/// application's. When an element is left out or changed in a write that was switched off by the user
/// (Hidden, or the desktop's own switch), the element written in that write is switched off too: replacing
/// the entry of an application that has moved must not start it again behind the user's back.
class AutostartLoginItemStore final : public LoginItemStore {
  public:
    /// The executable to run for an application bundle; empty when there is none.
    using ExecutableOf = std::function<std::string(const std::string& applicationPath)>;

    /// `folder` and those above it are created when the first entry is written. `calls` must outlive the
    /// store.
    AutostartLoginItemStore(
        std::string folder, ExecutableOf executableOf, FileCalls& calls = systemFileCalls());

    /// A missing folder is a list without elements for Add, and resNotFound for Remove.
    [[nodiscard]] Status read(LoginItemAccess access, LoginItems& items) override;
    /// Every entry is written before any is removed. An element without an executable is memFullErr.
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
