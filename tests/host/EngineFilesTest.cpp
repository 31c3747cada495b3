// Control files as the engine writes them: "check" finds no error in any of them, and they say what
// was asked.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "tests/host/SampleControlFile.h"
#include "tests/support/SampleProject.h"

namespace {

struct Status {
    int solver;
    int mesh;
    int annealing;
};

/// By mesh kind.
const std::string meshLabels[] = {"Original", "Deformed", "Mapped", "3D mapping to shell"};

/// A pass through the engine that ends in a file.
class Pass {
public:
    explicit Pass(const CZorbFEAInformation& record,
                  support::ResultFiles results = support::ResultFiles::all)
        : project_(record, results) {
        Manager().SetOutFolder("D:\\Handover");
        Manager().SetMappedMeshFilePath("D:\\meshes\\cover.inp");
        Manager().SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    }

    CZorbI2EngineManager& Manager() { return project_.manager; }

    void Offer(const Status& status, bool quadratic) {
        Manager().SetEngineCurrentStatus(status.solver, status.mesh, quadratic ? 1 : 0,
                                         status.annealing);
        Manager().SetPopItems();
        Manager().HasPopItem();
    }

    /// Whether the status is one that the dialog lets a user choose.
    bool IsOrdinary(const Status& status) {
        const CZorbI2Engine& engine = project_.Engine();
        const auto& slots = engine.solverSlots;
        const SolverSlot* slot =
            status.solver < kSolverCount ? slots[status.solver].get() : nullptr;
        const bool isAnnealed = status.annealing == kAnnealingDeformedMesh &&
                                status.mesh == kMeshDeformed &&
                                engine.feaInformation->projectType == kProjectTypeAnnealing;
        return slot != nullptr && engine.feaInformation->solverType <= kShellProject &&
               std::ranges::count(slot->meshTypes, meshLabels[status.mesh]) > 0 &&
               (status.annealing == 0 || isAnnealed);
    }

    /// The keys of an item's options.
    std::vector<int> Options(int itemId) {
        std::map<int, std::string> options;
        Manager().GetItemAllOptions(itemId, options);
        std::vector<int> keys;
        for (const auto& [key, label] : options) {
            keys.push_back(key);
        }
        return keys;
    }

    /// As many rounds of choices as it takes until each option of each item was chosen.
    std::size_t Rounds() {
        std::size_t longest = 0;
        for (int id = 0; id < kItemCount; ++id) {
            longest = std::max(longest, Options(id).size());
        }
        return longest;
    }

    /// Each item with options takes the one at a position; each check item is on or off.
    void Choose(std::size_t round) {
        for (int id = 0; id < kItemCount; ++id) {
            const std::vector<int> options = Options(id);
            const bool isOn = (round + static_cast<std::size_t>(id)) % 2 == 0;
            Manager().SetItemStatus(id, isOn ? 1 : 0, options[round % options.size()]);
        }
    }

    std::string Write() {
        project_.files.written.clear();
        project_.files.events.clear();
        Manager().SetItemsValue();
        Manager().WriteCMIFile(0);
        return project_.files.written.at("D:\\Out\\Cover03.cmi");
    }

