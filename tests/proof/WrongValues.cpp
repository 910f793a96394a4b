#include "proof/WrongValues.h"

#include <QFile>

#include <cstdlib>
#include <limits>

#include <plist/plist.h>

#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "pane/PaneFixture.h"
#include "plist/DeepCopy.h"
#include "plist/Samples.h"

namespace quorvi::test {

namespace {

constexpr std::size_t kMegabyte = 1U << 20U;

plist::Array someArray() {
    const auto array = plist::Array::create();
    array.append(u"text");
    array.append(-7);
    array.append(plist::Array::create());
    return array;
}

plist::Dictionary someDictionary() {
    const auto dictionary = plist::Dictionary::create();
    dictionary.set(keys::name, 5);
    dictionary.set(keys::command, u"text");
    dictionary.set("else", someArray());
    return dictionary;
}

void appendPlaces(const plist::Value& value, const Path& path, std::vector<Path>& places) {
    const auto add = [&](const std::string& step, const plist::Value& child) {
        Path next = path;
        next.push_back(step);
        places.push_back(next);
        appendPlaces(child, next, places);
    };
    const plist::Dictionary dictionary = value.dictionary();
    for (const plist::Entry& entry : dictionary.entries())
        add(entry.key, entry.value);
    const plist::Array array = value.array();
    for (std::size_t index = 0; index < array.size(); ++index)
        add(std::to_string(index), array.value(index));
}

bool isWorthIt(const Path& path) {
    static const std::vector<Path> ofSecondProfile{{"profiles", "1"}, {"profiles", "1", "name"},
        {"profiles", "1", "defaultstage"}, {"profiles", "1", "driver"},
        {"profiles", "1", "driver", "application"}, {"profiles", "1", "driver", "autoswitch"}};
    const bool second = path.size() > 1 && path[0] == "profiles" && path[1] == "1";
    return !second || std::ranges::find(ofSecondProfile, path) != ofSecondProfile.end();
}

/// The dictionary or array that holds the place.
plist::Value holderOf(const plist::Dictionary& tree, const Path& place) {
    plist::Value holder = tree;
    for (std::size_t step = 0; step + 1 < place.size(); ++step)
        holder = holder.dictionary() ? holder.dictionary().value(place[step])
                                     : holder.array().value(std::stoul(place[step]));
    return holder;
}

void put(const plist::Dictionary& tree, const Path& place, const plist::Value& value) {
    const plist::Value holder = holderOf(tree, place);
    const bool missing = value.isNothing();
    if (const auto dictionary = holder.dictionary())
        missing ? dictionary.remove(place.back()) : dictionary.set(place.back(), value);
    else if (missing)
        holder.array().remove(std::stoul(place.back()));
    else
        holder.array().replace(std::stoul(place.back()), value);
}

void putUid(plist_t root, const Path& place) {
    constexpr std::uint64_t number = 7;
    plist_t holder = plist_dict_get_item(root, std::string(keys::storage).c_str());
    for (std::size_t step = 0; step + 1 < place.size(); ++step)
        holder = plist_get_node_type(holder) == PLIST_DICT
                     ? plist_dict_get_item(holder, place[step].c_str())
                     : plist_array_get_item(holder, std::uint32_t(std::stoul(place[step])));
    if (plist_get_node_type(holder) == PLIST_DICT)
        plist_dict_set_item(holder, place.back().c_str(), plist_new_uid(number));
    else
        plist_array_set_item(holder, plist_new_uid(number), std::uint32_t(std::stoul(place.back())));
}

void makeBinaryWithUid(const std::filesystem::path& path, const Path& place) {
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no settings file");
    const QByteArray xml = file.readAll();
    file.close();
    plist_t root = nullptr;
    plist_from_xml(xml.constData(), std::uint32_t(xml.size()), &root);
    putUid(root, place);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    plist_free(root);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes, length) != qint64(length))
        qFatal("no settings file");
    std::free(bytes);
}

} // namespace

