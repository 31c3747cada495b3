// Weld-line angles and reduction rates: one record per solver, and the working data that is
// written. Positions outside a list raise std::out_of_range("invalid vector<T> subscript").
#pragma once

#include <cstdint>
#include <vector>

#include <zorbi2/CZorbI2WeldlineDataStatus.h>

namespace cmi {

/// Number of angles and of rates that the control parameter file takes.
constexpr std::int32_t kWeldlineValueCount = 3;

/// The working data as an engine starts with it.
CZorbI2WeldlineDataStatus DefaultWeldlineData();

/// One record for each solver, with the values of the working data.
std::vector<CZorbI2WeldlineDataStatus> BuildWeldlineTable(
    const CZorbI2WeldlineDataStatus& workingData);

/// Overwrites the first three angles and rates of a solver's record, element by element: values
/// stored before a faulty position stay stored.
void StoreWeldlineValues(std::vector<CZorbI2WeldlineDataStatus>& table, SolverIndex solver,
                         const std::vector<double>& angles, const std::vector<double>& rates);

/// Replaces the lists of the working data with the first three angles and rates of a record. A
/// record that is too short leaves what was taken before the fault; a record outside the table
/// leaves the working data as it was.
void TakeWeldlineValues(const std::vector<CZorbI2WeldlineDataStatus>& table, SolverIndex solver,
                        CZorbI2WeldlineDataStatus& workingData);

}  // namespace cmi
