#include <array>
#include <cmath>
#include <cstdio>

#include "base/Unicode.h"
#include "history/ComparedTrees.h"
#include "model/Keys.h"
#include "model/LightState.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr int kWheelUp = 8;
constexpr int kWheelDown = 9;

/// Each subject contains the profile's name.
class ProfileComparison {
  public:
    ProfileComparison(const Both& profile, const ComparedTrees& trees, DifferenceList& list)
        : m_profile(profile), m_trees(trees), m_list(list),
          m_name(namePhrase(profile.now.string(keys::name))) {}

    bool compare() {
        compareNames();
        compareInputs();
        const bool differsInStages = compareStages();
        const Both driver = m_profile.takeDictionaries(keys::driver);
        compareSwitch(driver, keys::sensitivityDisplay, u"Sensitivity shown on screen in “^1”");
        compareAcceleration(driver);
        compareApplications(driver);
        compareSwitch(driver, keys::autoSwitch, u"Automatic switching to “^1”");
        compareSwitch(driver, keys::profileDisplay, u"Name shown on screen for “^1”");
        m_list.addOtherUnlessEqual(driver);
        compareLights();
        m_list.addOtherUnlessEqual(m_profile);
        return differsInStages;
    }

  private:
    [[nodiscard]] Phrase subject(const char16_t* pattern) const { return patternPhrase(pattern, {m_name}); }
    static Phrase onOrOff(bool isOn) { return patternPhrase(isOn ? u"On" : u"Off"); }

    void compareNames() {
        const auto [was, is] = m_profile.take(keys::name);
        if (!(was == is))
            m_list.add(patternPhrase(u"Profile “^1” was named “^2”", {m_name, namePhrase(*was.string())}));
    }

    [[nodiscard]] Phrase inputPhrase(int input) const {
        if (input == kWheelUp)
            return subject(u"Turning the wheel up in “^1”");
        if (input == kWheelDown)
            return subject(u"Turning the wheel down in “^1”");
        return patternPhrase(u"Button ^1 of “^2”", {plainPhrase(input), m_name});
    }

    void compareInputs() {
        const Both buttons = m_profile.takeDictionaries(keys::buttons);
        for (int input = 1; input <= limits::buttons; ++input) {
            const Both assignment = buttons.takeDictionaries(keys::button(input));
            if (!doTheSame(assignment.earlier, assignment.now, m_trees))
                m_list.addChange(inputPhrase(input), functionPhrase(assignment.earlier, m_trees.earlier),
                    functionPhrase(assignment.now, m_trees.now));
            for (const auto key : {keys::command, keys::param1, keys::param2})
                (void)assignment.take(key);
            m_list.addOtherUnlessEqual(assignment);
        }
        m_list.addOtherUnlessEqual(buttons);
    }

    /// "400, 800 × 1600", as in the window's bar.
    static Phrase stagesPhrase(const Array& stages) {
        std::vector<Phrase> listed;
        for (std::size_t i = 0; i < stages.size(); ++i) {
            if (i == limits::stages) {
                listed.push_back(plainPhrase(u"…"));
                break;
            }
            const Dictionary stage = stages.dictionary(i);
            std::u16string text = toUtf16(std::to_string(stage.integer(keys::dpiX)));
            if (stage.boolean(keys::independentXY))
                text.append(u" × ").append(toUtf16(std::to_string(stage.integer(keys::dpiY))));
            listed.push_back(plainPhrase(std::move(text)));
        }
        return listed.empty() ? plainPhrase(0) : listPhrase(std::move(listed));
    }

    void compareStagesOneByOne(const Array& was, const Array& is) {
        for (std::size_t i = 0; i < is.size(); ++i) {
            if (was.value(i) == is.value(i))
                continue;
            if (i >= limits::stages)
                return m_list.addOther();
            m_list.addChange(
                patternPhrase(u"Stage ^1 of “^2”", {plainPhrase(static_cast<std::int64_t>(i + 1)), m_name}),
                resolutionPhrase(was.dictionary(i)), resolutionPhrase(is.dictionary(i)));
        }
    }

