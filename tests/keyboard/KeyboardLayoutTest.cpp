#include "keyboard/KeyboardLayout.h"

#include <gtest/gtest.h>

#include "TableLayout.h"

using namespace quorvi;
using quorvi::test::TableLayout;

namespace {

KeyboardLayoutRef someLayout() {
    return std::make_shared<TableLayout>();
}

std::uint32_t oldStyleEcho(std::uint16_t keyWord) {
    return keyWord;
}

class CurrentLayout : public testing::Test {
  protected:
    void TearDown() override { SetKeyboardLayoutSources({}); }

    std::int32_t find() { return CompatibleGetKeyboardLayout(&layout, &oldStyle); }

    void manage(const ManagedLayout& managed) {
        KeyboardLayoutSources sources;
        sources.managedLayout = [managed] { return managed; };
        SetKeyboardLayoutSources(sources);
    }

    const KeyboardLayoutRef first = someLayout();
    const KeyboardLayoutRef second = someLayout();
    KeyboardLayoutRef layout = someLayout(); // so that it shows when an out is not emptied
    OldStyleLayout oldStyle = oldStyleEcho;
};

TEST_F(CurrentLayout, missingOutPointerIsRefusedAndTheOtherLeftAlone) {
    SetCurrentKeyboardLayout(first);
    const KeyboardLayoutRef before = layout;
    EXPECT_EQ(CompatibleGetKeyboardLayout(&layout, nullptr), -50);
    EXPECT_EQ(layout, before);
    EXPECT_EQ(CompatibleGetKeyboardLayout(nullptr, &oldStyle), -50);
    EXPECT_TRUE(oldStyle);
}

TEST_F(CurrentLayout, withoutSourcesThereIsNoneAndTheOutsAreEmptied) {
    EXPECT_EQ(find(), -192);
    EXPECT_EQ(layout, nullptr);
    EXPECT_FALSE(oldStyle);
}

TEST_F(CurrentLayout, setLayoutIsTheCurrentOne) {
    SetCurrentKeyboardLayout(first);
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, first);
    EXPECT_FALSE(oldStyle);
}

TEST_F(CurrentLayout, noLayoutCanBeSet) {
    SetCurrentKeyboardLayout(first);
    SetCurrentKeyboardLayout(nullptr);
    EXPECT_EQ(find(), -192);
    EXPECT_EQ(layout, nullptr);
}

TEST_F(CurrentLayout, currentInputSourceGoesBeforeTheAsciiCapableOneAndTheManager) {
    SetKeyboardLayoutSources({[this] { return InputSource{first}; }, [this] { return InputSource{second}; },
        [] {
            return ManagedLayout{-1, layoutKindBoth, nullptr, nullptr};
        }});
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, first);
}

TEST_F(CurrentLayout, withoutACurrentInputSourceTheAsciiCapableOneIsTaken) {
    SetKeyboardLayoutSources({[] { return std::nullopt; }, [this] { return InputSource{second}; }, {}});
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, second);
}

TEST_F(CurrentLayout, inputSourceWithoutALayoutIsNotReplacedByTheAsciiCapableOne) {
    SetKeyboardLayoutSources({[] { return InputSource{}; }, [this] { return InputSource{second}; }, {}});
    EXPECT_EQ(find(), -192);
    EXPECT_EQ(layout, nullptr);
}

TEST_F(CurrentLayout, withoutAnyInputSourceThereIsNone) {
    SetKeyboardLayoutSources({[] { return std::nullopt; }, [] { return std::nullopt; }, {}});
    EXPECT_EQ(find(), -192);
    SetKeyboardLayoutSources({[] { return std::nullopt; }, {}, {}});
    EXPECT_EQ(find(), -192);
}

TEST_F(CurrentLayout, sourcesAreAskedEveryTime) {
    KeyboardLayoutRef current = first;
    SetKeyboardLayoutSources({[&current] { return InputSource{current}; }, {}, {}});
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, first);
    current = second;
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, second);
}

