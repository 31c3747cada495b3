#include "results/ResultChecks.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/Files.h"
#include "platform/Trace.h"
#include "quenta/CQuentaResultReader_Manipulator.h"
#include "results/RunFiles.h"
#include "results/ShotFile.h"

namespace results {

namespace {

using Info = CZorbFEAInformation;

enum Code : ResultCode {
    codeNoFibreResultsNorO2w = 0,
    codeNoFibreResults = -1,
    codeNoO2w = -2,
    codeNoRunners = -3,
    codeNoK5w = -6,
    codeNoRsf = -7,
    codeNoK5f = -8,
    codeNoK5p = -9,
    codeNoMediCrp = -10,
    codeNoCheck = -11,
    codeNoInsertNorK5f = -13,
    codeNoInsert = -14,
    codeNoMoldbase = -15,
    codeNoMoldbaseNorK5f = -16,
    codeNoMoldbaseNorK5c = -17,
    codeNoK5c = -18,
    codeNoInsertFibreResults = -19,
    codeNoDigimatInformation = -23,
    codeNoMeetingAngle = -24,
    codeNeitherRsfNorK5w = -25,
    codeNeitherK5pNorK5c = -26,
    codeNoK5s = -27,
};

bool Exists(const RunFacts& run, const char* extension) {
    return ResultFileExists(run.info, extension);
}

bool HasFlag(const RunFacts& run, Info::FlagPosition position) {
    return run.info.flags[position] != 0;
}

bool HasVoxelResults(const RunFacts& run) {
    return run.info.voxelFlag == 1;
}

ResultCode AvailableOr(bool available, ResultCode missing) {
    return available ? kResultAvailable : missing;
}

/// Whether the ".k5o" file is of a version that carries fibre orientation by itself. Looks at the
/// plain name, never at the "_vox" variant.
bool ResultVersionSuffices(const RunFacts& run) {
    constexpr long long firstSufficientVersion = 1004;
    EndInBackslash(run.info.projectFolder);
    const std::string path = platform::NativePath(ResultBasePath(run.info) + ".k5o");
    CQuentaResultReader_Manipulator reader;
    const int failure = reader.BeginReading(path.c_str(), nullptr);
    const long long version = reader.GetResultVersion();
    reader.EndReading();
    return failure == 0 && version >= firstSufficientVersion;
}

ResultCode CheckSolidFibreOrientation(const RunFacts& run) {
    platform::Trace(L"@@@ I2Engine Fiber Orientation Results SOLID");
    const bool hasO2w = Exists(run, ".o2w");
    const bool hasK5o = Exists(run, ".k5o");
    const bool versionSuffices = ResultVersionSuffices(run);
    const bool hasFiles = hasO2w || (hasK5o && versionSuffices);
    if (HasFlag(run, Info::kHasFiber)) {
        if (hasFiles) {
            return kResultAvailable;
        }
        platform::Trace(L"@@@ I2Engine .o2w/.k5 file not exist");
        return codeNoO2w;
    }
    if (hasFiles) {
        platform::Trace(L"@@@ I2Engine  HasFiber=false");  // two blanks are meant
        return codeNoFibreResults;
    }
    platform::Trace(L"@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist");
    return codeNoFibreResultsNorO2w;
}

ResultCode CheckShellFibreOrientation(const RunFacts& run) {
    const bool hasRso = Exists(run, ".rso");
    return AvailableOr(HasFlag(run, Info::kHasFiber) && hasRso, codeNoFibreResults);
}

ResultCode CheckFibreOrientation(const RunFacts& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return CheckSolidFibreOrientation(run);
        case kShellProject:
            return CheckShellFibreOrientation(run);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckRunners(const RunFacts& run) {
    return AvailableOr(HasFlag(run, Info::kHasRunners), codeNoRunners);
}

ResultCode CheckMoldbase(const RunFacts& run) {
    return AvailableOr(HasFlag(run, Info::kHasMoldbase), codeNoMoldbase);
}

ResultCode CheckFlowInducedStress(const RunFacts& run) {
    return AvailableOr(Exists(run, ".rsf"), codeNoRsf);
}

ResultCode CheckThermalStress(const RunFacts& run) {
    // The doubled blank before "OstraMesh = true" is meant.
    platform::Trace(HasVoxelResults(run)
                        ? L"@@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true"
                        : L"@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false");
    if (Exists(run, ".k5w")) {
        return kResultAvailable;
    }
    // Looked for once more, for the debug file only.
    platform::TextFile debugFile("ThermalTest.txt");
    const bool secondTest = Exists(run, ".k5w");
    debugFile.Write("FileExt = .k5w\nChkResult = " + std::to_string(int{secondTest}));
    return codeNoK5w;
}

/// The three results of a shell project that stand for strain and packing temperature.
struct ShellResults {
    explicit ShellResults(const RunFacts& run)
        : rsp(Exists(run, ".rsp")), rsg(Exists(run, ".rsg")), rsr(Exists(run, ".rsr")) {}

    bool Any() const { return rsp || rsg || rsr; }

    bool rsp;  // tested in this order
    bool rsg;
    bool rsr;
};

ResultCode CheckShellInitialStrain(const RunFacts& run) {
    const ShellResults shell(run);
    platform::TextFile debugFile("ShellIniStrain.txt");
    debugFile.Write(
        "RSP = " + std::to_string(int{shell.rsp}) + "RSG = " + std::to_string(int{shell.rsg}) +
        "RSR = " + std::to_string(int{shell.rsr}) + "File = " + std::to_string(int{shell.Any()}));
    return AvailableOr(shell.Any(), codeNoK5f);
}

ResultCode CheckInitialStrain(const RunFacts& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return AvailableOr(Exists(run, ".k5f"), codeNoK5f);
        case kShellProject:
            return CheckShellInitialStrain(run);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckInsertFlowPressure(const RunFacts& run) {
    const bool hasFile = Exists(run, ".k5f");
    if (HasFlag(run, Info::kHasInsertedPart)) {
        return AvailableOr(hasFile, codeNoInsert);  // says "no insert" without the file too: meant
    }
    return hasFile ? codeNoInsert : codeNoInsertNorK5f;
}

ResultCode CheckMoldbasePressure(const RunFacts& run) {
    if (!Exists(run, ".k5f")) {
        return codeNoMoldbaseNorK5f;  // even when the project has a moldbase: meant
    }
    return CheckMoldbase(run);
}

ResultCode CheckMoldbaseTemperature(const RunFacts& run) {
    const bool hasFile = Exists(run, ".k5c");
    if (HasFlag(run, Info::kHasMoldbase)) {
        return AvailableOr(hasFile, codeNoK5c);
    }
    return hasFile ? codeNoMoldbase : codeNoMoldbaseNorK5c;
}

bool IsInjectionCompressionProject(const RunFacts& run) {
    constexpr auto types = std::to_array<std::int32_t>({4, 6, 7, 8, 9, 10, 11});
    return std::ranges::find(types, run.info.projectType) != types.end();
}

ResultCode CheckSolidPackingTemperature(const RunFacts& run) {
    if (Exists(run, ".k5p")) {
        return kResultAvailable;
    }
    if (!IsInjectionCompressionProject(run)) {
        return codeNoK5p;
    }
    platform::Trace(L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file");
    if (Exists(run, ".k5f")) {
        return kResultAvailable;
    }
    platform::Trace(L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5f file");
    return codeNoK5p;
}

ResultCode CheckPackingTemperature(const RunFacts& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return CheckSolidPackingTemperature(run);
        case kShellProject:
            return AvailableOr(ShellResults(run).Any(), codeNoK5p);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckEndOfCoolingTemperature(const RunFacts& run) {
    const bool isSolid = run.info.solverType == kSolidProject;
    return AvailableOr(Exists(run, isSolid ? ".k5c" : ".rsc"), codeNoK5c);
}

ResultCode CheckDigimatExport(const RunFacts& run) {
    return run.info.solverType == kShellProject ? CheckFibreOrientation(run) : kResultAvailable;
}

ResultCode CheckInsertFibreMaterial(const RunFacts& run) {
    ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    if (run.flagPrevShot != 1) {
        platform::Trace(L"@@@ I2Engine .cmx file FlagPrevShot=0");
        return codeNoInsertFibreResults;
    }
    platform::Trace(L"@@@ I2Engine .cmx file FlagPrevShot=1");
    if (PreviousShotFileExists(run.info, run.valueShotRunID, ".k5o")) {
        return kResultAvailable;
    }
    platform::Trace(L"@@@ I2Engine does not have .k5o file");
    return codeNoInsertFibreResults;
}

ResultCode CheckDensity(const RunFacts& run) {
    return AvailableOr(Exists(run, ".k5f"), codeNoK5f);
}

ResultCode CheckWeldLine(const RunFacts& run) {
    if (!Exists(run, ".k5f")) {
        return codeNoK5f;
    }
    return AvailableOr(HasFlag(run, Info::kHasMeetingAngle), codeNoMeetingAngle);
}

ResultCode CheckDigimatFibre(const RunFacts& run) {
    const bool hasCrp = Exists(run, ".crp");
    const bool hasK5o = Exists(run, ".k5o");
    const bool hasRso = run.info.solverType == kShellProject && Exists(run, ".rso");
    if (hasCrp || hasK5o) {
        return kResultAvailable;
    }
    return hasRso ? codeNoDigimatInformation : codeNoMediCrp;
}

ResultCode CheckDigimatStress(const RunFacts& run) {
    return AvailableOr(Exists(run, ".rsf") || Exists(run, ".k5w"), codeNeitherRsfNorK5w);
}

ResultCode CheckDigimatTemperature(const RunFacts& run) {
    return AvailableOr(Exists(run, ".k5p") || Exists(run, ".k5c"), codeNeitherK5pNorK5c);
}

ResultCode CheckAnnealingStress(const RunFacts& run) {
    return AvailableOr(Exists(run, ".k5s"), codeNoK5s);
}

struct ItemCheck {
    std::int32_t itemId;
    ResultCode (*check)(const RunFacts& run);
};

constexpr auto itemChecks = std::to_array<ItemCheck>({
    {0, CheckFibreOrientation},
    {1, CheckRunners},
    {2, CheckMoldbase},
    {3, CheckFlowInducedStress},
    {4, CheckThermalStress},
    {5, CheckInitialStrain},
    {6, CheckInsertFlowPressure},
    {7, CheckMoldbasePressure},
    {8, CheckPackingTemperature},
    {9, CheckEndOfCoolingTemperature},
    {10, CheckMoldbaseTemperature},
    {11, CheckDigimatExport},
    {12, CheckInsertFibreMaterial},
    {13, CheckDensity},
    {14, CheckWeldLine},
    {15, CheckFibreOrientation},
    {16, CheckWeldLine},
    {18, CheckDigimatFibre},
    {19, CheckDigimatStress},
    {20, CheckDigimatTemperature},
    {21, CheckAnnealingStress},
});

}  // namespace

ResultCode CheckResults(const RunFacts& run, std::int32_t itemId) {
    const auto row = std::ranges::find(itemChecks, itemId, &ItemCheck::itemId);
    return row != itemChecks.end() ? row->check(run) : codeNoCheck;
}

}  // namespace results