    /// The errors in the file, of an ordinary one the warnings too, and the values that are not
    /// those of the data block.
    std::vector<std::string> Complaints(bool isOrdinary = false) {
        const std::string text = Write();
        const samples::Reading& reading = ReadOnce(text);
        std::vector<std::string> complaints =
            isOrdinary ? samples::InWords(reading.faults) : Errors(reading.faults);
        if (complaints.empty()) {
            const host::ControlFile& file = reading.values;
            const CZorbI2CMIData& block = *Manager().GetZorbCMIData();
            Compare(block.SolverName, file.at("SolverName"), complaints);
            Compare(block.OutFolder, file.at("OutFolder"), complaints);
            Compare(std::to_string(block.QuadraticElement), file.at("QuadraticElement"),
                    complaints);
            Compare(std::to_string(block.IDCompositeModel), file.at("IDCompositeModel"),
                    complaints);
            Compare(std::to_string(block.InsertFiberThetaXSegment),
                    file.at("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment"), complaints);
            Compare(std::to_string(block.DensityReduction),
                    file.at("[DENSITY REDUCTION] DensityReduction"), complaints);
            Compare(host::Printed(block.WeldlineAngles[2]),
                    file.at("[WELDLINE ANGLE] WeldlineAngle4"), complaints);
            CompareItems(block, file, complaints);
        }
        if (!complaints.empty()) {
            complaints.push_back(text);
        }
        return complaints;
    }

private:
    /// Many passes end in the same file, and reading takes longer than all that comes before.
    const samples::Reading& ReadOnce(const std::string& text) {
        const auto known = readings_.find(text);
        return known != readings_.end()
                   ? known->second
                   : readings_.emplace(text, samples::Check(text, offers_)).first->second;
    }

    /// Without the warnings: a host may do what is odd.
    static std::vector<std::string> Errors(std::vector<host::Problem> problems) {
        std::erase_if(problems, [](const host::Problem& problem) { return problem.isWarning; });
        return samples::InWords(problems);
    }

    static void Compare(const std::string& expected, const std::string& found,
                        std::vector<std::string>& complaints) {
        if (expected != found) {
            complaints.push_back(expected + " is " + found);
        }
    }

    void CompareItems(const CZorbI2CMIData& block, const host::ControlFile& file,
                      std::vector<std::string>& complaints) {
        std::set<std::int32_t> offered;
        for (const auto* list :
             {&project_.Selector().partPopItems, &project_.Selector().partInsertPopItems,
              &project_.Selector().moldbasePopItems}) {
            offered.insert(list->begin(), list->end());
        }
        for (const ControlFileLine& row : kControlFileLines) {
            if (row.itemId >= 0) {
                const auto line = file.find(ControlFileKey(row.text));
                Compare(offered.contains(row.itemId) ? std::to_string(block.OutputFlags[row.itemId])
                                                     : "no line",
                        line != file.end() ? line->second : "no line", complaints);
            }
        }
    }

