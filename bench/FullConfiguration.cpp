#include "bench/FullConfiguration.h"

#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Trees.h"

namespace quorvi::bench {

namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;

template <typename Make>
Array filled(int count, Make make) {
    const auto array = Array::create();
    for (int i = 0; i < count; ++i)
        array.append(make(i));
    return array;
}

/// A name that fills its 20 units.
std::u16string longName(const char16_t* kind, int number) {
    std::u16string name = kind;
    name.resize(limits::nameUnits - 1, u'n');
    return name + static_cast<char16_t>(u'A' + number);
}

Dictionary fullStage(int number) {
    auto result = stage(400 * (number + 1), 400 * (number + 1));
    result.set(keys::independentXY, false);
    return result;
}

Dictionary fullDriver() {
    return dict({{"autoswitch", true}, {"application", u"Editor of Pictures"},
        {"identifier", u"org.example.PictureEditor"}, {"signature", u"PicE"},
        {"executable", u"/usr/bin/picture-editor"}, {"acceleration", 1.5F}, {"enableaccel", true},
        {"sensitivityosd", true}, {"profileosd", true}});
}

Dictionary fullProfile(int number) {
    const auto buttons = dict();
    for (int button = 1; button <= limits::buttons; ++button)
        buttons.set(keys::button(button), assignment(49, 0x04 + button, 2));
    return dict({{"name", longName(u"Profile", number)}, {"ledstate", 3}, {"defaultstage", 2},
        {"stages", filled(limits::stages, fullStage)}, {"buttons", buttons}, {"driver", fullDriver()}});
}

Dictionary fullMacro(int number) {
    const auto step = [](int i) {
        return dict({{"command", i % 2 == 0 ? 1 : 0}, {"argument", 4 + i}, {"delay", 20 + i}});
    };
    return dict({{"macroid", number}, {"name", longName(u"Macro", number)}, {"delay", 100},
        {"steps", filled(limits::macroSteps, step)}});
}

} // namespace

Dictionary fullConfiguration() {
    return dict({{"version", 6}, {"firmware", 0x0105},
        {"settings", dict({{"profileid", 1}, {"pollingrate", 500}, {"stage", 2}, {"dpix", 800}, {"dpiy", 800},
                         {"independentxy", false}})},
        {"profiles", filled(limits::profiles, fullProfile)}, {"macros", filled(limits::macros, fullMacro)}});
}

Dictionary settingsFileContent(int otherKeys) {
    const auto content = dict();
    for (int i = 0; i < otherKeys; ++i)
        content.append("com.example.other." + std::to_string(i), i);
    content.append(std::string(keys::storage), fullConfiguration());
    return content;
}

} // namespace quorvi::bench
