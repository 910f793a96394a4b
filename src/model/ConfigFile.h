// One configuration file as one process sees it, from load to save to the next save: its last known content,
// the other programs' keys in it, and whether another program has since written a different tree.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

class ConfigFile {
  public:
    /// The largest file whose content is remembered, in bytes. A settings file holds some 50 KB; a larger
    /// file is recognised by its size and a hash, and parsed at each save.
    static constexpr std::size_t kMaxRemembered = std::size_t{1} << 20U;

    /// Reads nothing yet. The calls must outlive this object.
    ConfigFile(std::string_view key, std::filesystem::path path, FileCalls& calls = systemFileCalls())
        : m_key(key), m_path(std::move(path)), m_calls(calls) {}

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] FileCalls& calls() const { return m_calls; }

    /// KyvarLoadConfigFromFile with this file as the first; remembers its content.
    [[nodiscard]] plist::Dictionary load(std::int32_t minimumVersion, const std::filesystem::path& second);

    /// KyvarSaveConfigToFile. Re-reads the file each time, and parses it only if its bytes have changed.
    /// Replaces it with replaceSharedFile().
    ///
    /// Other programs' changes to the file's tree since this object last read or wrote it are merged into
    /// `tree` (mergeSettings), in place: handles into it stay valid, and tookChangesOver() returns true. A
    /// file that cannot be merged or read, or that a load has refused, is kept as a copy. Without an earlier
    /// load or save, any tree in the file is replaced, and only a file that is not a property list is kept.
    ///
    /// A failure leaves the tree unchanged and sets error().
    [[nodiscard]] bool save(const plist::Dictionary& tree, Durability durability = Durability::now);

    /// The last save's error, as errno: EISDIR for a folder in the file's place, ELOOP for a loop of links,
    /// ENXIO for anything else that is not a file, EINVAL for a tree that a property list cannot hold. 0 for
    /// success.
    [[nodiscard]] int error() const { return m_error; }
    /// Records the error of a save that could not begin. Returns false.
    bool fail(int error) {
        m_error = error;
        return false;
    }
    /// Whether the last save changed the given tree.
    [[nodiscard]] bool tookChangesOver() const { return m_tookChangesOver; }

    /// Whether the file holds a valid tree (see KyvarValidateConfig) other than the one last read or written
    /// here. Returns false before the first load or save, and for a file that is missing, cannot be read, or
    /// holds no valid tree: another program may be writing it.
    [[nodiscard]] bool holdsAnotherTree(std::int32_t minimumVersion);

    /// The copy of another program's content that a save has kept since the last call, if any.
    [[nodiscard]] std::optional<std::filesystem::path> takeKeptCopy();

    /// Forgets the known content and frees it.
    void forget();

  private:
    class Save;

    enum class Knowledge : std::uint8_t {
        nothing,
        tree,   ///< the bytes hold the tree that was last read or written, or none
        refused ///< the bytes could not be read, or their content not used
    };

    [[nodiscard]] bool isKnown(const plist::Data& bytes) const;
    [[nodiscard]] plist::Dictionary knownContent(const plist::Data& bytes) const;
    [[nodiscard]] plist::Value base() const;
    [[nodiscard]] bool holds(std::string_view bytes) const;
    void remember(std::string bytes, const plist::Dictionary& content, const plist::Dictionary& tree,
        Knowledge knowledge);
    void rememberBase(const plist::Value& tree);

    std::string m_key;
    std::filesystem::path m_path;
    FileCalls& m_calls;
    Knowledge m_knowledge = Knowledge::nothing;
    std::int32_t m_minimumVersion = 0;
    std::string m_bytes;         ///< last read or written; empty for no file, or a large one
    std::string m_room;          ///< for the next text; its content is of no use
    std::size_t m_largeSize = 0; ///< of a file above kMaxRemembered, in bytes; else 0
    std::size_t m_largeHash = 0; ///< of its bytes
    plist::Dictionary m_content; ///< of the bytes, without the tree; nil if they do not hold a dictionary
    std::string m_base;          ///< the known tree as a file with only this tree, if it is not in the bytes
    std::optional<std::filesystem::path> m_kept;
    int m_error = 0;
    bool m_tookChangesOver = false;
};

/// Changes only the tree under the key of the file. `change` receives the present tree, or nil, and is called
/// again if another program writes in the meantime. If it returns false, nothing is written and the result is
/// ECANCELED. Otherwise returns 0 or the error of replaceSharedFile.
[[nodiscard]] int changeConfigFile(std::string_view key, const std::filesystem::path& path,
    const std::function<bool(const plist::Dictionary& tree)>& change, FileCalls& calls = systemFileCalls());

} // namespace quorvi
