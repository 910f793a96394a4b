// The outlines of the panel's signs, on a grid of 16 with the origin at the upper left.
#pragma once

#include <QPainterPath>

#include <cstdint>

namespace quorvi {

enum class Symbol : std::uint8_t;

/// What a sign is made of: lines, which are drawn with a pen, and areas, which are filled.
struct SymbolOutline {
    QPainterPath lines;
    QPainterPath areas;
};

/// The width of the pen, on the same grid.
inline constexpr qreal kSymbolPen = 1.3;
inline constexpr qreal kSymbolGrid = 16.0;

[[nodiscard]] SymbolOutline outlineOf(Symbol symbol);

/// Reads a path in the notation of SVG's paths: the commands M, L, H, V, C, A and Z, absolute, each with its
/// letter, and of arcs those of circles, written with both radii. The path must be well formed: it stands in
/// the program.
[[nodiscard]] QPainterPath pathFrom(const char* notation);

} // namespace quorvi
