// The integer vocabulary of the engine: which solver, which model section, which result code.
// All are plain 32-bit integers, because hosts pass values outside the named ones and the engine
// has an answer for each of those too.
#pragma once

#include <cstdint>

/// Structural solver, 0 to 8. Any other value (a negative one included) names no solver.
typedef std::int32_t SolverIndex;

constexpr SolverIndex kSolverAnsys = 0;
constexpr SolverIndex kSolverAbaqus = 1;
constexpr SolverIndex kSolverMscNastran = 2;
constexpr SolverIndex kSolverNeNastran = 3;
constexpr SolverIndex kSolverLsDyna = 4;
constexpr SolverIndex kSolverMarc = 5;
constexpr SolverIndex kSolverNxNastran = 6;
constexpr SolverIndex kSolverRadioss = 7;
constexpr SolverIndex kSolverWorkbench = 8;
constexpr std::int32_t kSolverCount = 9;

/// Section of the model that an output item belongs to.
typedef std::int32_t ItemCategory;

constexpr ItemCategory kCategoryPart = 0;
constexpr ItemCategory kCategoryPartInsert = 1;
constexpr ItemCategory kCategoryMoldbase = 2;

/// Output items have the ids 0 to 21.
constexpr std::int32_t kItemCount = 22;

/// Whether the results of an item exist: kResultAvailable, or a value that names what is missing
/// (the engine turns it into the text of option kOptionResultsMissing).
typedef std::int32_t ResultCode;

constexpr ResultCode kResultAvailable = 1;

/// Reserved option keys of an item; keys from 0 upwards are real choices.
constexpr std::int32_t kOptionResultsMissing = -2;
constexpr std::int32_t kOptionNone = -1;

/// Check state of an item that is chosen by an option and not by a check mark.
constexpr std::int32_t kNotACheckItem = -1;

/// Mesh kinds of SetEngineCurrentStatus.
constexpr std::int32_t kMeshOriginal = 0;
constexpr std::int32_t kMeshDeformed = 1;
constexpr std::int32_t kMeshMapped = 2;
constexpr std::int32_t kMesh3DMappingShell = 3;

/// Digimat weld-line angle, in degrees, until the host sets another.
constexpr double kDefaultDigimatWeldlineAngle = 135.0;

/// Kinds of moulding analysis (CZorbFEAInformation::solverType).
constexpr std::int32_t kSolidProject = 0;
constexpr std::int32_t kShellProject = 1;
