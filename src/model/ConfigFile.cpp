#include "model/ConfigFile.h"

#include <cerrno>
#include <functional>
#include <utility>

#include "model/ConfigFileStore.h"
#include "model/SettingsMerge.h"
#include "model/SharedFile.h"
#include "plist/Limits.h"
#include "plist/Reader.h"
#include "plist/RegularFile.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;
using plist::Data;
using plist::Dictionary;
using plist::Value;

std::string_view textOf(const Data& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Dictionary contentOf(std::string_view bytes) {
    return plist::readPropertyList({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()})
        .dictionary();
}

/// The result of reading a file.
struct Reading {
    Data bytes;           ///< empty if nothing could be read; an empty file counts the same
    bool refused = false; ///< a file exists but could not be read, perhaps only this time
};

Reading readingOf(const fs::path& path) {
    Reading reading;
    auto status = plist::FileStatus::Ok;
    do {
        errno = 0;
        status = plist::readRegularFile(path, plist::kMaxBytes, reading.bytes);
    } while (status == plist::FileStatus::NotReadable && errno == EINTR);
    reading.refused = status != plist::FileStatus::Ok && errno != ENOENT && errno != ENOTDIR;
    return reading;
}

/// The content's tree merged with ours, and whether some of their changes are missing in it.
struct Joined {
    Dictionary tree;
    bool changed = false; ///< the tree differs from ours
    bool loses = false;
};

Joined join(const Value& base, const Dictionary& ours, const Value& theirs) {
    auto merged = mergeSettings(base, ours, theirs.dictionary());
    const bool changed = Value(merged.tree) != Value(ours);
    return {changed ? merged.tree : ours, changed, merged.conflict};
}

/// The same, but in a conflict their change wins, being the later one.
Joined joinLater(const Value& base, const Dictionary& ours, const Value& theirs) {
    auto merged = mergeSettings(base, theirs.dictionary(), ours);
    return {merged.tree, Value(merged.tree) != Value(ours), merged.conflict};
}

std::size_t hashOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

} // namespace

/// The contents for one save, each based on the file's present content.
class ConfigFile::Save final : public ContentSource {
  public:
    Save(const ConfigFile& file, const Dictionary& tree, std::string room)
        : m_file(file), m_ours(tree), m_room(std::move(room)) {}

    std::optional<NewContent> contentOver(const Found& there) override {
        m_next = {m_ours};
        m_overTree = m_wasPlaced ? m_placedTree : Value();
        bool keeps = false;
        m_tells = false;
        if (there.kind == Found::Kind::unreadable) {
            m_content = m_file.m_content; // the other programs' keys are unchanged
            keeps = true;
            m_tells = m_file.m_knowledge == Knowledge::tree;
        } else if (isKnown(there.bytes)) {
            m_content = m_wasPlaced ? contentOf(m_written) : m_file.knownContent(there.bytes);
            keeps = !m_wasPlaced && m_file.m_knowledge == Knowledge::refused &&
                    (!m_content || m_content.has(m_file.m_key));
        } else {
            m_content = contentOf(textOf(there.bytes));
            keeps = joinWith(there.bytes);
        }
        if (!m_content)
            m_content = Dictionary::create();
        m_content.set(m_file.m_key, m_next.tree);
        auto xml = plist::writeXml(m_content, std::move(m_room));
        m_content.set(m_file.m_key, false); // the tree is its owner's alone
        if (!xml)
            return std::nullopt;
        m_written = *std::move(xml);
        return NewContent{m_written, keeps, m_losesTakenIn};
    }

    bool takeIn(const Found& between) override {
        const auto theirs = contentOf(textOf(between.bytes)).value(m_file.m_key);
        // Its writer had seen the content that ours was based on.
        const Value base = m_overTree.isNothing() ? m_file.base() : m_overTree;
        const bool isLater = std::exchange(m_wasPlaced, true);
        m_placedTree = contentOf(m_written).value(m_file.m_key);
        m_ours = m_next.tree;
        if (!isValid(theirs) || base.isNothing()) {
            m_tookOver = m_tookOver || m_next.changed;
            return false;
        }
        const auto joined = isLater ? joinLater(base, m_ours, theirs) : join(base, m_ours, theirs);
        m_tookOver = m_tookOver || m_next.changed || joined.changed;
        m_ours = joined.tree;
        m_losesTakenIn = m_losesTakenIn || (isLater && joined.loses);
        return isLater || !joined.loses;
    }

