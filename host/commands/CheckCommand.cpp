// The command "check": reads control parameter files from disk and reports their faults.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include <zorbi2/ZorbI2Types.h>

#include "commands/Commands.h"
#include "console/Report.h"
#include "control_files/ControlFile.h"
#include "recipes/Names.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

namespace {

struct CheckOptions {
    std::vector<std::string> files;
    bool show = false;
};

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
    const auto isOn = [&file](const char* key) { return IsOn(file, key); };
    const auto kind = std::ranges::find_if(meshKeys, isOn) - std::begin(meshKeys);
    return IsAnnealedMesh(file) ? "deformed after annealing" : meshKinds.at(kind).second;
}

std::string CompositeModelOf(const ControlFile& file) {
    const int model = std::stoi(file.at("IDCompositeModel"));
    return model == kOptionResultsMissing ? "results missing" : compositeModels[model];
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
    const auto isOn = [&file](const char* key) { return IsOn(file, key); };
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
        {"Micro mechanics", CompositeModelOf(file)},
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

/// Reads one file and says whether it is fine. Throws its faults.
Json CheckFile(const std::string& name, bool show, Terminal& terminal) {
    const ControlFile file = ReadControlFile(name, FromEngineText(ReadFile(PathOf(name), {name})));
    (show ? terminal.out : terminal.news) << name << ": no faults\n";
    if (show) {
        PrintWords(file, terminal);
    }
    return {{"file", name}, {"ok", true}, {"asks", InWords(file)}};
}

ExitCode RunCheck(const CheckOptions& options, Terminal& terminal) {
    Problems problems;
    Json list = Json::array();
    std::size_t fine = 0;
    for (const std::string& name : options.files) {
        try {
            list.push_back(CheckFile(name, options.show, terminal));
            ++fine;
        } catch (const Failure& failure) {
            problems.insert(problems.end(), failure.List().begin(), failure.List().end());
            list.push_back({{"file", name}, {"ok", false}, {"asks", nullptr}});
        }
    }
    const ExitCode code = Report(problems, terminal.options, {{"files", list}});
    if (options.files.size() > 1) {
        terminal.news << fine << " of " << options.files.size() << " files without faults\n";
    }
    return code;
}

}  // namespace

RunFunction AddCheck(CLI::App& commandLine) {
    const auto options = std::make_shared<CheckOptions>();
    commandLine.add_option("FILE", options->files, "Control parameter files")->required();
    commandLine.add_flag("--show", options->show, "Tell in words what each file asks for");
    return [options](Terminal& terminal) { return RunCheck(*options, terminal); };
}

}  // namespace host
