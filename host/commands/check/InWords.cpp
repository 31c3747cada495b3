#include "commands/check/InWords.h"

#include <iterator>

#include <zorbi2/ZorbI2Types.h>

#include "problems/VisibleText.h"
#include "recipes/Names.h"

namespace host {

namespace {

std::string ItemsWith(const char* flag, const ControlFile& file) {
    Vocabulary items;
    for (const auto& [itemId, key] : itemKeys) {
        if (file.contains(key) && file.at(key) == flag) {
            items.emplace_back(itemId, NameOf(itemId, shortNames));
        }
    }
    return items.empty() ? "none" : Listed(WordsOf(items));
}

std::string ProjectOf(const ControlFile& file) {
    const std::string& solverType = file.at("SolverType");
    return (solverType == std::to_string(kSolidProject)   ? "solid"
            : solverType == std::to_string(kShellProject) ? "shell"
                                                          : "solver type " + solverType) +
           (", type " + file.at("ProjectType"));
}

/// The values of keys that differ in one character: "80 x 80 x 80".
std::string Product(const ControlFile& file, const std::string& before, const std::string& axes,
                    const std::string& after) {
    std::string words;
    for (const char axis : axes) {
        std::string key = before;
        key.append(1, axis).append(after);
        words.append(words.empty() ? "" : " x ").append(file.at(key));
    }
    return words;
}

/// The material reduction that a section describes.
std::string ReductionOf(const ControlFile& file, const std::string& section) {
    return "angle segments " + Product(file, section + " FiberTheta", "XYZ", "Segment") +
           ", strength segments " + Product(file, section + " FiberStrength", "XY", "Segment");
}

std::string WeldLinesOf(const ControlFile& file) {
    std::string words;
    for (const int range : {1, 2, 3}) {
        words += file.at(RateKey(range)) + " at " + file.at(AngleKey(range)) + " degrees, ";
    }
    return words + "Digimat " + file.at(digimatAngleKey) + " degrees";
}

}  // namespace

std::string MeshOf(const ControlFile& file) {
    if (IsAnnealedMesh(file)) {
        return "deformed after annealing";
    }
    const std::optional<std::int32_t> kind = MeshKindOf(file);
    return kind ? NameOf(*kind, meshKinds) : "none";
}

std::string CompositeModelOf(const ControlFile& file) {
    const int model = std::stoi(file.at("IDCompositeModel"));
    return model == kOptionResultsMissing ? "results missing"
           : model < static_cast<int>(std::size(compositeModels))
               ? compositeModels[model]
               : "model " + std::to_string(model);
}

Json InWords(const ControlFile& file) {
    const auto onOff = [&file](const char* key) { return IsOn(file, key) ? "on" : "off"; };
    const auto when = [&file](const char* flag, const std::string& words) {
        return IsOn(file, flag) ? words : "off";
    };
    const std::string elements = IsOn(file, "QuadraticElement") ? "quadratic" : "linear";
    return {
        {"Solver", file.at("SolverName").empty() ? "none" : file.at("SolverName")},
        {"Mesh", MeshOf(file) + ", " + elements + " elements"},
        {"Annealing", onOff(annealedMeshKey)},
        {"Mapped mesh", file.at("MapFile") == " " ? "none" : Quoted(file.at("MapFile"))},
        {"Map domain", "segments " + Product(file, "[MAP DOMAIN] Segment", "XYZ", "")},
        {"Output folder", Quoted(file.at("OutFolder"))},
        {"Project", ProjectOf(file)},
        {"Items on", ItemsWith("1", file)},
        {"Items off", ItemsWith("0", file)},
        {"Micro mechanics", CompositeModelOf(file)},
        {"Fiber reduction",
         when("IsDoMaterialReduction", ReductionOf(file, "[MATERIAL REDUCTION]"))},
        {"Insert reduction", when("IsPartInsertMaterialReduction",
                                  ReductionOf(file, "[PARTINSERT MATERIAL REDUCTION]"))},
        {"Density reduction",
         when("IsDoDensityReduction", "factor " + file.at("[DENSITY REDUCTION] DensityReduction"))},
        {"Distributed model", onOff("IsDistributeModel")},
        {"View-edit mapping", onOff("IsViewEditModelMapping")},
        {"Weld lines", WeldLinesOf(file)},
    };
}

}  // namespace host
