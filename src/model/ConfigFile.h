// One configuration file as one party sees it from load to save and on to the next save: what it last read or
// wrote there, the keys of others in it, and whether somebody else has put another tree there meanwhile.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "model/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

class ConfigFile {
  public:
    /// More than this of a file is not remembered, with its keys as a tree. A settings file holds some 50 KB;
    /// a larger one is parsed at each save, and changes of others in it are not noticed.
    static constexpr std::size_t kMaxRemembered = std::size_t{1} << 20U;

    /// Nothing is read yet. The calls have to outlive this object.
    ConfigFile(std::string_view key, std::filesystem::path path, FileCalls& calls = systemFileCalls())
        : m_key(key), m_path(std::move(path)), m_calls(calls) {}

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] FileCalls& calls() const { return m_calls; }

    /// KyvarLoadConfigFromFile with this file as the first; what is in it is known from here on.
    [[nodiscard]] plist::Dictionary load(std::int32_t minimumVersion, const std::filesystem::path& second);

    /// KyvarSaveConfigToFile. The file is read afresh each time and parsed only when its bytes are others
    /// than those that are known.
    ///
    /// Settings in the file that this object has neither read nor written, or has read and could not use, are
    /// kept first (see keepCopy): nobody's are lost. A save whose copy cannot be made fails. Without a load
    /// or a save before, nothing is known and whatever is there is replaced.
    [[nodiscard]] bool save(const plist::Dictionary& tree, Durability durability = Durability::now);

    /// Whether the file holds another valid tree (see KyvarValidateConfig) than the one that was last read or
    /// written here. False while nothing is known, and for a file that is gone, cannot be read, or holds
    /// none: that may be so for a moment while somebody writes it.
    [[nodiscard]] bool holdsAnotherTree(std::int32_t minimumVersion);

    /// The copy of what others put there, if a save has kept one since this was asked last.
    [[nodiscard]] std::optional<std::filesystem::path> takeKeptCopy();

    /// Nothing is known any more, and nothing is held.
    void forget();

  private:
    enum class Knowledge : std::uint8_t {
        nothing,
        tree,   ///< the bytes hold the tree that was last read or written, or none
        refused ///< the bytes hold what could not be used
    };

    [[nodiscard]] bool isKnown(const plist::Data& bytes) const;
    [[nodiscard]] plist::Value knownTree() const;
    [[nodiscard]] bool isToBeKept(const plist::Data& bytes, const plist::Dictionary& content) const;
    [[nodiscard]] bool keep(const plist::Data& bytes, const plist::Dictionary& content);
    [[nodiscard]] bool holds(std::string_view bytes) const;
    void remember(std::string bytes, const plist::Dictionary& content, Knowledge knowledge);

    std::string m_key;
    std::filesystem::path m_path;
    FileCalls& m_calls;
    Knowledge m_knowledge = Knowledge::nothing;
    std::string m_bytes;         ///< last read or written; empty for no file
    plist::Dictionary m_content; ///< of the bytes, without the tree; nil when they hold no dictionary
    std::optional<std::filesystem::path> m_kept;
};

} // namespace quorvi