    [[nodiscard]] const std::string& written() const { return m_written; }
    [[nodiscard]] const Dictionary& content() const { return m_content; }
    [[nodiscard]] const Dictionary& tree() const { return m_next.tree; }
    [[nodiscard]] bool tookOver() const { return m_tookOver || m_next.changed; }
    [[nodiscard]] bool tells() const { return m_tells || m_wasPlaced; }

  private:
    [[nodiscard]] bool isKnown(const Data& bytes) const {
        return m_wasPlaced ? textOf(bytes) == m_written : m_file.isKnown(bytes);
    }
    [[nodiscard]] bool isValid(const Value& tree) const {
        return KyvarValidateConfig(tree.dictionary(), m_file.m_minimumVersion);
    }

    /// Merges the tree with the content's. Returns whether the file must be kept.
    bool joinWith(const Data& bytes) {
        if (bytes.empty() || (m_content && !m_content.has(m_file.m_key)))
            return false; // an empty file, or one without settings
        if (m_file.m_knowledge == Knowledge::nothing && !m_wasPlaced)
            return !m_content;
        const Value base = m_wasPlaced ? m_placedTree : m_file.base();
        const Value theirs = m_content.value(m_file.m_key);
        if (m_content && theirs == base)
            return false;
        m_tells = true;
        if (!isValid(theirs) || base.isNothing())
            return true;
        m_overTree = theirs;
        if (m_wasPlaced)
            return joinWithLater(base, theirs);
        m_next = join(base, m_ours, theirs);
        m_tells = m_next.loses;
        return m_next.loses;
    }

    /// A program that replaced a content of this save has seen that content, but not the changes taken in
    /// since: that content is the older of the two.
    bool joinWithLater(const Value& base, const Value& theirs) {
        m_next = joinLater(base, m_ours, theirs);
        m_losesTakenIn = m_losesTakenIn || m_next.loses;
        m_tells = m_next.loses;
        return false;
    }

    const ConfigFile& m_file;
    Dictionary m_ours;
    Joined m_next;
    Dictionary m_content;
    std::string m_room;       ///< for the content that is to come
    std::string m_written;    ///< the content given last
    bool m_wasPlaced = false; ///< this content, or an earlier one of this save, has been in the file
    Value m_placedTree;
    Value m_overTree; ///< the tree merged into the last content; isNothing() for the known tree
    bool m_losesTakenIn = false;
    bool m_tookOver = false;
    bool m_tells = false;
};

Dictionary ConfigFile::load(std::int32_t minimumVersion, const fs::path& second) {
    if (m_key.empty())
        return {};
    m_minimumVersion = minimumVersion;
    const auto [bytes, refused] = readingOf(m_path);
    const auto content = contentOf(textOf(bytes));
    auto tree = content.dictionary(m_key);
    const bool valid = KyvarValidateConfig(tree, minimumVersion);
    remember(std::string(textOf(bytes)), content, tree,
        valid || (bytes.empty() && !refused) ? Knowledge::tree : Knowledge::refused);
    if (valid)
        return tree;
    tree = KyvarLoadConfigFromFile(m_key, minimumVersion, {}, second);
    rememberBase(tree);
    return tree;
}

bool ConfigFile::save(const Dictionary& tree, Durability durability) {
    m_tookChangesOver = false;
    if (m_key.empty() || !tree || m_path.empty())
        return fail(EINVAL);
    Save save(*this, tree, std::exchange(m_room, {}));
    const auto replacement = replaceSharedFile(m_path, save, m_calls, durability);
    m_error = replacement.error == ECANCELED ? EINVAL : replacement.error;
    if (replacement.kept && save.tells())
        m_kept = replacement.kept;
    // Bytes that failed to sync may be in the file anyway; do not treat them as another program's change.
    if (m_error == 0 || (!save.written().empty() && holds(save.written()))) {
        m_tookChangesOver = save.tookOver();
        const auto& merged = save.tree();
        remember(save.written(), save.content(), merged, Knowledge::tree);
        if (m_tookChangesOver)
            bringTo(tree, merged);
    }
    return m_error == 0;
}

bool ConfigFile::holdsAnotherTree(std::int32_t minimumVersion) {
    if (m_knowledge == Knowledge::nothing)
        return false;
    const Data bytes = readingOf(m_path).bytes;
    if (isKnown(bytes))
        return false;
    const auto content = contentOf(textOf(bytes));
    const auto tree = content.dictionary(m_key);
    if (!KyvarValidateConfig(tree, minimumVersion))
        return false;
    if (Value(tree) != base())
        return true;
    remember(std::string(textOf(bytes)), content, tree, Knowledge::tree); // only other programs' keys have
                                                                          // changed
    return false;
}

