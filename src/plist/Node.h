// Owners for objects that libplist returns, and the locale that it needs. Private to this library.
#pragma once

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <type_traits>

#include <locale.h>
#include <plist/plist.h>

namespace quorvi::plist {

struct NodeDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
/// A libplist node without a parent, with everything in it.
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, NodeDeleter>;

/// A new node of a signed integer. libplist 2.3, which made PLIST_UINT an alias, began to distinguish them
/// from unsigned ones; before, it treated the 64 bits of every new node as signed.
[[nodiscard]] inline Node signedInteger(std::int64_t number) {
#ifdef PLIST_UINT
    return Node(plist_new_int(number));
#else
    return Node(plist_new_uint(static_cast<std::uint64_t>(number)));
#endif
}

struct AllocatedDeleter {
    // libplist documents plain free() for its iterators and keys.
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};
/// Memory that libplist allocated for its caller.
template <typename T>
using Allocated = std::unique_ptr<T, AllocatedDeleter>;

/// While it lives, this thread reads and writes numbers with a decimal point. libplist uses the C library's
/// conversions, and the settings application has chosen the user's locale, which may have a comma.
class NumericScope {
  public:
    NumericScope() : m_previous(uselocale(plain())) {}
    ~NumericScope() { uselocale(m_previous); }
    NumericScope(const NumericScope&) = delete;
    NumericScope& operator=(const NumericScope&) = delete;

  private:
    static locale_t plain() {
        static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
        return c;
    }
    locale_t m_previous;
};

} // namespace quorvi::plist
