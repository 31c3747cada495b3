// The command "check": reads control parameter files from disk and reports their faults.
#include <algorithm>

#include "ZorbI2Types.h"
#include "host/Commands.h"
#include "host/ControlFile.h"
#include "host/ControlFileLayout.h"
#include "host/HostPlatform.h"
#include "host/Names.h"
#include "host/Paths.h"
#include "host/Report.h"

namespace host {

namespace {

const Vocabulary compositeModels = {{kOptionResultsMissing, "results missing"},
                                    {0, "traditional"},
                                    {1, "Halpin-Tsai"},
                                    {2, "Mori-Tanaka"}};

std::string ItemsWith(std::int32_t flag, const ControlFile& file) {
    Vocabulary items;
    for (const std::int32_t id : file.itemIds) {
        if (file.values.OutputFlags[id] == flag) {
            items.emplace_back(id, NameOf(id, shortNames));
        }
    }
    return items.empty() ? "none" : Listed(items);
}

std::string MeshOf(const Values& values) {
    const std::int32_t isKind[] = {values.IsOriginalMesh, values.IsDeformedMesh,
                                   values.IsMappedMesh, values.Is3DMappingShell};
    const auto kind = std::ranges::find(isKind, 1) - std::begin(isKind);
    return IsAnnealedMesh(values) ? "deformed after annealing" : meshKinds[kind].second;
}

std::string WeldLinesOf(Values values) {
    std::string words;
    for (std::size_t i = 0; i < std::size(values.WeldlineAngles); ++i) {
        words += Printed(&values.ReductionRates[i]) + " at " + Printed(&values.WeldlineAngles[i]) +
                 " degrees, ";
    }
    return words + "Digimat " + Printed(&values.DigimatWeldlineAngle) + " degrees";
}

/// What a file asks for: labels, and words for them.
std::vector<std::pair<std::string, std::string>> InWords(const ControlFile& file) {
    const Values& v = file.values;
    const auto when = [](std::int32_t flag, const std::string& unit, std::int32_t number) {
        return flag == 1 ? unit + std::to_string(number) : "off";
    };
    return {
        {"Solver", v.SolverName.empty() ? "none" : v.SolverName},
        {"Mesh", MeshOf(v) + (v.QuadraticElement == 1 ? ", quadratic" : ", linear") + " elements"},
        {"Mapped mesh", UsesMapFile(v) ? Quoted(v.MapFile) : "none"},
        {"Output folder", Quoted(v.OutFolder)},
        {"Project", std::string(v.SolverType == kShellProject ? "shell" : "solid") + ", type " +
                        std::to_string(v.ProjectType)},
        {"Items on", ItemsWith(1, file)},
        {"Items off", ItemsWith(0, file)},
        {"Micro mechanics", NameOf(v.IDCompositeModel, compositeModels)},
        {"Fiber reduction", when(v.OutputFlags[0], "angle segments ", v.FiberThetaXSegment)},
        {"Insert reduction",
         when(v.OutputFlags[12], "angle segments ", v.InsertFiberThetaXSegment)},
        {"Density reduction", when(v.IsDoDensityReduction, "factor ", v.DensityReduction)},
        {"Distributed model", v.IsDistributeModel == 1 ? "on" : "off"},
        {"View-edit mapping", v.IsViewEditModelMapping == 1 ? "on" : "off"},
        {"Weld lines", WeldLinesOf(v)},
    };
}

void PrintWords(const ControlFile& file, Terminal& terminal) {
    constexpr std::size_t column = 21;
    for (const auto& [label, words] : InWords(file)) {
        const bool isPath = words.starts_with('"');
        terminal.out << Padded("  " + label + ":", column)
                     << (isPath ? words : Wrapped(words, terminal.columns - column, column))
                     << '\n';
    }
}

/// The keys of a file with their values; a key stands behind its section except in the header.
Json ValuesOf(ControlFile file) {
    Json values = Json::object();
    std::string section;
    for (const Row& row : rows) {
        const std::string key(KeyOf(row.format));
        const Field field = row.field(file.values);
        if (std::holds_alternative<std::string*>(field)) {
            values[key.starts_with('[') ? "SolverName" : key] = Printed(field);
        } else if (std::holds_alternative<std::monostate>(field)) {
            section = !key.starts_with('[') ? section : key != "[HEADER]" ? key + " " : "";
        } else if (!row.IsItem() || std::ranges::count(file.itemIds, row.itemId) > 0) {
            values[section + key] = Json::parse(Printed(field));
        }
    }
    return values;
}

}  // namespace

ExitCode RunCheck(const Options& options, Terminal& terminal) {
    Problems problems;
    Json list = Json::array();
    std::size_t fine = 0;
    for (const std::string& name : options.files) {
        std::vector<Fault> faults;
        ControlFile file;
        const std::size_t before = problems.size();
        try {
            file = ReadControlFile(FromEngineText(ReadFile(PathOf(name), {name})), faults);
        } catch (const Problem& problem) {
            problems.push_back(problem);
        }
        for (const Fault& fault : faults) {
            problems.emplace_back(Place{name, fault.line}, fault.message, ExitCode::notAvailable);
        }
        const bool isFine = problems.size() == before;
        fine += isFine ? 1 : 0;
        list.push_back(
            {{"file", name}, {"ok", isFine}, {"values", isFine ? ValuesOf(file) : Json()}});
        if (isFine) {
            (options.show ? terminal.out : terminal.news) << name << ": no faults\n";
        }
        if (isFine && options.show) {
            PrintWords(file, terminal);
        }
    }
    Json document = JsonDocument(options);
    document["files"] = std::move(list);
    const ExitCode code = Report(problems, options, std::move(document));
    if (options.files.size() > 1) {
        terminal.news << fine << " of " << options.files.size() << " files without faults\n";
    }
    return code;
}

}  // namespace host
