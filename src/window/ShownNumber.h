// Numbers as the user's locale writes them.
#pragma once

#include <QString>

namespace quorvi {

/// The sign that the user's locale puts before decimals. Asked every time: the user may change the locale
/// while the panel is open.
[[nodiscard]] char16_t decimalSign();

/// The number, which has a point before its decimals, with the comma instead if that is the user's sign.
[[nodiscard]] QString withDecimalSign(QString number);

} // namespace quorvi
