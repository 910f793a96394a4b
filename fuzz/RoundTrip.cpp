#include "RoundTrip.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "Require.h"
#include "base/Unicode.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi::fuzz {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

class Measure {
  public:
    // NOLINTNEXTLINE(misc-no-recursion): ends at the level that it looks for
    bool isModest(const Value& value, int depth) {
        if (depth > 100 || ++m_values > 10'000)
            return false;
        if (const auto* text = value.string())
            m_bytes += text->size();
        if (const auto* data = value.data())
            m_bytes += data->size();
        const auto& entries = value.dictionary().entries();
        for (const auto& entry : entries)
            m_bytes += entry.key.size();
        const auto& items = value.array().items();
        return m_bytes <= 100'000 && std::all_of(entries.begin(), entries.end(), [&](const auto& entry) {
            return isModest(entry.value, depth + 1);
        }) && std::all_of(items.begin(), items.end(), [&](const auto& item) {
            return isModest(item, depth + 1);
        });
    }

  private:
    std::size_t m_values = 0;
    std::size_t m_bytes = 0;
};

std::string writtenKey(const std::string& key) {
    return toXmlUtf8(toUtf16(key));
}

bool haveSameKeys(const Dictionary& written, const Dictionary& read) {
    return written.size() == read.size() &&
           std::all_of(written.entries().begin(), written.entries().end(), [&](const auto& entry) {
               return read.has(entry.key) && hasSurvived(entry.value, read.value(entry.key));
           });
}

/// By the keys as they are written, the last value of equal ones.
std::map<std::string, const Value*> writtenEntries(const Dictionary& dictionary) {
    std::map<std::string, const Value*> entries;
    for (const auto& entry : dictionary.entries())
        entries[writtenKey(entry.key)] = &entry.value;
    return entries;
}

/// Keys that differ in what XML cannot hold become equal.
bool haveSurvived(const Dictionary& written, const Dictionary& read) {
    if (haveSameKeys(written, read)) // which is the usual case
        return true;
    const auto before = writtenEntries(written);
    const auto after = writtenEntries(read);
    return std::equal(before.begin(), before.end(), after.begin(), after.end(),
        [](const auto& a, const auto& b) { return a.first == b.first && hasSurvived(*a.second, *b.second); });
}

bool haveSurvived(const Array& written, const Array& read) {
    return std::equal(written.items().begin(), written.items().end(), read.items().begin(),
        read.items().end(), hasSurvived);
}

bool isWrittenUid(const Value& value) {
    return value.dictionary().size() == 1 && value.dictionary().has("CF$UID");
}

} // namespace

bool isModest(const Value& value) {
    return Measure().isModest(value, 0);
}

bool hasSurvived(const Value& written, const Value& read) {
    if (std::holds_alternative<plist::CarriedRef>(written.variant()))
        return std::holds_alternative<plist::CarriedRef>(read.variant()) || isWrittenUid(read);
    if (written.variant().index() != read.variant().index())
        return false;
    if (const auto* text = written.string())
        return *text == *read.string() || toXmlUtf8(*text) == toXmlUtf8(*read.string());
    if (written.dictionary())
        return haveSurvived(written.dictionary(), read.dictionary());
    if (written.array())
        return haveSurvived(written.array(), read.array());
    if (const auto* number = std::get_if<double>(&written.variant()); number && std::isnan(*number))
        return std::isnan(read.real());
    return written == read;
}

void requireRoundTrip(const Value& value) {
    const auto read = [](const std::string& text) {
        return plist::readPropertyList({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    };
    const auto first = plist::writeXml(value);
    require(first.has_value(), "a modest value is written");
    const auto again = read(*first);
    require(hasSurvived(value, again), "what was written is read again");
    const auto second = plist::writeXml(again);
    require(second.has_value(), "what was read is written again");
    require(
        hasSurvived(again, read(*second)) && (*first == *second || plist::writeXml(read(*second)) == second),
        "writing settles");
}

} // namespace quorvi::fuzz
