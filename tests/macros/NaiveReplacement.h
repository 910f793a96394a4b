// The replacement of a step once more, from the rules and not from the code: lists are cut and searched, and
// the codes are looked up in a table.
#pragma once

#include "macros/Steps.h"

namespace quorvi::test {

[[nodiscard]] TestMacro naivelyReplaced(TestMacro macro, std::size_t row, int code, int argument);

} // namespace quorvi::test
