// The integer vocabulary of the engine: solvers, items, mesh kinds, result codes.
// All are plain 32-bit integers, because hosts also pass values other than the named ones, and the
// engine handles each of those too.
#pragma once

#include <cstdint>

// ---- Solvers ------------------------------------------------------------------------------------

/// Structural solver. A value without a name (a negative one included) is not a solver.
typedef std::int32_t SolverIndex;

constexpr SolverIndex kSolverAnsys = 0;       ///< ANSYS
constexpr SolverIndex kSolverAbaqus = 1;      ///< ABAQUS
constexpr SolverIndex kSolverMscNastran = 2;  ///< MSC Nastran
constexpr SolverIndex kSolverNeNastran = 3;   ///< NE Nastran
constexpr SolverIndex kSolverLsDyna = 4;      ///< LS-DYNA
constexpr SolverIndex kSolverMarc = 5;        ///< MARC
constexpr SolverIndex kSolverNxNastran = 6;   ///< NX Nastran
constexpr SolverIndex kSolverRadioss = 7;     ///< RADIOSS
constexpr SolverIndex kSolverWorkbench = 8;   ///< ANSYS Workbench
/// Solvers are numbered from 0 without a gap.
constexpr std::int32_t kSolverCount = kSolverWorkbench + 1;

// Mesh kinds of SetEngineCurrentStatus.
constexpr std::int32_t kMeshOriginal = 0;        ///< the mesh of the simulation
constexpr std::int32_t kMeshDeformed = 1;        ///< that mesh after deformation
constexpr std::int32_t kMeshMapped = 2;          ///< a separate mesh, onto which results are mapped
constexpr std::int32_t kMesh3DMappingShell = 3;  ///< a shell mesh that takes solid results

/// Annealing mode of SetEngineCurrentStatus in which the deformed mesh is the annealed one.
constexpr std::int32_t kAnnealingDeformedMesh = 1;

// ---- Projects -----------------------------------------------------------------------------------

// Kinds of molding analysis (CZorbFEAInformation::solverType).
constexpr std::int32_t kSolidProject = 0;  ///< solid mesh
constexpr std::int32_t kShellProject = 1;  ///< shell mesh

// Project types that the offered items depend on (CZorbFEAInformation::projectType).
constexpr std::int32_t kProjectTypeAnnealing = 3;  ///< offers annealing stress
constexpr std::int32_t kProjectTypeMucell = 9;     ///< offers foam for Digimat

// ---- Items --------------------------------------------------------------------------------------

constexpr std::int32_t kItemFiberOrientation = 0;         ///< and the reduction of its material
constexpr std::int32_t kItemRunner = 1;                   ///< runner mesh with the part
constexpr std::int32_t kItemMoldbaseMesh = 2;             ///< the moldbase model alone
constexpr std::int32_t kItemFlowInducedStress = 3;        ///< flow-induced residual stress
constexpr std::int32_t kItemThermalStress = 4;            ///< thermal residual stress
constexpr std::int32_t kItemInitialStrain = 5;            ///< as a temperature difference
constexpr std::int32_t kItemInsertFlowPressure = 6;       ///< on the surface of the part insert
constexpr std::int32_t kItemMoldbasePressure = 7;         ///< on the contact surface with the part
constexpr std::int32_t kItemPackingTemperature = 8;       ///< of the part, after packing
constexpr std::int32_t kItemEndOfCoolingTemperature = 9;  ///< of part and insert, after cooling
constexpr std::int32_t kItemMoldbaseTemperature = 10;     ///< after cooling
constexpr std::int32_t kItemDigimatExport = 11;           ///< fiber orientation for Digimat
constexpr std::int32_t kItemInsertFiberMaterial = 12;     ///< of a part insert with fibers
constexpr std::int32_t kItemDensity = 13;                 ///< and its reduction
constexpr std::int32_t kItemWeldLine = 14;                ///< weld lines of the part
constexpr std::int32_t kItemMicroMechanics = 15;          ///< composite model; no on/off line
constexpr std::int32_t kItemDigimatWeldLine = 16;         ///< Digimat: weld lines
constexpr std::int32_t kItemDigimatMucell = 17;           ///< Digimat: foam, never checked
constexpr std::int32_t kItemDigimatFiber = 18;            ///< Digimat: fibers
constexpr std::int32_t kItemDigimatStress = 19;           ///< Digimat: residual stress
constexpr std::int32_t kItemDigimatTemperature = 20;      ///< Digimat: temperature
constexpr std::int32_t kItemAnnealingStress = 21;         ///< stress from post-curing
/// Items are numbered from 0 without a gap.
constexpr std::int32_t kItemCount = kItemAnnealingStress + 1;

