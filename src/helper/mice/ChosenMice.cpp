#include "helper/mice/ChosenMice.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <linux/input-event-codes.h>

#include "base/AtomicFile.h"
#include "base/KeptCopies.h"
#include "base/Unicode.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

// The file: {"mice": {MODEL: {"name", "inuse", "dpi", "codes": the seven inputs' codes}}}.
constexpr char kMiceKey[] = "mice";
constexpr char kNameKey[] = "name";
constexpr char kInUseKey[] = "inuse";
constexpr char kDpiKey[] = "dpi";
constexpr char kCodesKey[] = "codes";

/// A thousand times the size for the most mice.
constexpr plist::Bounds kBounds{.nodes = 100'000, .bytes = 4U << 20U};

std::uint16_t readDpi(const plist::Dictionary& entry) {
    const auto dpi = entry.integer(kDpiKey);
    return dpi >= engine::lowestSensorDpi && dpi <= engine::highestSensorDpi ? static_cast<std::uint16_t>(dpi)
                                                                             : std::uint16_t{0};
}

engine::ButtonCodes readCodes(const plist::Dictionary& entry) {
    const auto array = entry.array(kCodesKey);
    auto codes = engine::usualButtonCodes;
    if (array.size() != codes.size())
        return codes;
    for (std::size_t input = 0; input < codes.size(); ++input) {
        const auto code = array.value(input).integer();
        if (code < 0 || code > KEY_MAX)
            return engine::usualButtonCodes;
        codes[input] = static_cast<std::uint16_t>(code);
    }
    return codes;
}

plist::Array arrayOf(const engine::ButtonCodes& codes) {
    auto array = plist::Array::create();
    for (const auto code : codes)
        array.append(std::int32_t{code});
    return array;
}

} // namespace

std::string modelOf(std::uint16_t vendor, std::uint16_t product) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04x:%04x", vendor, product);
    return text.data();
}

std::filesystem::path chosenMicePath() {
    const char* set = std::getenv("XDG_CONFIG_HOME");
    const auto home = homeFolder();
    const std::filesystem::path config = set && *set == '/' ? std::filesystem::path(set)
                                         : home.empty()     ? home
                                                            : home / ".config";
    return config.empty() ? config : config / "kyvar-quorvi" / "mice.plist";
}

ChosenMice::ChosenMice(std::filesystem::path file) : m_file(std::move(file)) {
    const auto contents = plist::readPropertyListFile(m_file, kBounds);
    m_tree = contents.value.dictionary();
    std::error_code error;
    m_isUnreadable = !m_tree && std::filesystem::exists(std::filesystem::symlink_status(m_file, error));
    if (!m_tree)
        m_tree = plist::Dictionary::create();
}

plist::Dictionary ChosenMice::mice() const {
    return m_tree.dictionary(kMiceKey);
}

std::vector<std::string> ChosenMice::models() const {
    std::vector<std::string> models;
    const auto all = mice();
    for (const auto& entry : all.entries())
        if (models.size() < most && entry.value.dictionary())
            models.push_back(entry.key);
    return models;
}

ChosenMouse ChosenMice::find(const std::string& model) const {
    const auto entry = mice().dictionary(model);
    return {toUtf8(entry.string(kNameKey)), entry.boolean(kInUseKey), readDpi(entry), readCodes(entry)};
}

bool ChosenMice::anyInUse() const {
    return std::ranges::any_of(models(), [this](const auto& model) { return find(model).inUse; });
}

bool ChosenMice::set(const std::string& model, const ChosenMouse& mouse) {
    auto tree = plist::mutableDeepCopy(m_tree);
    if (!tree)
        tree = plist::Dictionary::create();
    if (!tree.dictionary(kMiceKey))
        tree.set(kMiceKey, plist::Dictionary::create());
    const auto all = tree.dictionary(kMiceKey);
    if (!all.dictionary(model)) {
        if (all.size() >= most)
            return false;
        all.set(model, plist::Dictionary::create());
    }
    const auto entry = all.dictionary(model);
    entry.set(kNameKey, toUtf16(mouse.name));
    entry.set(kInUseKey, mouse.inUse);
    entry.set(kDpiKey, std::int32_t{mouse.dpi});
    entry.set(kCodesKey, arrayOf(mouse.codes));
    if (!write(tree))
        return false;
    m_tree = tree;
    return true;
}

bool ChosenMice::write(const plist::Dictionary& tree) {
    const auto bytes = plist::writeXml(tree);
    if (!bytes || m_file.empty())
        return false;
    std::error_code error;
    if (std::filesystem::create_directories(m_file.parent_path(), error))
        std::filesystem::permissions(m_file.parent_path(), std::filesystem::perms::owner_all, error);
    if (m_isUnreadable && !keepAside())
        return false;
    m_isUnreadable = false;
    return replaceFileAtomically(
        m_file, *bytes, systemFileCalls(), Durability::now, {.mode = 0600, .whateverTheMask = true});
}

bool ChosenMice::keepAside() const {
    const auto copy = nameOfNextCopy(m_file);
    std::error_code error;
    if (copy)
        std::filesystem::rename(m_file, m_file.parent_path() / *copy, error);
    if (!copy || error)
        return false;
    removeOldestCopies(m_file, *copy);
    return true;
}

} // namespace quorvi
