#include "commands/check/OfferCheck.h"

#include <algorithm>
#include <iterator>

#include <zorbi2/ZorbI2Types.h>

#include "problems/VisibleText.h"
#include "recipes/Names.h"

namespace host {

namespace {

constexpr std::int32_t noSolver = -1;
constexpr std::int32_t noMeshKind = kMesh3DMappingShell + 1;

Status StatusOf(const ControlFile& file) {
    return {Find(file.at("SolverName"), solverKeywords).value_or(noSolver),
            IsAnnealedMesh(file) ? kMeshDeformed : MeshKindOf(file).value_or(noMeshKind),
            IsOn(file, annealedMeshKey) ? kAnnealingDeformedMesh : 0};
}

ItemIds ItemsIn(const ControlFile& file) {
    ItemIds items;
    for (const auto& [itemId, key] : itemKeys) {
        if (file.contains(key)) {
            items.insert(itemId);
        }
    }
    return items;
}

ItemIds Difference(const ItemIds& left, const ItemIds& right) {
    ItemIds difference;
    std::ranges::set_symmetric_difference(left, right, std::inserter(difference, difference.end()));
    return difference;
}

bool HasMeshKind(const Status& status) {
    return status.meshKind != noMeshKind;
}

std::string TargetInWords(const Status& status) {
    return NameOf(status.solver, solverKeywords) +
           (HasMeshKind(status) ? " with mesh kind " + Quoted(NameOf(status.meshKind, meshKinds))
                                : " without a mesh kind") +
           (status.annealingMode == kAnnealingDeformedMesh ? " and annealing" : "");
}

/// One file, held against what its project kind offers.
class FileCheck {
public:
    FileCheck(const std::string& name, std::string_view text, const ControlFile& file,
              ProjectKind& kind)
        : name_(name), text_(text), file_(file), kind_(kind), status_(StatusOf(file)) {}

    Problems Check() {
        CheckSolver();
        CheckAnnealing();
        CheckItems();
        SortByLine(problems_);
        return std::move(problems_);
    }

private:
    void Add(const std::string& key, const std::string& message) {
        problems_.emplace_back(Place{name_, LineOf(text_, key)}, message, ExitCode::notAvailable);
    }

    void Warn(const std::string& key, const std::string& message) {
        problems_.push_back(Warning({name_, LineOf(text_, key)}, message, ExitCode::notAvailable));
    }

    std::string KindInWords() const {
        const std::string& solverType = file_.at("SolverType");
        return (solverType == std::to_string(kSolidProject)   ? "a solid project"
                : solverType == std::to_string(kShellProject) ? "a shell project"
                                                              : "a project of another kind") +
               (" of type " + file_.at("ProjectType"));
    }

    void CheckSolver() {
        if (status_.solver == noSolver) {
            Warn("SolverName", "the file names no solver");
        } else if (!kind_.OffersSolver(status_.solver)) {
            Warn("SolverName", file_.at("SolverName") + " is not offered for " + KindInWords());
        } else if (!HasMeshKind(status_)) {
            Warn(meshKeys[kMeshOriginal], "no mesh kind is 1");
        } else if (!kind_.OffersMesh(status_.solver, status_.meshKind)) {
            Warn(meshKeys[status_.meshKind],
                 "mesh kind " + Quoted(NameOf(status_.meshKind, meshKinds)) +
                     " is not offered for " + file_.at("SolverName") + " in " + KindInWords());
        }
    }

    void CheckAnnealing() {
        if (IsOn(file_, annealedMeshKey) && !IsAnnealedMesh(file_)) {
            Warn(annealedMeshKey,
                 Quoted(annealedMeshKey) +
                     " has no effect: it applies only to the deformed mesh in projects of "
                     "type " +
                     std::to_string(kProjectTypeAnnealing));
        }
    }

    void CheckItems() {
        const ItemIds found = ItemsIn(file_);
        const ItemIds offered = kind_.OfferedFor(status_);
        if (found == offered) {
            return;
        }
        if (found.empty()) {
            return Warn("SolverName",
                        "no item has a line, although items are offered for " + Offer());
        }
        if (const auto other = kind_.StatusWith(found)) {
            return Warn("SolverName", "the item lines are those of " + TargetInWords(*other) +
                                          ", not those of " + Offer());
        }
        TellDifference(found, offered);
    }

    void TellDifference(const ItemIds& found, const ItemIds& offer) {
        for (const std::int32_t itemId : Difference(found, offer)) {
            const std::string key = NameOf(itemId, itemKeys);
            if (!found.contains(itemId)) {
                Warn(key, Quoted(key) + " has no line, but the item is offered for " + Offer());
            } else if (kind_.OffersItem(itemId)) {
                Warn(key, Quoted(key) + " has a line, but the item is not offered for " + Offer());
            } else {
                Add(key,
                    Quoted(key) + " has a line, but the item is never offered in " + KindInWords());
            }
        }
    }

    std::string Offer() const {
        return status_.solver == noSolver ? "a file without a solver"
                                          : TargetInWords(status_) + " in " + KindInWords();
    }

    const std::string& name_;
    std::string_view text_;
    const ControlFile& file_;
    ProjectKind& kind_;
    Status status_;
    Problems problems_;
};

}  // namespace

Problems OfferCheck::Check(const std::string& name, std::string_view text,
                           const ControlFile& file) {
    const int solverType = std::stoi(file.at("SolverType"));
    const int projectType = std::stoi(file.at("ProjectType"));
    ProjectKind& kind =
        kinds_.try_emplace({solverType, projectType}, solverType, projectType).first->second;
    return FileCheck(name, text, file, kind).Check();
}

}  // namespace host