std::optional<fs::path> ConfigFile::takeKeptCopy() {
    return std::exchange(m_kept, std::nullopt);
}

void ConfigFile::forget() {
    m_knowledge = Knowledge::nothing;
    m_bytes = {};
    m_room = {};
    m_largeSize = 0;
    m_content = {};
    m_base = {};
}

bool ConfigFile::isKnown(const Data& bytes) const {
    if (m_knowledge == Knowledge::nothing)
        return false;
    if (m_largeSize != 0)
        return bytes.size() == m_largeSize && hashOf(textOf(bytes)) == m_largeHash;
    return textOf(bytes) == m_bytes;
}

Dictionary ConfigFile::knownContent(const Data& bytes) const {
    return m_largeSize != 0 ? contentOf(textOf(bytes)) : m_content;
}

Value ConfigFile::base() const {
    return contentOf(m_base.empty() ? m_bytes : m_base).value(m_key);
}

bool ConfigFile::holds(std::string_view bytes) const {
    return textOf(readingOf(m_path).bytes) == bytes;
}

void ConfigFile::remember(
    std::string bytes, const Dictionary& content, const Dictionary& tree, Knowledge knowledge) {
    m_knowledge = knowledge;
    m_base = {};
    m_largeSize = bytes.size() > kMaxRemembered ? bytes.size() : 0;
    if (m_largeSize != 0) {
        m_largeHash = hashOf(bytes);
        m_bytes = {};
        m_content = {};
        rememberBase(tree);
        return;
    }
    m_room = std::exchange(m_bytes, std::move(bytes));
    m_content = content;
    // Keep the key at its place, so that it is written there.
    if (content.has(m_key))
        content.set(m_key, false);
}

void ConfigFile::rememberBase(const Value& tree) {
    if (tree.isNothing())
        return;
    const auto alone = Dictionary::create();
    alone.append(m_key, tree);
    m_base = plist::writeXml(alone).value_or("");
}

namespace {

/// A change to the present content; content written in between is merged with it.
class Change final : public ContentSource {
  public:
    Change(std::string_view key, const std::function<bool(const Dictionary&)>& change)
        : m_key(key), m_change(change) {}

    std::optional<NewContent> contentOver(const Found& there) override {
        if (there.kind != Found::Kind::readable && !m_isPlaced)
            return std::nullopt;
        const auto content = contentOf(textOf(there.bytes));
        const auto tree = content.dictionary(m_key);
        NewContent next;
        if (!m_isPlaced) {
            m_base = contentOf(textOf(there.bytes)).value(m_key);
            if (!m_change(tree))
                return std::nullopt;
            m_ours = tree;
        } else if (!tree) {
            next.keepsOld = !there.bytes.empty();
        } else if (Value(tree) != m_base) {
            const auto joined = joinLater(m_base, m_ours, tree);
            m_ours = joined.tree;
            m_base = tree;
            m_losesTakenIn = m_losesTakenIn || joined.loses;
        }
        const auto top = content ? content : Dictionary::create();
        top.set(m_key, m_ours);
        auto xml = plist::writeXml(top);
        if (!xml)
            return std::nullopt;
        next.bytes = m_written = *std::move(xml);
        next.keepsTakenIn = m_losesTakenIn;
        return next;
    }

    bool takeIn(const Found& between) override {
        const auto theirs = contentOf(textOf(between.bytes)).value(m_key);
        const bool isLater = std::exchange(m_isPlaced, true);
        const auto joined = !theirs.dictionary() ? Joined{m_ours, false, true}
                            : isLater            ? joinLater(m_base, m_ours, theirs)
                                                 : join(m_base, m_ours, theirs);
        m_ours = joined.tree;
        m_base = contentOf(m_written).value(m_key);
        m_losesTakenIn = m_losesTakenIn || (isLater && joined.loses);
        return theirs.dictionary() && (isLater || !joined.loses);
    }

  private:
    std::string m_key;
    const std::function<bool(const Dictionary&)>& m_change;
    Value m_base;
    Dictionary m_ours;
    std::string m_written;
    bool m_isPlaced = false;
    bool m_losesTakenIn = false;
};

} // namespace

int changeConfigFile(std::string_view key, const fs::path& path,
    const std::function<bool(const Dictionary& tree)>& change, FileCalls& calls) {
    Change source(key, change);
    return replaceSharedFile(path, source, calls).error;
}

} // namespace quorvi
