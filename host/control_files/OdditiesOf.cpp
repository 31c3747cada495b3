// Values that the engine takes and prints unchecked, and that are hardly meant.
#include <iterator>
#include <utility>

#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "problems/VisibleText.h"

namespace host {

namespace {

class Oddities {
public:
    Oddities(const std::string& name, std::string_view text, const ControlFile& file)
        : name_(name), text_(text), file_(file) {}

    Problems Find() {
        CheckPaths();
        CheckProject();
        CheckOptions();
        CheckAngles();
        CheckRates();
        return std::move(warnings_);
    }

private:
    void Warn(const std::string& key, const std::string& message) {
        warnings_.push_back(Warning({name_, LineOf(text_, key)}, message, ExitCode::notAvailable));
    }

    bool IsBlank(const std::string& key) const {
        return file_.at(key).find_first_not_of(' ') == std::string::npos;
    }

    static std::string WithoutSection(const std::string& key) {
        return Quoted(key.substr(key.rfind(' ') + 1));
    }

    double Number(const std::string& key) const { return NumberAt(file_, key); }

    void CheckPaths() {
        if (IsBlank("OutFolder")) {
            Warn("OutFolder", "\"OutFolder\" names no folder");
        }
        if (IsMapped(file_) && IsBlank("MapFile")) {
            Warn("MapFile", "\"MapFile\" names no file, though the mesh is mapped");
        }
    }

    void CheckProject() {
        const double solverType = Number("SolverType");
        const double projectType = Number("ProjectType");
        if (solverType != kSolidProject && solverType != kShellProject) {
            Warn("SolverType", "\"SolverType\" is " + file_.at("SolverType") +
                                   "; a project is solid (0) or shell (1)");
        }
        if (projectType < 0 || projectType > highestProjectType) {
            Warn("ProjectType", "\"ProjectType\" is " + file_.at("ProjectType") +
                                    "; project types are 0 to " +
                                    std::to_string(highestProjectType));
        }
    }

    void CheckOptions() {
        constexpr int models = std::size(compositeModels);
        if (Number("IDCompositeModel") >= models) {
            Warn("IDCompositeModel", "\"IDCompositeModel\" is " + file_.at("IDCompositeModel") +
                                         "; the models are 0 to " + std::to_string(models - 1));
        }
        const std::string density = "[DENSITY REDUCTION] DensityReduction";
        if (IsOn(file_, "IsDoDensityReduction") && Number(density) == 0) {
            Warn(density, "\"DensityReduction\" is 0, though density reduction is on");
        }
    }

    void CheckAngles() {
        double previous = 0.0;  // the first angle, which has a fixed text
        for (const int range : {1, 2, 3}) {
            const std::string key = AngleKey(range);
            if (Number(key) <= previous) {
                Warn(key, WithoutSection(key) + " is " + file_.at(key) +
                              ", which is not greater than the previous angle");
            }
            previous = Number(key);
        }
    }

    void CheckRates() {
        for (const int range : {1, 2, 3}) {
            const std::string key = RateKey(range);
            if (Number(key) < 0.0 || Number(key) > 1.0) {
                Warn(key, WithoutSection(key) + " is " + file_.at(key) + "; rates are 0 to 1");
            }
        }
    }

    const std::string& name_;
    std::string_view text_;
    const ControlFile& file_;
    Problems warnings_;
};

}  // namespace

Problems OdditiesOf(const std::string& name, std::string_view text, const ControlFile& file) {
    return Oddities(name, text, file).Find();
}

}  // namespace host