/// Section of the model that an item belongs to.
typedef std::int32_t ItemCategory;

constexpr ItemCategory kCategoryPart = 0;        ///< the molded part
constexpr ItemCategory kCategoryPartInsert = 1;  ///< what the part is molded around
constexpr ItemCategory kCategoryMoldbase = 2;    ///< the mold itself

// Reserved option keys of an item; keys from 0 up are real choices.
constexpr std::int32_t kOptionResultsMissing = -2;  ///< its label is the reason
constexpr std::int32_t kOptionNone = -1;            ///< the item is a switch

/// Check state of an item that is set by an option and not by a check box.
constexpr std::int32_t kNotACheckItem = -1;

/// Digimat weld-line angle, in degrees, until the host sets another.
constexpr double kDefaultDigimatWeldlineAngle = 135.0;

// ---- Result codes -------------------------------------------------------------------------------

/// Whether the results of an item exist: kResultAvailable, or a value that names what is missing
/// (the engine turns it into the text of option kOptionResultsMissing).
typedef std::int32_t ResultCode;

constexpr ResultCode kResultAvailable = 1;               ///< the item can be handed over
constexpr ResultCode kResultNoFiberResultsNorO2w = 0;    ///< neither fiber results nor their files
constexpr ResultCode kResultNoFiberResults = -1;         ///< the project has no fiber results
constexpr ResultCode kResultNoO2w = -2;                  ///< no usable fiber orientation file
constexpr ResultCode kResultNoRunners = -3;              ///< the project has no runners
constexpr ResultCode kResultOstraMeshAndNoK5w = -4;      ///< returned by no check
constexpr ResultCode kResultOstraMesh = -5;              ///< returned by no check
constexpr ResultCode kResultNoK5w = -6;                  ///< no thermal stress
constexpr ResultCode kResultNoRsf = -7;                  ///< no flow-induced stress
constexpr ResultCode kResultNoK5f = -8;                  ///< no filling result, or no shell strain
constexpr ResultCode kResultNoK5p = -9;                  ///< no packing temperature
constexpr ResultCode kResultNoMediCrp = -10;             ///< neither "_medi.crp" nor ".k5o"
constexpr ResultCode kResultNoCheck = -11;               ///< there is no check for this item id
constexpr ResultCode kResultNoInsertNorK5f = -13;        ///< neither inserted part nor ".k5f"
constexpr ResultCode kResultNoInsert = -14;              ///< inserted part or ".k5f" is missing
constexpr ResultCode kResultNoMoldbase = -15;            ///< the project has no moldbase
constexpr ResultCode kResultNoMoldbaseNorK5f = -16;      ///< no ".k5f", with or without moldbase
constexpr ResultCode kResultNoMoldbaseNorK5c = -17;      ///< neither moldbase nor ".k5c"
constexpr ResultCode kResultNoK5c = -18;                 ///< no cooling result
constexpr ResultCode kResultNoInsertFiberResults = -19;  ///< no fiber results from a previous shot
constexpr ResultCode kResultNoDigimatInformation = -23;  ///< only the shell's fiber orientation
constexpr ResultCode kResultNoMeetingAngle = -24;        ///< no weld-line meeting angles
constexpr ResultCode kResultNeitherRsfNorK5w = -25;      ///< no residual stress; without a text
constexpr ResultCode kResultNeitherK5pNorK5c = -26;      ///< no temperature; without a text
constexpr ResultCode kResultNoK5s = -27;                 ///< no annealing stress; without a text
/// Has the text of kResultNoFiberResults; returned by no check.
constexpr ResultCode kResultNoFiberResultsEither = 15;
/// The lowest code. Every code from here to kResultAvailable has a row in the table of messages.
constexpr ResultCode kResultLowest = kResultNoK5s;
