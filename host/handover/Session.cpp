#include "handover/Session.h"

#include <algorithm>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "handover/AskedFor.h"
#include "handover/Engine.h"
#include "handover/RunFolder.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

const Vocabulary switchWords = {{0, "off"}, {1, "on"}, {0, "false"}, {1, "true"}};

}  // namespace

Session::Session(const Recipe& recipe) : recipe_(recipe) {
    CheckFilesOfRun(recipe);
    const int shotFileNumber = NextFileNumber();
    CreateEngine(manager_, recipe.project);
    CheckShotFileWasRead(recipe, shotFileNumber);
    CheckMissingResults();
}

/// What the engine cannot test or open for want of memory, or for a fault of the disk, it takes for
/// missing. Not the earlier shot's, for which it would leave another file open.
void Session::CheckMissingResults() {
    const NoTraceLines quiet;
    for (const auto& item : Engine().items) {
        if (!item->isAvailable && item->itemId != kItemInsertFiberMaterial &&
            manager_.GetProjectResults(item->itemId) == kResultAvailable) {
            Fail(recipe_.PlaceOf("project.folder"),
                 NameOf(item->itemId, shortNames) +
                     ": its results exist but were not found at first",
                 ExitCode::fileTrouble);
        }
    }
    RemoveDebugFiles();
}

std::vector<OfferedItem> Session::Offer(std::int32_t solver, std::int32_t meshKind) {
    manager_.SetEngineCurrentStatus(solver, meshKind, recipe_.quadraticElements ? 1 : 0,
                                    recipe_.annealing ? kAnnealingDeformedMesh : 0);
    return AskOfferedItems(manager_);
}

void Session::Choose(const Choice& choice, Problems& problems) {
    const auto refuse = [&](const std::string& text, ExitCode code) {
        problems.emplace_back(choice.place, text, code);
        refused_.insert(choice.itemId);
    };
    const auto offered = std::ranges::find(offered_, choice.itemId, &OfferedItem::Id);
    if (offered == offered_.end() || offered->IsMissing()) {
        return refuse(ReasonAgainst(choice.itemId), ExitCode::notAvailable);
    }
    const auto& options = offered->item.options;
    const Vocabulary words =
        offered->IsSwitch() ? switchWords : Vocabulary(options.begin(), options.end());
    const std::optional<std::int32_t> number = Find(choice.value, words);
    if (!number) {
        refuse(Quoted(choice.value) + " is not one of: " + Listed(WordsOf(words)),
               ExitCode::badUsage);
    } else if (!manager_.SetItemStatus(choice.itemId, *number, *number)) {
        refuse("the engine refuses " + Quoted(choice.value), ExitCode::notAvailable);
    } else {
        (offered->IsSwitch() ? offered->status.checkState : offered->status.optionValue) = *number;
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

void Session::CheckRequired(Problems& problems) const {
    for (const auto& [place, itemId, noValue] : recipe_.required) {
        if (!IsOn(asked_, NameOf(itemId, itemKeys)) && !refused_.contains(itemId)) {
            problems.emplace_back(
                place, NameOf(itemId, shortNames) + " would not be on: " + ReasonAgainst(itemId),
                ExitCode::notAvailable);
        }
    }
}

void Session::WarnOfNothing(Problems& problems) const {
    const bool isAnyOn =
        std::ranges::any_of(itemKeys, [this](const auto& key) { return IsOn(asked_, key.second); });
    // Two items are available without results.
    const bool hasResults = std::ranges::any_of(Engine().items, [](const auto& item) {
        return item->isAvailable && item->itemId != kItemDigimatExport &&
               item->itemId != kItemDigimatMucell;
    });
    if (!isAnyOn && !recipe_.emptyRun) {
        problems.push_back(Warning({recipe_.file}, "no item is on: nothing is handed over",
                                   ExitCode::notAvailable));
    }
    if (!hasResults && !recipe_.emptyRun) {
        problems.push_back(Warning(recipe_.PlaceOf("project.folder"),
                                   "the results of every item are missing",
                                   ExitCode::notAvailable));
    }
}

Problems Session::ApplyRecipe() {
    Problems problems = CheckTarget(recipe_, Engine());
    if (!problems.empty()) {
        return problems;
    }
    offered_ = Offer(recipe_.solver, recipe_.meshKind);
    for (const Choice& choice : recipe_.choices) {
        Choose(choice, problems);
    }
    manager_.SetItemsValue();
    SetWeldLines();
    asked_ = AskedFor(recipe_, offered_, Engine().items);
    CheckRequired(problems);
    if (!HasErrors(problems)) {
        WarnOfNothing(problems);
        if (recipe_.project.flags[CZorbFEAInformation::kHasInsertedPart] != 0 &&
            !Engine().items[kItemInsertFiberMaterial]->isAvailable) {
            WarnOfClosedRuns(recipe_, problems);
        }
        WarnOfCase(recipe_, problems);
    }
    SortByLine(problems);
    return problems;
}

void Session::Write() {
    manager_.SetOutFolder(ForEngine(recipe_.outFolder));
    manager_.SetMappedMeshFilePath(ForEngine(recipe_.mappedMesh));
    SetControlFile(manager_, recipe_, ".");
    manager_.WriteCMIFile(0);
}

std::string Session::ReasonAgainst(std::int32_t itemId) const {
    const OfferedItem* offered = FindItem(offered_, itemId);
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
