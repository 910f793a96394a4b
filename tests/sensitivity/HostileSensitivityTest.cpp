// Invalid settings: the controls stay usable, and their changes result in a readable file.

#include <limits>

#include "pane/PaneTestMain.h"
#include "sensitivity/SensitivityFixture.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/StageBar.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

using Spoil = std::function<void(const plist::Dictionary& tree, const plist::Dictionary& profile)>;

struct Case {
    const char* name;
    Spoil spoil;
};

plist::Array manyStages(int count) {
    const auto stages = plist::Array::create();
    for (int i = 0; i < count; ++i) {
        const auto stage = plist::Dictionary::create();
        stage.set("dpix", i);
        stages.append(stage);
    }
    return stages;
}

Spoil settingsValue(const char* key, const plist::Value& value) {
    return [=](const plist::Dictionary& tree, const plist::Dictionary&) {
        tree.dictionary("settings").set(key, value);
    };
}

Spoil stageValue(const char* key, const plist::Value& value) {
    return [=](const plist::Dictionary&, const plist::Dictionary& profile) {
        profile.array("stages").dictionary(1).set(key, value);
    };
}

Spoil profileValue(const char* key, const plist::Value& value) {
    return [=](const plist::Dictionary&, const plist::Dictionary& profile) { profile.set(key, value); };
}

Spoil driverValue(const char* key, const plist::Value& value) {
    return [=](const plist::Dictionary&, const plist::Dictionary& profile) {
        profile.dictionary("driver").set(key, value);
    };
}

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kTwoToThe31 = std::int64_t{1} << 31;

const std::vector<Case>& cases() {
    static const auto texts = [] {
        const auto list = plist::Array::create();
        list.append(u"one");
        list.append(2);
        list.append(plist::Array::create());
        return list;
    }();
    static const std::vector<Case> all{
        {"no stages", [](const auto&, const auto& profile) { profile.remove("stages"); }},
        {"stages are a text", profileValue("stages", u"many")},
        {"stages are no dictionaries", profileValue("stages", texts)},
        {"0 stages", profileValue("stages", manyStages(0))},
        {"1 stage", profileValue("stages", manyStages(1))},
        {"300 stages", profileValue("stages", manyStages(300))},
        {"300 stages, the last current",
            [](const auto& tree, const auto& profile) {
                profile.set("stages", manyStages(300));
                tree.dictionary("settings").set("stage", 300);
            }},
        {"stage 0", settingsValue("stage", 0)},
        {"stage 9", settingsValue("stage", 9)},
        {"lowest stage", settingsValue("stage", kLowest)},
        {"highest stage", settingsValue("stage", kHighest)},
        {"stage is a list", settingsValue("stage", plist::Array::create())},
        {"lowest default stage", profileValue("defaultstage", kLowest)},
        {"lowest profile", settingsValue("profileid", kLowest)},
        {"X of 2^31", settingsValue("dpix", kTwoToThe31)},
        {"X of 2^31 in the stage", stageValue("dpix", kTwoToThe31)},
        {"negative X", settingsValue("dpix", -800)},
        {"negative Y", settingsValue("dpiy", kLowest)},
        {"X is a text", settingsValue("dpix", u"fast")},
        {"flag is a text", stageValue("independentxy", u"yes")},
        {"no settings values",
            [](const auto& tree, const auto&) { tree.set("settings", plist::Dictionary::create()); }},
        {"settings are a number", [](const auto& tree, const auto&) { tree.set("settings", 5); }},
        {"no driver", [](const auto&, const auto& profile) { profile.remove("driver"); }},
        {"driver is a text", profileValue("driver", u"none")},
        {"acceleration is not a number",
            driverValue("acceleration", std::numeric_limits<double>::quiet_NaN())},
        {"infinite acceleration", driverValue("acceleration", std::numeric_limits<double>::infinity())},
        {"negative acceleration", driverValue("acceleration", -1.5)},
        {"acceleration is a text", driverValue("acceleration", u"much")},
    };
    return all;
}

} // namespace

class HostileSensitivityTest : public QObject {
    Q_OBJECT

  private slots:
    void theControlsStayUsable_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(cases().size()); ++i)
            QTest::newRow(cases()[std::size_t(i)].name) << i;
    }

    void theControlsStayUsable() {
        QFETCH(int, index);
        const auto tree = PaneFixture::sampleTree();
        cases()[std::size_t(index)].spoil(tree, tree.array("profiles").dictionary(0));
        SensitivityFixture fixture;
        fixture.open(tree);
        QVERIFY(!fixture.find<StageBar>("quorviViewStages")->grab().isNull());
        QVERIFY(!fixture.find<AccelerationCurve>("quorviViewAcceleration")->grab().isNull());
        QVERIFY(fixture.find<StageBar>("quorviViewStages")->stages().size() <= 5);
        useTheTab(fixture);
        useTheSheet(fixture);
        // What all of that led to is a tree that the panel reads again, and shows.
        fixture.connectDevices(1);
        fixture.press("quorviSliderSensitivityX", Qt::Key_Home);
        fixture.press("quorviSliderSensitivityX", Qt::Key_Right);
        QVERIFY(fixture.savedSettings().has("profiles"));
    }

  private:
    static void useTheTab(const SensitivityFixture& fixture) {
        fixture.press("quorviSliderSensitivityX", Qt::Key_End);
        fixture.press("quorviSliderSensitivityX", Qt::Key_Left);
        fixture.click("quorviBoxIndependentXY");
        if (fixture.isEnabled("quorviSliderSensitivityY"))
            fixture.press("quorviSliderSensitivityY", Qt::Key_PageUp);
        fixture.click("quorviBoxIndependentXY");
        fixture.click("quorviBoxAcceleration");
        if (fixture.isEnabled("quorviSliderAcceleration"))
            fixture.press("quorviSliderAcceleration", Qt::Key_Right);
        fixture.click("quorviBoxSensitivityOSD");
    }

    static void useTheSheet(const SensitivityFixture& fixture) {
        inStagesSheet(fixture, [&](QDialog* sheet) {
            auto* table = fixture.find<KyvarQuorviTableView>("quorviStageTableStages");
            if (table->model()->rowCount() > 0)
                fixture.selectRow("quorviStageTableStages", 0);
            if (fixture.isEnabled("quorviStageButtonAdd"))
                fixture.click("quorviStageButtonAdd");
            for (const char* control : {"quorviStageSliderX", "quorviStageSliderY"})
                if (fixture.isEnabled(control))
                    fixture.press(control, Qt::Key_PageUp);
            if (fixture.isEnabled("quorviStageBoxIndepXY"))
                fixture.click("quorviStageBoxIndepXY");
            if (fixture.isEnabled("quorviStageButtonRemove"))
                fixture.click("quorviStageButtonRemove");
            fixture.press("quorviStageTableStages", Qt::Key_Delete);
            endSheet(sheet, true);
        });
    }
};

QUORVI_PANE_TEST_MAIN(HostileSensitivityTest)
#include "HostileSensitivityTest.moc"
