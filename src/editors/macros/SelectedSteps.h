// The selection in the list of steps, as the functions on steps have it.
#pragma once

#include <vector>

#include "document/Document.h"
#include "macros/StepMoves.h"

namespace quorvi {

class KyvarQuorviTableView;

/// The steps of the current macro that are selected in the table.
[[nodiscard]] StepPlaces selectedSteps(const KyvarQuorviTableView& table, const Document& document);
/// Where an insertion behind the selection goes; the end when nothing is selected.
[[nodiscard]] std::size_t placeBehindSelection(const KyvarQuorviTableView& table, const Document& document);

[[nodiscard]] std::vector<int> rowsOf(const StepPlaces& steps);
[[nodiscard]] StepPlaces stepsOfRows(const std::vector<int>& rows);

} // namespace quorvi
