// The command "check": reads control parameter files from disk and reports their faults.
#include <algorithm>

#include <zorbi2/ZorbI2Types.h>

#include "Commands.h"
#include "ControlFile.h"
#include "HostPlatform.h"
#include "Names.h"
#include "Paths.h"
#include "Report.h"

namespace host {

namespace {

const Vocabulary compositeModels = {{kOptionResultsMissing, "results missing"},
                                    {0, "traditional"},
                                    {1, "Halpin-Tsai"},
                                    {2, "Mori-Tanaka"}};

std::string ItemsWith(const char* flag, const ControlFile& file) {
    Vocabulary items;
    for (const auto& [itemId, key] : itemKeys) {
        if (file.contains(key) && file.at(key) == flag) {
            items.emplace_back(itemId, NameOf(itemId, shortNames));
        }
    }
    return items.empty() ? "none" : Listed(items);
}

std::string MeshOf(const ControlFile& file) {
    const char* const keys[] = {"IsOriginalMesh", "IsDeformedMesh", "IsMappedMesh",
                                "Is3DMappingShell"};
    const auto isOn = [&file](const char* key) { return file.at(key) == "1"; };
    const auto kind = std::ranges::find_if(keys, isOn) - std::begin(keys);
    return IsAnnealedMesh(file) ? "deformed after annealing" : meshKinds.at(kind).second;
}

std::string WeldLinesOf(const ControlFile& file) {
    std::string words;
    for (int number = 1; number <= 3; ++number) {  // angle 1 is always 0
        words += file.at("[REDUCTION RATE] ReductionRate" + std::to_string(number)) + " at " +
                 file.at("[WELDLINE ANGLE] WeldlineAngle" + std::to_string(number + 1)) +
                 " degrees, ";
    }
    return words + "Digimat " + file.at("[DIGIMAT WELDLINE ANGLE] WeldlineAngle") + " degrees";
}

/// What a file asks for: labels, and words for them.
Json InWords(const ControlFile& file) {
    const auto isOn = [&file](const char* key) {
        return file.contains(key) && file.at(key) == "1";
    };
    const auto onOff = [isOn](const char* key) { return isOn(key) ? "on" : "off"; };
    const auto when = [&](const char* flag, const std::string& unit, const char* key) {
        return isOn(flag) ? unit + file.at(key) : "off";
    };
    return {
        {"Solver", file.at("SolverName").empty() ? "none" : file.at("SolverName")},
        {"Mesh",
         MeshOf(file) + (isOn("QuadraticElement") ? ", quadratic" : ", linear") + " elements"},
        {"Mapped mesh", file.at("MapFile") == " " ? "none" : Quoted(file.at("MapFile"))},
        {"Output folder", Quoted(file.at("OutFolder"))},
        {"Project",
         (isOn("SolverType") ? "shell, type " : "solid, type ") + file.at("ProjectType")},
        {"Items on", ItemsWith("1", file)},
        {"Items off", ItemsWith("0", file)},
        {"Micro mechanics", NameOf(std::stoi(file.at("IDCompositeModel")), compositeModels)},
        {"Fiber reduction", when("IsDoMaterialReduction", "angle segments ",
                                 "[MATERIAL REDUCTION] FiberThetaXSegment")},
        {"Insert reduction", when("IsPartInsertMaterialReduction", "angle segments ",
                                  "[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment")},
        {"Density reduction",
         when("IsDoDensityReduction", "factor ", "[DENSITY REDUCTION] DensityReduction")},
        {"Distributed model", onOff("IsDistributeModel")},
        {"View-edit mapping", onOff("IsViewEditModelMapping")},
        {"Weld lines", WeldLinesOf(file)},
    };
}

void PrintWords(const ControlFile& file, Terminal& terminal) {
    constexpr std::size_t column = 21;
    const Json lines = InWords(file);
    for (const auto& [label, value] : lines.items()) {
        const auto words = value.get<std::string>();
        const bool isPath = words.starts_with('"');
        terminal.out << Padded("  " + label + ":", column)
                     << (isPath ? words : Wrapped(words, terminal.columns - column, column))
                     << '\n';
    }
}

}  // namespace

ExitCode RunCheck(const Options& options, Terminal& terminal) {
    Problems problems;
    Json list = Json::array();
    std::size_t fine = 0;
    for (const std::string& name : options.files) {
        Json entry = {{"file", name}, {"ok", false}, {"asks", nullptr}};
        try {
            const ControlFile file =
                ReadControlFile(name, FromEngineText(ReadFile(PathOf(name), {name})));
            (options.show ? terminal.out : terminal.news) << name << ": no faults\n";
            if (options.show) {
                PrintWords(file, terminal);
            }
            entry.update({{"ok", true}, {"asks", InWords(file)}});
            ++fine;
        } catch (const Problems& faults) {
            problems.insert(problems.end(), faults.begin(), faults.end());
        }
        list.push_back(std::move(entry));
    }
    const ExitCode code = Report(problems, options, {{"files", list}});
    if (options.files.size() > 1) {
        terminal.news << fine << " of " << options.files.size() << " files without faults\n";
    }
    return code;
}

}  // namespace host