const std::vector<WrongValue>& wrongValues() {
    using Int = std::numeric_limits<std::int32_t>;
    using Long = std::numeric_limits<std::int64_t>;
    using Real = std::numeric_limits<double>;
    using plist::samples::readBody;
    static const std::vector<WrongValue> values{{"missing", {}}, {"true", true}, {"false", false}, {"0", 0},
        {"1", 1}, {"-1", -1}, {"2", 2}, {"255", 255}, {"65", 65}, {"INT32_MAX", Int::max()},
        {"INT32_MIN", Int::min()}, {"2^31", std::int64_t{1} << 31}, {"INT64_MAX", Long::max()},
        {"INT64_MIN", Long::min()}, {"2^63", readBody("<integer>9223372036854775808</integer>")},
        {"2^64-1", readBody("<integer>18446744073709551615</integer>")}, {"real 1.5", 1.5},
        {"real -1e300", -1e300}, {"smallest real", Real::denorm_min()}, {"not a number", Real::quiet_NaN()},
        {"infinity", Real::infinity()}, {"-infinity", -Real::infinity()}, {"empty text", u""},
        {"text", u"text"}, {"number as text", u"800"}, {"yes as text", u"Yes"},
        {"odd text", u"\u202E<b>&amp;%1\n\t^1\uFFFD\U0001F600"},
        {"megabyte of text", std::u16string(kMegabyte, u'w')},
        {"megabyte of lines",
            [] {
                std::u16string lines;
                while (lines.size() < kMegabyte)
                    lines += u"\u0628 a\n";
                return lines;
            }()},
        {"date", readBody("<date>2026-11-21T12:00:00Z</date>")}, {"data", plist::Data{1, 0, 255}},
        {"no data", plist::Data{}}, {"empty array", plist::Array::create()}, {"array", someArray()},
        {"empty dictionary", plist::Dictionary::create()}, {"dictionary", someDictionary()},
        {"UID", 0, true}};
    return values;
}

QString pathText(const Path& path) {
    QStringList steps;
    for (const std::string& step : path)
        steps << QString::fromStdString(step);
    return steps.join(QLatin1Char('/'));
}

plist::Dictionary treeWithEveryKey() {
    const auto tree = PaneFixture::sampleTree();
    const plist::Array profiles = tree.array(keys::profiles);
    for (const plist::Value& item : profiles.items()) {
        const auto profile = item.dictionary();
        for (const std::string_view key :
            {keys::application, keys::identifier, keys::signature, keys::executable})
            profile.dictionary(keys::driver).set(key, u"something");
        for (int input = 1; input <= limits::buttons; ++input) {
            const auto assignment = plist::Dictionary::create();
            assignment.set(keys::command, input == 3 ? 65 : input == 4 ? 34 : input == 5 ? 49 : input);
            assignment.set(keys::param1, input == 4 ? 2 : input == 5 ? 4 : 0);
            assignment.set(keys::param2, input == 3 ? 1 : 0);
            assignment.set(keys::string, u"what was chosen");
            profile.dictionary(keys::buttons).set(keys::button(input), assignment);
        }
    }
    return tree;
}

const std::vector<Path>& everyPlace() {
    static const std::vector<Path> places = [] {
        std::vector<Path> all;
        appendPlaces(treeWithEveryKey(), {}, all);
        std::erase_if(all, [](const Path& path) { return !isWorthIt(path); });
        return all;
    }();
    return places;
}

plist::Dictionary writeSpoiltFile(
    const std::filesystem::path& file, const Path& place, const WrongValue& value) {
    const auto tree = plist::mutableDeepCopy(treeWithEveryKey());
    put(tree, place, value.value);
    if (!saveSettings(tree, file))
        qFatal("the settings cannot be written");
    if (value.uid)
        makeBinaryWithUid(file, place);
    return storedTree(keys::storage, file);
}

} // namespace quorvi::test
