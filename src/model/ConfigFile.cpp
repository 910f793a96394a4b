#include "model/ConfigFile.h"

#include <cerrno>
#include <utility>

#include "model/ConfigFileStore.h"
#include "model/KeptCopies.h"
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

/// What was read of a file.
struct Reading {
    Data bytes;           ///< none when nothing could be read, which an empty file is no better than
    bool refused = false; ///< there is something that could not be read, perhaps only this time
};

Reading readingOf(const fs::path& path) {
    Reading reading;
    auto status = plist::FileStatus::Ok;
    do {
        errno = 0;
        status = plist::readRegularFile(path, plist::kMaxBytes, reading.bytes);
    } while (status == plist::FileStatus::NotReadable && errno == EINTR);
    reading.refused = status == plist::FileStatus::NotReadable && errno != ENOENT && errno != ENOTDIR;
    return reading;
}

} // namespace

Dictionary ConfigFile::load(std::int32_t minimumVersion, const fs::path& second) {
    if (m_key.empty())
        return {};
    const Data bytes = readingOf(m_path).bytes;
    const auto content = contentOf(textOf(bytes));
    auto tree = content.dictionary(m_key);
    const bool valid = KyvarValidateConfig(tree, minimumVersion);
    remember(
        std::string(textOf(bytes)), content, valid || bytes.empty() ? Knowledge::tree : Knowledge::refused);
    return valid ? tree : KyvarLoadConfigFromFile(m_key, minimumVersion, {}, second);
}

bool ConfigFile::save(const Dictionary& tree, Durability durability) {
    if (m_key.empty() || !tree || m_path.empty())
        return false;
    const auto [bytes, refused] = readingOf(m_path);
    // Of a file that cannot be read just now, the keys of others are as they were.
    Dictionary content = refused || isKnown(bytes) ? m_content : contentOf(textOf(bytes));
    const bool kept = refused && m_knowledge != Knowledge::nothing
                          ? keepUnread(m_path, m_calls).has_value()
                          : !isToBeKept(bytes, content) || keep(bytes, content);
    if (!kept)
        return false; // better no save than one that loses what others have set
    if (!content)
        content = Dictionary::create();
    content.set(m_key, tree);
    auto xml = plist::writeXml(content);
    const bool replaced = xml && replaceFileAtomically(m_path, *xml, m_calls, durability);
    // What could not be brought to the disk may be in the file all the same, and is no change of somebody
    // else.
    if (replaced || (xml && holds(*xml)))
        remember(*std::move(xml), content, Knowledge::tree);
    else
        content.set(m_key, false); // the tree is its owner's alone
    return replaced;
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
    if (Value(tree) != knownTree())
        return true;
    remember(std::string(textOf(bytes)), content, Knowledge::tree); // only keys of others have changed
    return false;
}

std::optional<fs::path> ConfigFile::takeKeptCopy() {
    return std::exchange(m_kept, std::nullopt);
}

void ConfigFile::forget() {
    m_knowledge = Knowledge::nothing;
    m_bytes = {};
    m_content = {};
}

bool ConfigFile::isKnown(const Data& bytes) const {
    return m_knowledge != Knowledge::nothing && textOf(bytes) == m_bytes;
}

Value ConfigFile::knownTree() const {
    return m_knowledge == Knowledge::tree ? contentOf(m_bytes).value(m_key) : Value();
}

bool ConfigFile::isToBeKept(const Data& bytes, const Dictionary& content) const {
    if (m_knowledge == Knowledge::nothing || bytes.empty())
        return false;
    if (isKnown(bytes))
        return m_knowledge == Knowledge::refused && (!content || content.has(m_key));
    return !content || (content.has(m_key) && content.value(m_key) != knownTree());
}

bool ConfigFile::keep(const Data& bytes, const Dictionary& content) {
    const auto copy = keepCopy(m_path, textOf(bytes), m_calls);
    if (!copy)
        return false;
    if (!isKnown(bytes))
        m_kept = copy;
    remember(std::string(textOf(bytes)), content, Knowledge::tree); // once is enough
    return true;
}

bool ConfigFile::holds(std::string_view bytes) const {
    return textOf(readingOf(m_path).bytes) == bytes;
}

void ConfigFile::remember(std::string bytes, const Dictionary& content, Knowledge knowledge) {
    if (bytes.size() > kMaxRemembered) {
        forget();
        return;
    }
    m_bytes = std::move(bytes);
    m_knowledge = knowledge;
    m_content = content;
    // In its place the key stays, so that it is written where it was.
    if (content.has(m_key))
        content.set(m_key, false);
}

} // namespace quorvi
