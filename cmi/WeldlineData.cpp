#include "cmi/WeldlineData.h"

#include "platform/CheckedElement.h"

using platform::CheckedElement;

namespace cmi {

CZorbI2WeldlineDataStatus DefaultWeldlineData() {
    CZorbI2WeldlineDataStatus data;
    data.WeldlineAngles = {30.0, 60.0, 90.0};
    data.ReductionRates = {0.8, 0.9, 0.95};
    return data;
}

std::vector<CZorbI2WeldlineDataStatus> BuildWeldlineTable(
    const CZorbI2WeldlineDataStatus& workingData) {
    std::vector<CZorbI2WeldlineDataStatus> table(kSolverCount, workingData);
    for (SolverIndex solver = 0; solver < kSolverCount; ++solver) {
        table[solver].solverIndex = solver;
    }
    return table;
}

void StoreWeldlineValues(std::vector<CZorbI2WeldlineDataStatus>& table, SolverIndex solver,
                         const std::vector<double>& angles, const std::vector<double>& rates) {
    CZorbI2WeldlineDataStatus& record = CheckedElement(table, solver);
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        CheckedElement(record.WeldlineAngles, position) = CheckedElement(angles, position);
    }
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        CheckedElement(record.ReductionRates, position) = CheckedElement(rates, position);
    }
}

void TakeWeldlineValues(const std::vector<CZorbI2WeldlineDataStatus>& table, SolverIndex solver,
                        CZorbI2WeldlineDataStatus& workingData) {
    // A copy: the working data may be emptied before all of the record is read.
    const CZorbI2WeldlineDataStatus record = CheckedElement(table, solver);
    workingData.WeldlineAngles.clear();
    workingData.ReductionRates.clear();
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        workingData.WeldlineAngles.push_back(CheckedElement(record.WeldlineAngles, position));
    }
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        workingData.ReductionRates.push_back(CheckedElement(record.ReductionRates, position));
    }
}

}  // namespace cmi
