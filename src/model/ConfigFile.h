// One configuration file as one party sees it from load to save and on to the next save: what it last read or
// wrote there, the keys of others in it, and whether somebody else has put another tree there meanwhile.
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
    /// More than this of a file is not remembered, with its keys as a tree. A settings file holds some 50 KB;
    /// a larger one is known again by its size and a hash, and parsed at each save.
    static constexpr std::size_t kMaxRemembered = std::size_t{1} << 20U;

    /// Nothing is read yet. The calls have to outlive this object.
    ConfigFile(std::string_view key, std::filesystem::path path, FileCalls& calls = systemFileCalls())
        : m_key(key), m_path(std::move(path)), m_calls(calls) {}

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] FileCalls& calls() const { return m_calls; }

    /// KyvarLoadConfigFromFile with this file as the first; what is in it is known from here on.
    [[nodiscard]] plist::Dictionary load(std::int32_t minimumVersion, const std::filesystem::path& second);

    /// KyvarSaveConfigToFile. The file is read afresh each time and parsed only when its bytes are others
    /// than those that are known. How it is replaced says replaceSharedFile().
    ///
    /// What others have changed in the file's tree since it was last read or written here is joined with the
    /// tree (mergeSettings), which then is brought to what is in the file, in place: handles into it stay
    /// valid, and tookChangesOver() says so. What cannot be joined, has been refused by a load or cannot be
    /// read is kept as a copy. Without a load or a save before, nothing is known, whatever tree is there is
    /// replaced, and only a file that is no property list is kept.
    ///
    /// After a failure the tree is as it was, and error() says why.
    [[nodiscard]] bool save(const plist::Dictionary& tree, Durability durability = Durability::now);

    /// Of the last save, as errno: EISDIR for a folder in the file's place, ELOOP for links that lead
    /// nowhere, ENXIO for anything else that is no file, EINVAL for a tree that no property list holds. 0 for
    /// success.
    [[nodiscard]] int error() const { return m_error; }
    /// For a save that could not even begin. False.
    bool fail(int error) {
        m_error = error;
        return false;
    }
    /// Whether the last save has changed the tree that it was given.
    [[nodiscard]] bool tookChangesOver() const { return m_tookChangesOver; }

    /// Whether the file holds another valid tree (see KyvarValidateConfig) than the one that was last read or
    /// written here. False while nothing is known, and for a file that is gone, cannot be read, or holds
    /// none: that may be so for a moment while somebody writes it.
    [[nodiscard]] bool holdsAnotherTree(std::int32_t minimumVersion);

    /// The copy of what others put there, if a save has kept one since this was asked last.
    [[nodiscard]] std::optional<std::filesystem::path> takeKeptCopy();

    /// Nothing is known any more, and nothing is held.
    void forget();

  private:
    class Save;

    enum class Knowledge : std::uint8_t {
        nothing,
        tree,   ///< the bytes hold the tree that was last read or written, or none
        refused ///< the bytes hold what could not be used, or could not be read
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
    std::size_t m_largeSize = 0; ///< of a file above kMaxRemembered, in bytes; else 0
    std::size_t m_largeHash = 0; ///< of its bytes
    plist::Dictionary m_content; ///< of the bytes, without the tree; nil when they hold no dictionary
    std::string m_base;          ///< the known tree, when it is not in the bytes, as a file with it alone
    std::optional<std::filesystem::path> m_kept;
    int m_error = 0;
    bool m_tookChangesOver = false;
};

/// Changes the tree under the key of the file, and nothing else in it. The change gets the tree that is
/// there, nil for none, and is made anew when somebody else has written meanwhile; nothing is written when it
/// says false. 0, ECANCELED for that, or what kept the file from being replaced (see replaceSharedFile).
[[nodiscard]] int changeConfigFile(std::string_view key, const std::filesystem::path& path,
    const std::function<bool(const plist::Dictionary& tree)>& change, FileCalls& calls = systemFileCalls());

} // namespace quorvi