    support::OpenProject project_;
    host::OfferCheck offers_;
    std::map<std::string, samples::Reading> readings_;  ///< by the text of the file
};

const std::vector<std::string> nothing;

struct ProjectKind {
    const char* name;
    int solverType;
    int voxelFlag;
};

/// All types; where each is written with all choices, those that offer different items.
std::vector<int> ProjectTypesWith(support::ResultFiles results) {
    std::vector<int> all(12);
    std::iota(all.begin(), all.end(), 0);
    return results == support::ResultFiles::none
               ? all
               : std::vector{0, kProjectTypeAnnealing, kProjectTypeMucell};
}

class EngineFiles : public testing::TestWithParam<ProjectKind> {};

TEST_P(EngineFiles, AllSolversMeshesProjectTypesAndChoicesAreReadWithoutAFault) {
    for (const auto results : {support::ResultFiles::all, support::ResultFiles::none}) {
        for (const int projectType : ProjectTypesWith(results)) {
            CZorbFEAInformation record = support::CompleteProject(GetParam().solverType);
            record.voxelFlag = GetParam().voxelFlag;
            record.projectType = projectType;
            Pass pass(record, results);
            // Without results nothing can be chosen.
            const std::size_t rounds = results == support::ResultFiles::all ? pass.Rounds() : 1;
            for (int solver = 0; solver <= kSolverCount; ++solver) {
                for (int mesh = kMeshOriginal; mesh <= kMesh3DMappingShell; ++mesh) {
                    for (int annealing = 0; annealing <= kAnnealingDeformedMesh + 1; ++annealing) {
                        for (std::size_t round = 0; round < rounds; ++round) {
                            const Status status{solver, mesh, annealing};
                            pass.Offer(status, round % 2 == 1);
                            pass.Choose(round);
                            ASSERT_EQ(nothing, pass.Complaints(pass.IsOrdinary(status)));
                        }
                    }
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ControlFile, EngineFiles,
                         testing::Values(ProjectKind{"Solid", kSolidProject, 0},
                                         ProjectKind{"Voxel", kSolidProject, 1},
                                         ProjectKind{"Shell", kShellProject, 0},
                                         ProjectKind{"Other", 2, 0}),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(ControlFile, EveryCombinationOfOptionsIsReadWithoutAFault) {
    Pass pass(support::CompleteProject());
    pass.Offer({kSolverAnsys, kMeshOriginal, 0}, false);
    for (const int part : pass.Options(kItemFiberOrientation)) {
        for (const int insert : pass.Options(kItemInsertFiberMaterial)) {
            for (const int density : pass.Options(kItemDensity)) {
                for (const int model : pass.Options(kItemMicroMechanics)) {
                    pass.Manager().SetItemStatus(kItemFiberOrientation, kNotACheckItem, part);
                    pass.Manager().SetItemStatus(kItemInsertFiberMaterial, kNotACheckItem, insert);
                    pass.Manager().SetItemStatus(kItemDensity, kNotACheckItem, density);
                    pass.Manager().SetItemStatus(kItemMicroMechanics, kNotACheckItem, model);
                    ASSERT_EQ(nothing, pass.Complaints());
                }
            }
        }
    }
}

TEST(ControlFile, ItemsWithoutTheirFactsAreReadWithoutAFault) {
    for (const int solverType : {kSolidProject, kShellProject}) {
        Pass pass(support::PlainProject(solverType));
        for (int solver = 0; solver < kSolverCount; ++solver) {
            pass.Offer({solver, kMeshMapped, 0}, true);
            EXPECT_EQ(nothing, pass.Complaints());
        }
    }
}

TEST(ControlFile, DistributeModelIsReadWithoutAFault) {
    constexpr int distributeModel = 6;
    Pass pass(support::CompleteProject());
    pass.Offer({kSolverAbaqus, kMeshDeformed, 0}, false);
    pass.Manager().SetItemStatus(kItemFiberOrientation, kNotACheckItem, distributeModel);
    EXPECT_EQ(nothing, pass.Complaints());
}

TEST(ControlFile, AnyPathIsReadWithoutAFault) {
    for (const char* path : {"", " ", "/srv/Läufe/[HEADER]", R"(\\server\a = b\)", "D:\\x\t",
                             "C:\\\xc4\xd6", "MapFile = "}) {
        Pass pass(support::CompleteProject());
        pass.Manager().SetOutFolder(path);
        pass.Manager().SetMappedMeshFilePath(path);
        for (int mesh = kMeshOriginal; mesh <= kMesh3DMappingShell; ++mesh) {
            pass.Offer({kSolverLsDyna, mesh, 0}, false);
            EXPECT_EQ(nothing, pass.Complaints());
        }
    }
}

TEST(ControlFile, AnyFiniteAngleIsReadWithoutAFault) {
    const double largest = std::numeric_limits<double>::max();
    for (const double angle : {0.0, -0.0, 0.0004, -5.0, 89.9995, 1e17, 1.0 / 3.0, largest}) {
        Pass pass(support::CompleteProject());
        pass.Offer({kSolverMarc, kMeshDeformed, 0}, false);
        pass.Manager().SetDigimatWeldlineData(angle);
        pass.Manager().SetWeldlineDataStatus(kSolverMarc, {angle, -angle, 1.0},
                                             {0.5, angle, -angle});
        pass.Manager().SetWeldlineDataValue();
        EXPECT_EQ(nothing, pass.Complaints()) << angle;
    }
}

TEST(ControlFile, AnyProjectTypeIsReadWithoutAFault) {
    for (const std::int32_t type : {-1, 11, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()}) {
        CZorbFEAInformation record = support::CompleteProject();
        record.projectType = type;
        Pass pass(record);
        pass.Offer({kSolverAnsys, kMeshDeformed, kAnnealingDeformedMesh}, false);
        EXPECT_EQ(nothing, pass.Complaints()) << type;
    }
}

}  // namespace
