#include "Session.h"

#include <algorithm>
#include <new>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>

#include "HostPlatform.h"
#include "Paths.h"

namespace host {

namespace {

using Manager = CZorbI2EngineManager;
using Info = CZorbFEAInformation;

const Vocabulary switchWords = {{0, "off"}, {1, "on"}, {0, "false"}, {1, "true"}};

/// What the recipe asks for, as the file prints it.
ControlFile AskedBy(const Recipe& recipe) {
    const auto flag = [](bool isOn) { return std::string(isOn ? "1" : "0"); };
    ControlFile asked = {
        {"SolverName", NameOf(recipe.solver, solverKeywords)},
        {"SolverType", std::to_string(recipe.project.solverType)},
        {"ProjectType", std::to_string(recipe.project.projectType)},
        {"QuadraticElement", flag(recipe.quadraticElements)},
        {"IsOriginalMesh", flag(recipe.meshKind == kMeshOriginal)},
        {"IsMappedMesh", flag(recipe.meshKind == kMeshMapped)},
        {"Is3DMappingShell", flag(recipe.meshKind == kMesh3DMappingShell)},
        {"OutFolder", recipe.outFolder},
        {"MapFile", recipe.meshKind < kMeshMapped ? " " : recipe.mappedMesh},
        {"IsViewEditModelMapping", flag(recipe.project.flags[Info::kViewEditAtStart] != 0)}};
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
    Info project = recipe.project;
    project.flags[Info::kBuildCatalogue] = 1;
    project.projectName = ForEngine(project.projectName);
    project.projectFolder = ForEngine(project.projectFolder);
    if (!manager_.CreateEngine(&project) || !manager_.CreateCMIDataBlock() ||
        !manager_.CreateCMIAccess()) {
        throw std::bad_alloc();
    }
}

std::vector<const SolverSlot*> Session::Solvers() const {
    std::vector<const SolverSlot*> solvers;
    for (const auto& slot : Engine().solverSlots) {
        if (slot) {
            solvers.push_back(slot.get());
        }
    }
    return solvers;
}

const std::vector<OfferedItem>& Session::Offer(std::int32_t solver, std::int32_t meshKind) {
    constexpr bool (Manager::*groups[])(int, CZorbI2Item*, CZorbI2ItemStatus*) = {
        &Manager::GetPartPopItem, &Manager::GetPartInsertPopItem, &Manager::GetMoldBasePopItem};
    manager_.SetEngineCurrentStatus(solver, meshKind, recipe_.quadraticElements ? 1 : 0,
                                    recipe_.annealing ? 1 : 0);
    manager_.SetPopItems();
    manager_.HasPopItem();
    offered_.clear();
    OfferedItem next;
    for (const auto getItem : groups) {
        for (int position = 0; (manager_.*getItem)(position, &next.item, &next.status);
             ++position) {
            offered_.push_back(next);
        }
        ++next.group;
    }
    return offered_;
}

const OfferedItem* Session::FindOffered(std::int32_t itemId) const {
    const auto found = std::ranges::find_if(
        offered_, [itemId](const OfferedItem& offered) { return offered.item.itemId == itemId; });
    return found != offered_.end() ? &*found : nullptr;
}

void Session::CheckTarget(Problems& problems) const {
    const auto refuse = [&](const char* key, const std::string& text) {
        problems.emplace_back(recipe_.PlaceOf(key), text, ExitCode::notAvailable);
    };
    const SolverSlot* slot = Engine().solverSlots[recipe_.solver].get();
    if (slot == nullptr) {
        Vocabulary offered;
        for (const SolverSlot* other : Solvers()) {
            offered.emplace_back(other->solverIndex, other->name);
        }
        return refuse("target.solver",
                      Quoted(NameOf(recipe_.solver, solverKeywords)) +
                          " is not offered for this project, only: " + Listed(offered));
    }
    if (!Offers(*slot, recipe_.meshKind)) {
        refuse("target.mesh", Quoted(NameOf(recipe_.meshKind, meshKinds)) + " is not offered for " +
                                  slot->name +
                                  " in this project, only: " + Listed(slot->meshTypes));
    }
    if (recipe_.quadraticElements && slot->elementTypes.size() == 1) {
        refuse("target.quadratic_elements",
               slot->name + " is offered in this project only with: " + slot->elementTypes[0]);
    }
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
    Problems problems;
    CheckTarget(problems);
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
    manager_.SetCMIFileFullPath(ForEngine(Utf8Of(folder)), ForEngine(recipe_.controlName),
                                recipe_.project.runNumber, ForEngine(extension));
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

Names AskNames() {
    const Recipe noProject;  // the names are the same for all
    const Session session(noProject);
    Names names{shortNames, {}};
    for (const auto& item : session.Engine().items) {
        if (!item->title.empty()) {
            names.items.emplace_back(item->itemId, item->title);
        }
    }
    for (const SolverSlot* slot : session.Solvers()) {
        names.solvers.emplace_back(slot->solverIndex, slot->name);
    }
    for (const auto& keyword : solverKeywords) {
        if (!Find(keyword.second, names.solvers)) {
            names.solvers.push_back(keyword);
        }
    }
    return names;
}

bool Offers(const SolverSlot& slot, std::int32_t meshKind) {
    return std::ranges::any_of(slot.meshTypes, [meshKind](const std::string& label) {
        return Find(label, meshKinds) == meshKind;
    });
}

std::filesystem::path ControlFilePath(const Recipe& recipe) {
    Info bare;
    Manager manager;
    manager.CreateEngine(&bare);
    manager.CreateCMIAccess();
    manager.SetCMIFileFullPath(ForEngine(recipe.controlFolder), ForEngine(recipe.controlName),
                               recipe.project.runNumber, ForEngine(recipe.controlExtension));
    return PathOfAny(FromEngineText(manager.engine->cmiFileFullPath));
}

}  // namespace host
