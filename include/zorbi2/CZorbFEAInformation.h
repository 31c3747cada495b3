// The host's record of the open project, from which an engine is created.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What the host knows about the project and the run whose results are handed over.
///
/// The engine copies the record whole when it is created and never keeps the host's pointer.
/// Texts are bytes in the system code page. Fields marked "carried" are copied and
/// never read.
class CZorbFEAInformation {
public:
    /// Positions of `flags` that the engine reads; all others are carried.
    enum FlagPosition : std::size_t {
        kBuildCatalogue = 1,    ///< exactly 1: build slots, items, weld-line data and selector
        kHasFiber = 11,         ///< the project has fiber results
        kHasRunners = 12,       ///< the project has runners
        kHasMoldbase = 13,      ///< the project has a moldbase
        kHasInsertedPart = 14,  ///< the project has an inserted part
        kHasMeetingAngle = 16,  ///< weld-line meeting angle information exists
        kViewEditAtStart = 19,  ///< initial value of the engine's view-edit setting
    };
    /// Not a static member: under C++11 that would need a definition in the library.
    enum : std::size_t { kFlagCount = 20 };

    std::string projectName;       ///< base name of the run's files, without the run number
    std::int32_t runNumber = 0;    ///< run whose results are handed over
    std::string projectFolder;     ///< folder of the run's files; last component normally "RunNN"
    std::string text3;             ///< carried
    std::string text4;             ///< carried
    std::int32_t value5 = 0;       ///< carried
    std::int32_t solverType = 0;   ///< kSolidProject or kShellProject
    std::int32_t projectType = 0;  ///< 4 and 6 to 11 are injection-compression projects
    std::int32_t voxelFlag = 0;    ///< 1: the results are voxel-mesh results (Ostra mesh)
    std::int32_t value9 = 0;       ///< carried
    unsigned char flags[kFlagCount] = {};  ///< facts, each 0 or 1; see FlagPosition
};
