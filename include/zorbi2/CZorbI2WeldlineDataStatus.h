// Weld-line angles and the strength reduction rates that go with them, for one solver.
#pragma once

#include <cstdint>
#include <vector>

#include "ZorbI2Types.h"

/// A value record. The first three elements of each list reach the control parameter file.
class CZorbI2WeldlineDataStatus {
public:
    SolverIndex solverIndex = 0;         ///< solver that the record belongs to
    std::vector<double> WeldlineAngles;  ///< meeting angles in degrees
    std::vector<double> ReductionRates;  ///< remaining strength as a fraction, one per angle
};
