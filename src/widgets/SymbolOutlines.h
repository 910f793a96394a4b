// The outlines of the panel's signs, on a grid of 16 with the origin at the upper left.
#pragma once

#include <QPainterPath>

#include <cstdint>

namespace quorvi {

enum class Symbol : std::uint8_t;

/// The parts of a sign: lines, drawn with a pen, and areas, which are filled.
struct SymbolOutline {
    QPainterPath lines;
    QPainterPath areas;
};

/// The width of the pen, on the same grid.
inline constexpr qreal kSymbolPen = 1.3;
inline constexpr qreal kSymbolGrid = 16.0;

[[nodiscard]] SymbolOutline outlineOf(Symbol symbol);

/// Parses a path in SVG notation: the absolute commands M, L, H, V, C, A and Z, each with its letter; arcs
/// must be circular, written with both radii. The path must be well formed, because it comes from the program
/// itself.
[[nodiscard]] QPainterPath pathFrom(const char* notation);

} // namespace quorvi