    bool compareStages() {
        const auto [was, is] = m_profile.take(keys::stages);
        const auto [wasSelected, isSelected] = m_profile.take(keys::defaultStage);
        if (was.array().size() != is.array().size())
            m_list.addChange(subject(u"Stages of “^1”"), stagesPhrase(was.array()), stagesPhrase(is.array()));
        else
            compareStagesOneByOne(was.array(), is.array());
        if (!(wasSelected == isSelected))
            m_list.addChange(subject(u"Selected stage of “^1”"), plainPhrase(wasSelected.integer()),
                plainPhrase(isSelected.integer()));
        return !(was == is) || !(wasSelected == isSelected);
    }

    void compareSwitch(const Both& driver, std::string_view key, const char16_t* pattern) {
        const auto [was, is] = driver.take(key);
        if (!(was == is))
            m_list.add(changePhrase(subject(pattern), onOrOff(was.boolean()), onOrOff(is.boolean())));
    }

    static Phrase accelerationPhrase(bool isOn, double factor) {
        if (!isOn)
            return onOrOff(false);
        std::array<char, 16> text{};
        const int length = std::snprintf(text.data(), text.size(), "%.2f", factor);
        return decimalPhrase(toUtf16({text.data(), static_cast<std::size_t>(length)}));
    }

    void compareAcceleration(const Both& driver) {
        const auto [wasOn, isOn] = driver.take(keys::enableAcceleration);
        const auto [was, is] = driver.take(keys::acceleration);
        if (!(wasOn == isOn) || !(was == is))
            m_list.addChange(subject(u"Acceleration of “^1”"),
                accelerationPhrase(wasOn.boolean(), was.real()),
                accelerationPhrase(isOn.boolean(), is.real()));
    }

    static Phrase applicationPhrase(const Value& name) {
        return name.string()->empty() ? patternPhrase(u"No application") : namePhrase(*name.string());
    }

    void compareApplications(const Both& driver) {
        const auto [was, is] = driver.take(keys::application);
        bool isSame = was == is;
        for (const auto key : {keys::identifier, keys::signature, keys::executable}) {
            const auto [wasPart, isPart] = driver.take(key);
            isSame = isSame && wasPart == isPart;
        }
        if (!isSame)
            m_list.addChange(subject(u"Application of “^1”"), applicationPhrase(was), applicationPhrase(is));
    }

    void compareLights() {
        const auto taken = m_profile.take(keys::ledState);
        const std::int32_t was = taken.first.integer();
        const std::int32_t is = taken.second.integer();
        const std::int32_t changed = was ^ is;
        const auto compareLight = [&](std::int32_t light, const char16_t* pattern) {
            if ((changed & light) != 0)
                m_list.add(
                    changePhrase(subject(pattern), onOrOff((was & light) != 0), onOrOff((is & light) != 0)));
        };
        compareLight(lights::wheel, u"Wheel light in “^1”");
        compareLight(lights::battery, u"Battery indicator light in “^1”");
        if ((changed & ~(lights::wheel | lights::battery)) != 0)
            m_list.addOther();
    }

    const Both& m_profile;
    const ComparedTrees& m_trees;
    DifferenceList& m_list;
    Phrase m_name;
};

} // namespace

Phrase resolutionPhrase(const Dictionary& stage) {
    const Phrase x = plainPhrase(stage.integer(keys::dpiX));
    return stage.boolean(keys::independentXY)
               ? patternPhrase(u"^1 × ^2 DPI", {x, plainPhrase(stage.integer(keys::dpiY))})
               : patternPhrase(u"^1 DPI", {x});
}

bool compareProfiles(const Both& profile, const ComparedTrees& trees, DifferenceList& list) {
    return ProfileComparison(profile, trees, list).compare();
}

} // namespace quorvi