TEST_F(CurrentLayout, managedLayoutWithUnicodeDataGivesTheLayoutAlone) {
    for (const std::int32_t kind : {0, 2}) {
        manage({0, kind, first, oldStyleEcho});
        EXPECT_EQ(find(), 0);
        EXPECT_EQ(layout, first);
        EXPECT_FALSE(oldStyle);
    }
}

TEST_F(CurrentLayout, managedLayoutOfTheOldStyleGivesThatAlone) {
    manage({0, 1, first, [](std::uint16_t) { return 77U; }});
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(layout, nullptr);
    ASSERT_TRUE(oldStyle);
    EXPECT_EQ(oldStyle(0), 77U);
}

TEST_F(CurrentLayout, managedLayoutOfAnotherKindIsNone) {
    for (const std::int32_t kind : {-1, 3}) {
        manage({0, kind, first, oldStyleEcho});
        EXPECT_EQ(find(), -192);
        EXPECT_EQ(layout, nullptr);
        EXPECT_FALSE(oldStyle);
    }
}

TEST_F(CurrentLayout, managedLayoutWithoutItsDataIsNone) {
    manage({0, 2, nullptr, oldStyleEcho});
    EXPECT_EQ(find(), -192);
    manage({0, 1, first, nullptr});
    EXPECT_EQ(find(), -192);
}

TEST_F(CurrentLayout, errorOfTheManagerIsReturnedAsItIs) {
    manage({-30795, 2, first, oldStyleEcho});
    EXPECT_EQ(find(), -30795);
    EXPECT_EQ(layout, nullptr);
    EXPECT_FALSE(oldStyle);
}

TEST(KeyTranslate, takesTheModifierByteAndGivesMacRoman) {
    TableLayout layout;
    layout.types(0x00, 0x02, u'A').types(0x01, 0x00, u'é').types(0x02, 0x00, u'ж');
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0x0200, &layout, {}, nullptr), 'A');
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0x02FF, &layout, {}, nullptr), 'A');
    EXPECT_EQ(CompatibleKeyTranslate(0x01, 0, &layout, {}, nullptr), 0x8E);
    EXPECT_EQ(CompatibleKeyTranslate(0x02, 0, &layout, {}, nullptr), '?');
}

TEST(KeyTranslate, nothingAndFailureAreZero) {
    TableLayout layout;
    layout.typesNothing(0x00, 0x00);
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0, &layout, {}, nullptr), 0);
    EXPECT_EQ(CompatibleKeyTranslate(0x01, 0, &layout, {}, nullptr), 0);
}

TEST(KeyTranslate, deadKeyStateIsTheCallersOrEndsWithTheCall) {
    TableLayout layout;
    layout.typesNothing(0x32, 0, 5).types(0x00, 0, u'a').types(0x00, 0, u'â', 5);
    std::uint32_t state = 0;
    EXPECT_EQ(CompatibleKeyTranslate(0x32, 0, &layout, {}, &state), 0);
    EXPECT_EQ(state, 5U);
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0, &layout, {}, &state), 0x89);
    EXPECT_EQ(state, 0U);
    EXPECT_EQ(CompatibleKeyTranslate(0x32, 0, &layout, {}, nullptr), 0);
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0, &layout, {}, nullptr), 'a');
}

TEST(KeyTranslate, oldStyleLayoutTakesTheKeyWordAndGivesTheLowByte) {
    std::uint16_t asked = 0;
    const OldStyleLayout oldStyle = [&asked](std::uint16_t keyWord) {
        asked = keyWord;
        return 0x00AA1261U;
    };
    EXPECT_EQ(CompatibleKeyTranslate(0x35, 0x03FF, nullptr, oldStyle, nullptr), 0x61);
    EXPECT_EQ(asked, 0x0335);
}

TEST(KeyTranslate, layoutGoesBeforeTheOldStyleOneAndNeitherIsZero) {
    TableLayout layout;
    layout.types(0x00, 0, u'q');
    EXPECT_EQ(CompatibleKeyTranslate(0x00, 0, &layout, oldStyleEcho, nullptr), 'q');
    EXPECT_EQ(CompatibleKeyTranslate(0x41, 0, nullptr, {}, nullptr), 0);
}

} // namespace
