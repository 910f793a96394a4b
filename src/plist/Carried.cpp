#include "plist/ScalarConversion.h"

namespace quorvi::plist {

std::int64_t carriedInteger(const CarriedRef&) {
    return 0;
}
bool carriedEqual(const CarriedRef& a, const CarriedRef& b) {
    return a == b;
}

} // namespace quorvi::plist
