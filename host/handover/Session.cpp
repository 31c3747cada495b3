#include "handover/Session.h"

#include <algorithm>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "handover/Engine.h"
#include "system/Paths.h"

namespace host {

namespace {

const Vocabulary switchWords = {{0, "off"}, {1, "on"}, {0, "false"}, {1, "true"}};

/// What the recipe asks for, as the file prints it.
ControlFile AskedBy(const Recipe& recipe) {
    const auto flag = [](bool isOn) { return std::string(isOn ? "1" : "0"); };
    ControlFile asked = {
        {"SolverName", NameOf(recipe.solver, solverKeywords)},
        {"SolverType", std::to_string(recipe.project.solverType)},
        {"ProjectType", std::to_string(recipe.project.projectType)},
        {"QuadraticElement", flag(recipe.quadraticElements)},
        {meshKeys[kMeshOriginal], flag(recipe.meshKind == kMeshOriginal)},
        {meshKeys[kMeshMapped], flag(recipe.meshKind == kMeshMapped)},
        {meshKeys[kMesh3DMappingShell], flag(recipe.meshKind == kMesh3DMappingShell)},
        {"OutFolder", recipe.outFolder},
        {"MapFile", recipe.meshKind < kMeshMapped ? " " : recipe.mappedMesh},
        {"IsViewEditModelMapping",
         flag(recipe.project.flags[CZorbFEAInformation::kViewEditAtStart] != 0)}};
    for (std::size_t i = 0; i < recipe.weldlineAngles.size(); ++i) {
        asked["[WELDLINE ANGLE] WeldlineAngle" + std::to_string(i + 2)] =
            Printed(recipe.weldlineAngles[i]);
    }
    for (std::size_t i = 0; i < recipe.reductionRates.size(); ++i) {
        asked["[REDUCTION RATE] ReductionRate" + std::to_string(i + 1)] =
            Printed(recipe.reductionRates[i]);
    }
    if (recipe.digimatAngle) {
        asked["[DIGIMAT WELDLINE ANGLE] WeldlineAngle"] = Printed(*recipe.digimatAngle);
    }
    return asked;
}

}  // namespace

Session::Session(const Recipe& recipe) : recipe_(recipe) {
    CreateEngine(manager_, recipe.project);
}

const std::vector<OfferedItem>& Session::Offer(std::int32_t solver, std::int32_t meshKind) {
    manager_.SetEngineCurrentStatus(solver, meshKind, recipe_.quadraticElements ? 1 : 0,
                                    recipe_.annealing ? kAnnealingDeformedMesh : 0);
    offered_ = AskOfferedItems(manager_);
    return offered_;
}

const OfferedItem* Session::FindOffered(std::int32_t itemId) const {
    const auto found = std::ranges::find_if(
        offered_, [itemId](const OfferedItem& offered) { return offered.item.itemId == itemId; });
    return found != offered_.end() ? &*found : nullptr;
}

void Session::Choose(const Choice& choice, Problems& problems) {
    const auto refuse = [&](const std::string& text, ExitCode code) {
        problems.emplace_back(choice.place, text, code);
    };
    const OfferedItem* offered = FindOffered(choice.itemId);
    if (offered == nullptr || offered->IsMissing()) {
        return refuse(ReasonAgainst(choice.itemId), ExitCode::notAvailable);
    }
    const auto& options = offered->item.options;
    const Vocabulary words =
        offered->IsSwitch() ? switchWords : Vocabulary(options.begin(), options.end());
    const std::optional<std::int32_t> number = Find(choice.value, words);
    if (!number) {
        refuse(Quoted(choice.value) + " is not one of: " + Listed(words), ExitCode::badUsage);
    } else if (!manager_.SetItemStatus(choice.itemId, *number, *number)) {
        refuse("the engine refuses " + Quoted(choice.value), ExitCode::notAvailable);
    }
}

void Session::SetWeldLines() {
    CZorbI2WeldlineDataStatus record;
    manager_.GetWeldlinePopData(recipe_.solver, &record);
    std::ranges::copy(recipe_.weldlineAngles, record.WeldlineAngles.begin());
    std::ranges::copy(recipe_.reductionRates, record.ReductionRates.begin());
    manager_.SetWeldlineDataStatus(recipe_.solver, record.WeldlineAngles, record.ReductionRates);
    manager_.SetWeldlineDataValue();
    if (recipe_.digimatAngle) {
        manager_.SetDigimatWeldlineData(*recipe_.digimatAngle);
    }
}

Problems Session::ApplyRecipe() {
    Problems problems = CheckTarget(recipe_, Engine());
    if (!problems.empty()) {
        return problems;
    }
    Offer(recipe_.solver, recipe_.meshKind);
    for (const Choice& choice : recipe_.choices) {
        Choose(choice, problems);
    }
    manager_.SetItemsValue();
    SetWeldLines();
    Offer(recipe_.solver, recipe_.meshKind);  // now with the choices
    return problems;
}

ControlFile Session::Write(const std::filesystem::path& folder, const std::string& extension) {
    manager_.SetOutFolder(ForEngine(recipe_.outFolder));
    manager_.SetMappedMeshFilePath(ForEngine(recipe_.mappedMesh));
    SetControlFile(manager_, recipe_, Utf8Of(folder), extension);
    manager_.WriteCMIFile(0);
    ControlFile asked = AskedBy(recipe_);
    const auto& flags = manager_.GetZorbCMIData()->OutputFlags;
    for (const auto& [itemId, key] : itemKeys) {
        if (FindOffered(itemId) != nullptr) {
            asked[key] = std::to_string(flags[itemId]);
        }
    }
    return asked;
}

std::string Session::ReasonAgainst(std::int32_t itemId) const {
    const OfferedItem* offered = FindOffered(itemId);
    if (offered == nullptr) {
        return "not offered for " + Engine().solverSlots[recipe_.solver]->name +
               " with mesh kind " + Quoted(NameOf(recipe_.meshKind, meshKinds));
    }
    if (offered->IsMissing()) {
        return "results missing: " + offered->Label();
    }
    return "the choice is " + Quoted(offered->IsSwitch() ? "off" : offered->Label());
}

}  // namespace host
