#include "results/ResultChecks.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/Files.h"
#include "platform/PlatformCalls.h"
#include "platform/Trace.h"
#include "quenta/CQuentaResultReader_Manipulator.h"
#include "results/RunFiles.h"
#include "results/ShotFile.h"

namespace results {

namespace {

using Info = CZorbFEAInformation;

bool LookFor(Run& run, const ResultExtension& extension) {
    return run.files.LookFor(extension);
}

bool HasFlag(const Run& run, Info::FlagPosition position) {
    return run.info.flags[position] != 0;
}

bool HasVoxelResults(const Run& run) {
    return run.info.voxelFlag == 1;
}

ResultCode AvailableOr(bool available, ResultCode missing) {
    return available ? kResultAvailable : missing;
}

/// Whether the ".k5o" file has a version that itself holds fiber orientation. Looks at the
/// plain name, never at the "_vox" variant.
bool ResultVersionSuffices(Run& run) {
    constexpr long long firstSufficientVersion = 1004;
    constexpr ResultExtension k5o = ".k5o";
    const std::string path = platform::NativePath(run.files.PathOf({}, k5o.text));
    CQuentaResultReader_Manipulator reader;
    const int failure = reader.BeginReading(path.c_str(), nullptr);
    const long long version = reader.GetResultVersion();
    reader.EndReading();
    return failure == 0 && version >= firstSufficientVersion;
}

ResultCode CheckSolidFiberOrientation(Run& run) {
    platform::Trace(L"@@@ I2Engine Fiber Orientation Results SOLID");
    const bool hasO2w = LookFor(run, ".o2w");
    const bool hasK5o = LookFor(run, ".k5o");
    const bool versionSuffices = ResultVersionSuffices(run);
    const bool hasFiles = hasO2w || (hasK5o && versionSuffices);
    if (HasFlag(run, Info::kHasFiber)) {
        if (hasFiles) {
            return kResultAvailable;
        }
        platform::Trace(L"@@@ I2Engine .o2w/.k5 file not exist");
        return kResultNoO2w;
    }
    if (hasFiles) {
        platform::Trace(L"@@@ I2Engine  HasFiber=false");  // two spaces: deliberate
        return kResultNoFiberResults;
    }
    platform::Trace(L"@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist");
    return kResultNoFiberResultsNorO2w;
}

ResultCode CheckShellFiberOrientation(Run& run) {
    const bool hasRso = LookFor(run, ".rso");
    return AvailableOr(HasFlag(run, Info::kHasFiber) && hasRso, kResultNoFiberResults);
}

ResultCode CheckFiberOrientation(Run& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return CheckSolidFiberOrientation(run);
        case kShellProject:
            return CheckShellFiberOrientation(run);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckRunners(Run& run) {
    return AvailableOr(HasFlag(run, Info::kHasRunners), kResultNoRunners);
}

ResultCode CheckMoldbase(Run& run) {
    return AvailableOr(HasFlag(run, Info::kHasMoldbase), kResultNoMoldbase);
}

ResultCode CheckFlowInducedStress(Run& run) {
    return AvailableOr(LookFor(run, ".rsf"), kResultNoRsf);
}

ResultCode CheckThermalStress(Run& run) {
    // The doubled space before "OstraMesh = true" is deliberate.
    platform::Trace(HasVoxelResults(run)
                        ? L"@@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true"
                        : L"@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false");
    if (LookFor(run, ".k5w")) {
        return kResultAvailable;
    }
    // Looked for once more, for the debug file only.
    platform::TextFile debugFile("ThermalTest.txt");
    const bool secondTest = LookFor(run, ".k5w");
    debugFile.Write("FileExt = .k5w\nChkResult = " + std::to_string(int{secondTest}));
    return kResultNoK5w;
}

/// The three results of a shell project any of which counts as initial strain and as
/// packing temperature.
struct ShellResults {
    explicit ShellResults(Run& run)
        : rsp(LookFor(run, ".rsp")), rsg(LookFor(run, ".rsg")), rsr(LookFor(run, ".rsr")) {}

    bool Any() const { return rsp || rsg || rsr; }

    bool rsp;  // tested in this order
    bool rsg;
    bool rsr;
};

ResultCode CheckShellInitialStrain(Run& run) {
    const ShellResults shell(run);
    platform::TextFile debugFile("ShellIniStrain.txt");
    debugFile.Write(
        "RSP = " + std::to_string(int{shell.rsp}) + "RSG = " + std::to_string(int{shell.rsg}) +
        "RSR = " + std::to_string(int{shell.rsr}) + "File = " + std::to_string(int{shell.Any()}));
    return AvailableOr(shell.Any(), kResultNoK5f);
}

ResultCode CheckInitialStrain(Run& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return AvailableOr(LookFor(run, ".k5f"), kResultNoK5f);
        case kShellProject:
            return CheckShellInitialStrain(run);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckInsertFlowPressure(Run& run) {
    const bool hasFile = LookFor(run, ".k5f");
    if (HasFlag(run, Info::kHasInsertedPart)) {
        // Says "no insert" without the file too: deliberate.
        return AvailableOr(hasFile, kResultNoInsert);
    }
    return hasFile ? kResultNoInsert : kResultNoInsertNorK5f;
}

ResultCode CheckMoldbasePressure(Run& run) {
    if (!LookFor(run, ".k5f")) {
        return kResultNoMoldbaseNorK5f;  // even when the project has a moldbase: deliberate
    }
    return CheckMoldbase(run);
}

ResultCode CheckMoldbaseTemperature(Run& run) {
    const bool hasFile = LookFor(run, ".k5c");
    if (HasFlag(run, Info::kHasMoldbase)) {
        return AvailableOr(hasFile, kResultNoK5c);
    }
    return hasFile ? kResultNoMoldbase : kResultNoMoldbaseNorK5c;
}

bool IsInjectionCompressionProject(const Run& run) {
    constexpr auto types = std::to_array<std::int32_t>({4, 6, 7, 8, 9, 10, 11});
    return std::ranges::find(types, run.info.projectType) != types.end();
}

ResultCode CheckSolidPackingTemperature(Run& run) {
    if (LookFor(run, ".k5p")) {
        return kResultAvailable;
    }
    if (!IsInjectionCompressionProject(run)) {
        return kResultNoK5p;
    }
    platform::Trace(L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file");
    if (LookFor(run, ".k5f")) {
        return kResultAvailable;
    }
    platform::Trace(L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5f file");
    return kResultNoK5p;
}

ResultCode CheckPackingTemperature(Run& run) {
    switch (run.info.solverType) {
        case kSolidProject:
            return CheckSolidPackingTemperature(run);
        case kShellProject:
            return AvailableOr(ShellResults(run).Any(), kResultNoK5p);
        default:
            return kResultAvailable;
    }
}

ResultCode CheckEndOfCoolingTemperature(Run& run) {
    const bool isSolid = run.info.solverType == kSolidProject;
    return AvailableOr(isSolid ? LookFor(run, ".k5c") : LookFor(run, ".rsc"), kResultNoK5c);
}

ResultCode CheckDigimatExport(Run& run) {
    return run.info.solverType == kShellProject ? CheckFiberOrientation(run) : kResultAvailable;
}

ResultCode CheckInsertFiberMaterial(Run& run) {
    ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    if (run.flagPrevShot != 1) {
        platform::Trace(L"@@@ I2Engine .cmx file FlagPrevShot=0");
        return kResultNoInsertFiberResults;
    }
    platform::Trace(L"@@@ I2Engine .cmx file FlagPrevShot=1");
    if (PreviousShotFileExists(run.info, run.valueShotRunID, ".k5o")) {
        return kResultAvailable;
    }
    platform::Trace(L"@@@ I2Engine does not have .k5o file");
    return kResultNoInsertFiberResults;
}

ResultCode CheckDensity(Run& run) {
    return AvailableOr(LookFor(run, ".k5f"), kResultNoK5f);
}

ResultCode CheckWeldLine(Run& run) {
    if (!LookFor(run, ".k5f")) {
        return kResultNoK5f;
    }
    return AvailableOr(HasFlag(run, Info::kHasMeetingAngle), kResultNoMeetingAngle);
}

ResultCode CheckDigimatFiber(Run& run) {
    const bool hasCrp = LookFor(run, ".crp");
    const bool hasK5o = LookFor(run, ".k5o");
    const bool hasRso = run.info.solverType == kShellProject && LookFor(run, ".rso");
    if (hasCrp || hasK5o) {
        return kResultAvailable;
    }
    return hasRso ? kResultNoDigimatInformation : kResultNoMediCrp;
}

ResultCode CheckDigimatStress(Run& run) {
    return AvailableOr(LookFor(run, ".rsf") || LookFor(run, ".k5w"), kResultNeitherRsfNorK5w);
}

ResultCode CheckDigimatTemperature(Run& run) {
    return AvailableOr(LookFor(run, ".k5p") || LookFor(run, ".k5c"), kResultNeitherK5pNorK5c);
}

ResultCode CheckAnnealingStress(Run& run) {
    return AvailableOr(LookFor(run, ".k5s"), kResultNoK5s);
}

ResultCode NoCheck(Run& /*run*/) {
    return kResultNoCheck;
}

struct ItemCheck {
    std::int32_t itemId;
    ResultCode (*check)(Run& run);
};

constexpr auto itemChecks = std::to_array<ItemCheck>({
    {kItemFiberOrientation, CheckFiberOrientation},
    {kItemRunner, CheckRunners},
    {kItemMoldbaseMesh, CheckMoldbase},
    {kItemFlowInducedStress, CheckFlowInducedStress},
    {kItemThermalStress, CheckThermalStress},
    {kItemInitialStrain, CheckInitialStrain},
    {kItemInsertFlowPressure, CheckInsertFlowPressure},
    {kItemMoldbasePressure, CheckMoldbasePressure},
    {kItemPackingTemperature, CheckPackingTemperature},
    {kItemEndOfCoolingTemperature, CheckEndOfCoolingTemperature},
    {kItemMoldbaseTemperature, CheckMoldbaseTemperature},
    {kItemDigimatExport, CheckDigimatExport},
    {kItemInsertFiberMaterial, CheckInsertFiberMaterial},
    {kItemDensity, CheckDensity},
    {kItemWeldLine, CheckWeldLine},
    {kItemMicroMechanics, CheckFiberOrientation},
    {kItemDigimatWeldLine, CheckWeldLine},
    {kItemDigimatMucell, NoCheck},
    {kItemDigimatFiber, CheckDigimatFiber},
    {kItemDigimatStress, CheckDigimatStress},
    {kItemDigimatTemperature, CheckDigimatTemperature},
    {kItemAnnealingStress, CheckAnnealingStress},
});

constexpr bool EachItemHasItsCheck() {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        if (itemChecks[itemId].itemId != itemId) {
            return false;
        }
    }
    return itemChecks.size() == kItemCount;
}
static_assert(EachItemHasItsCheck());

}  // namespace

ResultCode CheckResults(Run& run, std::int32_t itemId) {
    const auto row = static_cast<std::uint32_t>(itemId);
    return row < itemChecks.size() ? itemChecks[row].check(run) : kResultNoCheck;
}

}  // namespace results
