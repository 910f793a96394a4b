#include "plist/Carried.h"

#include "plist/ScalarConversion.h"

namespace quorvi::plist {

std::int64_t carriedInteger(const CarriedRef& carried) {
    std::uint64_t number = 0;
    if (carried && PLIST_IS_UINT(carried->node()))
        plist_get_uint_val(carried->node(), &number);
    return static_cast<std::int64_t>(number);
}

bool carriedEqual(const CarriedRef& a, const CarriedRef& b) {
    return a == b || (a && b && plist_compare_node_value(a->node(), b->node()) != 0);
}

} // namespace quorvi::plist
