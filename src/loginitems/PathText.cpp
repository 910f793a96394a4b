#include "loginitems/PathText.h"

#include <clocale>
#include <cwctype>
#include <memory>
#include <string>
#include <type_traits>

#include "base/Unicode.h"

namespace quorvi {

namespace {

static_assert(sizeof(wchar_t) == 4, "a wide character holds any code point");

struct LocaleDeleter {
    void operator()(locale_t locale) const { ::freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleDeleter>;

/// Null if the system has no such locale.
locale_t unicodeTables() {
    static const Locale tables(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr));
    return tables.get();
}

wint_t folded(wint_t c) {
    if (const locale_t tables = unicodeTables())
        return ::towlower_l(::towupper_l(c, tables), tables); // upper first: several lower forms share one
    return c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c;
}

std::wstring foldedText(std::string_view utf8) {
    const std::u16string units = toUtf16(utf8);
    std::wstring text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < units.size()) // toUtf16 yields no lone surrogates
            c = 0x10000 + ((c - 0xD800) << 10) + (units[++i] - 0xDC00U);
        text.push_back(static_cast<wchar_t>(folded(static_cast<wint_t>(c))));
    }
    return text;
}

} // namespace

bool isUtf8(std::string_view text) {
    return toUtf8(toUtf16(text)) == text;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a == b || (isUtf8(a) && isUtf8(b) && foldedText(a) == foldedText(b));
}

} // namespace quorvi
