// Copying, appending and comparing Pascal strings (the length in the first byte, then the bytes) and
// zero-terminated strings.
//
// `maximum` is the greatest length that the destination may have afterwards, in bytes, without its length
// byte or its closing zero: a destination is a buffer of maximum + 1 bytes, and nothing beyond it is read or
// written. For a Pascal string a maximum above 255 counts as 255. Text that does not fit is cut off at the
// end. Appending to a destination that already exceeds its maximum does nothing; a zero-terminated one
// without its zero is terminated at its maximum first.
//
// Source and destination may overlap. A null source is an empty string; a null destination stays untouched.
#pragma once

#include <cstddef>

namespace quorvi {

void PStringCopy(unsigned char* destination, const unsigned char* source, std::size_t maximum);
void PStringCat(unsigned char* destination, const unsigned char* source, std::size_t maximum);
/// Compares over the shorter length, 'A' to 'Z' as 'a' to 'z' and every other byte as it is; if all of that
/// is equal, the shorter string sorts first. Returns a negative number, 0 or a positive number.
[[nodiscard]] int PStringCmp(const unsigned char* a, const unsigned char* b);

/// From a zero-terminated string into a Pascal string. At most `maximum` bytes of the source are read.
void CStringPCopy(unsigned char* destination, const char* source, std::size_t maximum);
void CStringPCat(unsigned char* destination, const char* source, std::size_t maximum);

/// At most `maximum` bytes of the source are read.
void CStringCopy(char* destination, const char* source, std::size_t maximum);
void CStringCat(char* destination, const char* source, std::size_t maximum);
/// As PStringCmp, for zero-terminated strings.
[[nodiscard]] int CStringCmp(const char* a, const char* b);

} // namespace quorvi
