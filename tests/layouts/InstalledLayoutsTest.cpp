// Every printing key of a range of installed layouts, compared with libxkbcommon directly.
#include "layouts/LayoutWitness.h"
#include "layouts/XkbKeyboardLayout.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

class InstalledLayouts : public testing::TestWithParam<LayoutCase> {
  protected:
    void SetUp() override {
        SetCurrentKeyboardLayout(
            makeKeyboardLayout({"evdev", "pc105", GetParam().layout, GetParam().variant, ""}));
        ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
    }
    void TearDown() override { SetCurrentKeyboardLayout(nullptr); }
};

TEST_P(InstalledLayouts, everyPrintingKeyHasTheCharacterOfTheKeymap) {
    expectMainKeysAreNamedBy(Witness(GetParam()));
}

TEST_P(InstalledLayouts, everyKeypadKeyHasTheCharacterUnderNumLock) {
    expectKeypadKeysAreNamedBy(Witness(GetParam()));
}

TEST_P(InstalledLayouts, everyLetterOfTheAlphabetIsOnAKeyForShortcuts) {
    for (unsigned char letter = 'a'; letter <= 'z'; ++letter) {
        int keys = 0;
        for (const PrintingKey& key : mainKeys)
            keys += GetKeyChar(key.virtualKey) == letter ? 1 : 0;
        EXPECT_EQ(keys, 1) << letter;
    }
}

INSTANTIATE_TEST_SUITE_P(Keyboards, InstalledLayouts, testing::ValuesIn(layoutCases),
    [](const testing::TestParamInfo<LayoutCase>& tested) {
        return std::string(tested.param.layout) + tested.param.variant;
    });

} // namespace
