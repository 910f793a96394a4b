#include "editors/macros/SelectedSteps.h"

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

StepPlaces selectedSteps(const KyvarQuorviTableView& table, const Document& document) {
    StepPlaces steps;
    for (const std::size_t step : stepsOfRows(table.selectedRows()))
        if (step < document.macroSteps().size())
            steps.push_back(step);
    return steps;
}

std::size_t placeBehindSelection(const KyvarQuorviTableView& table, const Document& document) {
    const StepPlaces steps = selectedSteps(table, document);
    return steps.empty() ? document.macroSteps().size() : steps.back() + 1;
}

std::vector<int> rowsOf(const StepPlaces& steps) {
    return {steps.begin(), steps.end()};
}

StepPlaces stepsOfRows(const std::vector<int>& rows) {
    return {rows.begin(), rows.end()};
}

} // namespace quorvi
