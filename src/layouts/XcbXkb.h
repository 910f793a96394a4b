// The X keyboard extension of xcb. Its header has a field with the name of a C++ keyword.
#pragma once

#include <xcb/xcb.h>

#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
