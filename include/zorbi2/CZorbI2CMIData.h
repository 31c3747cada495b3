// The flat record from which the control parameter file is printed. Holds no logic; each write
// resets and refills it, so values set by hand never reach a file.
#pragma once

#include <cstdint>
#include <string>

#include "ZorbI2Types.h"

/// Hosts get it from CZorbI2EngineManager::GetZorbCMIData(). Fields have the names of the file's
/// keys; on/off fields hold 0 or 1.
class CZorbI2CMIData {
public:
    std::string SolverName;                     ///< solver keyword, such as "MSCNASTRAN"
    std::string MapFile;                        ///< path of the mapped mesh
    std::int32_t FileVersion = 0;               ///< kControlFileVersion
    std::int32_t SolverType = 0;                ///< kind of molding analysis, of the project record
    std::int32_t ProjectType = 0;               ///< of the project record
    std::int32_t QuadraticElement = 0;          ///< second-order elements
    std::int32_t IDCompositeModel = 0;          ///< option of kItemMicroMechanics
    std::string OutFolder;                      ///< where the translator puts its files
    std::int32_t IsOriginalMesh = 0;            ///< mesh kind is kMeshOriginal
    std::int32_t IsDeformedMesh = 0;            ///< kMeshDeformed, and not annealed
    std::int32_t IsMappedMesh = 0;              ///< kMeshMapped
    std::int32_t Is3DMappingShell = 0;          ///< kMesh3DMappingShell
    std::int32_t IsAnnealingDeformedMesh = 0;   ///< annealing mode as set; only 1 has an effect
    std::int32_t IsDistributeModel = 0;         ///< option 6 of kItemFiberOrientation
    std::int32_t OutputFlags[kItemCount] = {};  ///< by item id; that of
                                                ///< kItemMicroMechanics is never used
    std::int32_t IsDoDensityReduction = 0;      ///< kItemDensity is at a level that reduces density
    std::int32_t SegmentX = 0;                  ///< mapping-domain divisions
    std::int32_t SegmentY = 0;                  ///< likewise
    std::int32_t SegmentZ = 0;                  ///< likewise
    std::int32_t FiberThetaXSegment = 0;        ///< part: fiber-orientation angle segments
    std::int32_t FiberThetaYSegment = 0;        ///< likewise
    std::int32_t FiberThetaZSegment = 0;        ///< likewise
    std::int32_t FiberStrengthXSegment = 0;     ///< part: fiber-strength segments
    std::int32_t FiberStrengthYSegment = 0;     ///< likewise
    std::int32_t InsertFiberThetaXSegment = 0;  ///< part insert: the same five
    std::int32_t InsertFiberThetaYSegment = 0;  ///< likewise
    std::int32_t InsertFiberThetaZSegment = 0;  ///< likewise
    std::int32_t InsertFiberStrengthXSegment = 0;  ///< likewise
    std::int32_t InsertFiberStrengthYSegment = 0;  ///< likewise
    std::int32_t DensityReduction = 0;             ///< factor; 0 without reduction
    double WeldlineAngles[3] = {};                 ///< degrees; angles 2, 3 and 4 of the file
    double ReductionRates[3] = {};                 ///< fractions
    double DigimatWeldlineAngle = 0.0;             ///< degrees
    std::int32_t IsViewEditModelMapping = 0;       ///< a model edited in the viewer is mapped
    std::int32_t DigimatOption = 0;                ///< option of kItemDigimatExport; never printed
};
