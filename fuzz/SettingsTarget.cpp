// Settings files that are valid property lists and nearly valid trees: a valid tree with values of any type
// and size put anywhere in it. The bytes of PropertyListTarget.cpp seldom get this far.
//
// The input is a list of changes: where, which key, what kind of value, and the value's own bytes.
#include <array>

#include <fuzzer/FuzzedDataProvider.h>

#include "RoundTrip.h"
#include "Scratch.h"
#include "SettingsFile.h"
#include "Trees.h"
#include "model/Keys.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

using namespace quorvi;

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr std::array kKeys{keys::version, keys::firmware, keys::settings, keys::profiles, keys::macros,
    keys::profileId, keys::pollingRate, keys::stage, keys::dpiX, keys::dpiY, keys::independentXY, keys::name,
    keys::ledState, keys::defaultStage, keys::stages, keys::buttons, keys::driver, keys::command,
    keys::param1, keys::param2, keys::string, keys::macroId, keys::delay, keys::steps, keys::argument,
    keys::autoSwitch, keys::application, keys::storage};

class TreeMaker {
  public:
    explicit TreeMaker(fuzz::Bytes bytes) : m_data(bytes.data(), bytes.size()) {}

    Dictionary make() {
        m_top = Dictionary::create();
        m_top.set(keys::storage, fuzz::emptyTree());
        while (m_data.remaining_bytes() > 0)
            change(place());
        return m_top;
    }

  private:
    Dictionary tree() const { return m_top.dictionary(keys::storage); }

    /// The dictionary of that index, which is made when the index is the next one.
    Dictionary element(const Dictionary& parent, std::string_view key) {
        const auto array = parent.array(key);
        const auto index = m_data.ConsumeIntegralInRange<std::size_t>(0, 15);
        if (index >= array.size())
            array.append(newElement());
        return array.dictionary(std::min(index, array.size() - 1));
    }

    /// With all that makes a profile, a macro or a step of it; keys that it has no use for do no harm.
    static Dictionary newElement() {
        auto element = Dictionary::create();
        element.set(keys::name, u"Any");
        for (const auto key : {keys::stages, keys::steps})
            element.set(key, Array::create());
        for (const auto key : {keys::buttons, keys::driver})
            element.set(key, Dictionary::create());
        for (const auto key : {keys::ledState, keys::defaultStage, keys::macroId})
            element.set(key, 1);
        return element;
    }

    Dictionary button(const Dictionary& profile) {
        const auto buttons = profile.dictionary(keys::buttons);
        const auto key = keys::button(m_data.ConsumeIntegralInRange(0, 10));
        if (!buttons.dictionary(key))
            buttons.set(key, Dictionary::create());
        return buttons.dictionary(key);
    }

    Dictionary place() {
        switch (m_data.ConsumeIntegralInRange(0, 9)) {
        case 0:
            return m_top;
        case 1:
            return tree();
        case 2:
            return tree().dictionary(keys::settings);
        case 3:
            return element(tree(), keys::profiles);
        case 4:
            return element(tree(), keys::macros);
        case 5:
            return element(element(tree(), keys::profiles), keys::stages);
        case 6:
            return element(tree(), keys::profiles).dictionary(keys::driver);
        case 7:
            return element(element(tree(), keys::macros), keys::steps);
        default:
            return button(element(tree(), keys::profiles));
        }
    }

    void change(const Dictionary& dictionary) {
        const auto which = m_data.ConsumeIntegral<std::uint8_t>();
        const std::string key =
            which < kKeys.size() ? std::string(kKeys[which]) : m_data.ConsumeRandomLengthString(8);
        if (which == 0xFF)
            dictionary.remove(kKeys[m_data.ConsumeIntegralInRange<std::size_t>(0, kKeys.size() - 1)]);
        else if (auto made = value(); !made.isNothing())
            dictionary.set(key, std::move(made));
    }

    Value value() {
        switch (m_data.ConsumeIntegralInRange(0, 11)) {
        case 0:
            return m_data.ConsumeBool();
        case 1:
            return m_data.ConsumeIntegral<std::int64_t>();
        case 2:
            return m_data.ConsumeIntegral<std::int32_t>();
        case 3:
            return m_data.ConsumeFloatingPoint<double>();
        case 4:
            return text();
        case 5:
            return m_data.ConsumeBytes<std::uint8_t>(m_data.ConsumeIntegralInRange<std::size_t>(0, 20));
        case 6:
            return Dictionary::create();
        case 7:
            return Array::create();
        default:
            return std::int32_t{m_data.ConsumeIntegral<std::uint8_t>()};
        }
    }

    std::u16string text() {
        std::u16string made(m_data.ConsumeIntegralInRange<std::size_t>(0, 25), u'x');
        for (auto& unit : made)
            unit = m_data.ConsumeBool() ? m_data.ConsumeIntegral<std::uint8_t>()
                                        : m_data.ConsumeIntegral<std::uint16_t>();
        return made;
    }

    FuzzedDataProvider m_data;
    Dictionary m_top;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto made = TreeMaker({data, size}).make();
    if (!fuzz::isModest(made))
        return 0;
    fuzz::requireEncoding(made.dictionary(keys::storage));
    // What takes longer is done with every eighth input.
    if (size % 8 == 1)
        fuzz::requireSettling(made.dictionary(keys::storage));
    if (size % 8 != 0)
        return 0;
    const auto text = plist::writeXml(made);
    fuzz::require(text.has_value(), "a modest tree is written");
    const fuzz::Bytes bytes(reinterpret_cast<const std::uint8_t*>(text->data()), text->size());
    static const std::string path = fuzz::scratch().path("settings.plist");
    fuzz::fill(path, bytes);
    const auto top = plist::readPropertyList(bytes);
    fuzz::require(fuzz::hasSurvived(made, top), "what was written is read");
    fuzz::requireSettingsFile(path, top.dictionary());
    return 0;
}
