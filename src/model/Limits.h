// The limits of the configuration, each in one place.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvi::limits {

/// The format version that trees are written with.
inline constexpr std::int32_t writtenVersion = 6;
/// The oldest format version that the panel accepts when it loads.
inline constexpr std::int32_t minimumVersion = 6;

inline constexpr int profiles = 5;      ///< the device has five slots, numbered from 1
inline constexpr int buttons = 9;       ///< numbered from 1
inline constexpr int minimumStages = 2; ///< the editor keeps at least two, so that there is something to
                                        ///< switch
inline constexpr int stages = 5;        ///< sensitivity stages of one profile
inline constexpr int macros = 12;       ///< macros that the tree holds and that go into the record
inline constexpr int macroSlots = 70;   ///< macro slots of the record
inline constexpr int highestMacroId = macroSlots - 1;
inline constexpr int macroSteps = 16;         ///< steps of one macro that the editors allow
inline constexpr std::size_t stepBytes = 128; ///< step bytes of one macro in the record
inline constexpr std::size_t nameUnits = 20;  ///< UTF-16 code units of a name
inline constexpr std::size_t nameBytes = 2 * nameUnits;
inline constexpr std::uint32_t longestDelay = 0xFFFFFF; ///< a delay has 24 bits on the device
/// An imported file; an exported item has some 10 KB and 300 values.
inline constexpr std::uint64_t itemBytes = std::uint64_t{1} << 20U;
inline constexpr std::uint64_t itemValues = std::uint64_t{1} << 14U; ///< including keys
/// The most bytes that KyvarBuffersAreIdentical compares.
inline constexpr std::size_t comparedBytes = 1024;

} // namespace quorvi::limits
