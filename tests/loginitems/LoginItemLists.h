// The two kinds of login item lists on disk with a common interface, and one in memory that fails on demand.
#pragma once

#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "loginitems/LoginItemStore.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

inline const std::string kHelper = "/opt/quorvi/KyvarQuorviHelper.app";

struct Item {
    std::string path;
    bool hide = false;

    friend bool operator==(const Item&, const Item&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Item& item) {
        return out << item.path << (item.hide ? " (hidden)" : "");
    }
};
using Items = std::vector<Item>;

/// "/<n>/KyvarQuorviHelper.app" for n from 1.
[[nodiscard]] Items copiesOfHelper(int count);

/// A list on disk.
class ListOnDisk {
  public:
    virtual ~ListOnDisk() = default;

    virtual void seed(const Items& items) = 0;
    [[nodiscard]] virtual Items contents() = 0;
    [[nodiscard]] virtual LoginItemStore& store() = 0;

    /// Every file with its content and its inode, which a replaced file does not keep.
    [[nodiscard]] std::map<std::string, std::pair<std::string, unsigned long>> snapshot() const;

  protected:
    TemporaryFolder m_folder;
};

[[nodiscard]] std::unique_ptr<ListOnDisk> makePropertyList();
[[nodiscard]] std::unique_ptr<ListOnDisk> makeAutostartFolder();

struct ListKind {
    const char* name;
    std::unique_ptr<ListOnDisk> (*make)();

    friend std::ostream& operator<<(std::ostream& out, const ListKind& kind) { return out << kind.name; }
};
inline constexpr ListKind kListKinds[] = {
    {"PropertyList", makePropertyList},
    {"AutostartFolder", makeAutostartFolder},
};

/// A list in memory that reads and writes with the statuses that it is told.
class MemoryStore : public LoginItemStore {
  public:
    Status read(LoginItemAccess, LoginItems& items) override;
    Status write(const LoginItems& items) override;

    LoginItems list;
    Status readStatus = noErr;
    Status writeStatus = noErr;
    int reads = 0;
    int writes = 0;
};

} // namespace quorvi::test
