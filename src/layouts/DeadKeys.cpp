#include "layouts/DeadKeys.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace quorvi {

namespace {

struct Accent {
    std::uint32_t deadKeysym;
    char16_t spacing;
    std::u16string_view bases;
    std::u16string_view composed; // one for each base
};

constexpr std::array kAccents = std::to_array<Accent>({
    {XKB_KEY_dead_grave, u'`', u"AEIOUaeiou", u"ÀÈÌÒÙàèìòù"},
    {XKB_KEY_dead_acute, u'´', u"AEIOUYaeiouy", u"ÁÉÍÓÚÝáéíóúý"},
    {XKB_KEY_dead_circumflex, u'^', u"AEIOUaeiou", u"ÂÊÎÔÛâêîôû"},
    {XKB_KEY_dead_tilde, u'~', u"ANOano", u"ÃÑÕãñõ"},
    {XKB_KEY_dead_macron, u'¯', u"", u""},
    {XKB_KEY_dead_breve, u'˘', u"", u""},
    {XKB_KEY_dead_abovedot, u'˙', u"", u""},
    {XKB_KEY_dead_diaeresis, u'¨', u"AEIOUYaeiouy", u"ÄËÏÖÜŸäëïöüÿ"},
    {XKB_KEY_dead_abovering, u'˚', u"Aa", u"Åå"},
    {XKB_KEY_dead_doubleacute, u'˝', u"", u""},
    {XKB_KEY_dead_caron, u'ˇ', u"", u""},
    {XKB_KEY_dead_cedilla, u'¸', u"Cc", u"Çç"},
    {XKB_KEY_dead_ogonek, u'˛', u"", u""},
});

constexpr bool everyBaseHasItsLetter() {
    return std::all_of(kAccents.begin(), kAccents.end(),
        [](const Accent& accent) { return accent.bases.size() == accent.composed.size(); });
}
static_assert(everyBaseHasItsLetter());

const Accent* findAccent(std::uint32_t deadKeysym) {
    const auto found = std::find_if(kAccents.begin(), kAccents.end(),
        [deadKeysym](const Accent& accent) { return accent.deadKeysym == deadKeysym; });
    return found == kAccents.end() ? nullptr : &*found;
}

} // namespace

bool isDeadKey(std::uint32_t keysym) {
    return keysym >= XKB_KEY_dead_grave && keysym <= XKB_KEY_dead_longsolidusoverlay;
}

std::optional<char16_t> spacingAccent(std::uint32_t deadKeysym) {
    const Accent* accent = findAccent(deadKeysym);
    return accent != nullptr ? std::optional(accent->spacing) : std::nullopt;
}

std::optional<char16_t> composeAccent(std::uint32_t deadKeysym, char16_t base) {
    const Accent* accent = findAccent(deadKeysym);
    if (accent == nullptr)
        return std::nullopt;
    if (base == u' ' || base == accent->spacing)
        return accent->spacing;
    const std::size_t index = accent->bases.find(base);
    return index == std::u16string_view::npos ? std::nullopt : std::optional(accent->composed[index]);
}

} // namespace quorvi
