// Control files as the engine writes them: all are read without a fault, and say what was asked.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>

#include "ControlFile.h"
#include "Names.h"
#include "tests/host/SampleControlFile.h"
#include "tests/support/SampleProject.h"

namespace {

struct Status {
    int solver;
    int mesh;
    int annealing;
};

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

    /// Each item with options takes the one at a position; each check item is on or off.
    void Choose(std::size_t round) {
        for (std::size_t id = 0; id < kItemCount; ++id) {
            std::map<int, std::string> options;
            Manager().GetItemAllOptions(static_cast<int>(id), options);
            const auto option =
                std::next(options.begin(), static_cast<std::ptrdiff_t>(round % options.size()));
            Manager().SetItemStatus(static_cast<int>(id), (round + id) % 2 == 0 ? 1 : 0,
                                    option->first);
        }
    }

    std::string Write() {
        project_.files.written.clear();
        project_.files.events.clear();
        Manager().SetItemsValue();
        Manager().WriteCMIFile(0);
        return project_.files.written.at("D:\\Out\\Cover03.cmi");
    }

    /// The faults of the file, and the values that are not those of the data block.
    std::vector<std::string> Complaints() {
        const std::string text = Write();
        std::vector<std::string> complaints = samples::FaultsOf(text);
        if (complaints.empty()) {
            const host::ControlFile file = host::ReadControlFile("engine.cmi", text);
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
        for (const auto& [id, key] : host::itemKeys) {
            const auto line = file.find(key);
            const bool isOffered = offered.contains(id);
            Compare(isOffered ? std::to_string(block.OutputFlags[id]) : "no line",
                    line != file.end() ? line->second : "no line", complaints);
        }
    }

    support::OpenProject project_;
};

const std::vector<std::string> nothing;

struct ProjectKind {
    const char* name;
    int solverType;
    int voxelFlag;
};

class EngineFiles : public testing::TestWithParam<ProjectKind> {};

TEST_P(EngineFiles, AllSolversMeshesProjectTypesAndChoicesAreReadWithoutAFault) {
    for (const auto results : {support::ResultFiles::all, support::ResultFiles::none}) {
        // As many as the longest list of options; without results nothing can be chosen.
        const std::size_t rounds = results == support::ResultFiles::all ? 7 : 1;
        for (const int projectType : {0, 3, 9}) {
            CZorbFEAInformation record = support::CompleteProject(GetParam().solverType);
            record.voxelFlag = GetParam().voxelFlag;
            record.projectType = projectType;
            Pass pass(record, results);
            for (int solver = 0; solver <= 9; ++solver) {
                for (int mesh = 0; mesh <= 3; ++mesh) {
                    for (int annealing = 0; annealing <= 2; ++annealing) {
                        for (std::size_t round = 0; round < rounds; ++round) {
                            pass.Offer({solver, mesh, annealing}, round % 2 == 1);
                            pass.Choose(round);
                            ASSERT_EQ(nothing, pass.Complaints());
                        }
                    }
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ControlFile, EngineFiles,
                         testing::Values(ProjectKind{"Solid", 0, 0}, ProjectKind{"Voxel", 0, 1},
                                         ProjectKind{"Shell", 1, 0}, ProjectKind{"Other", 2, 0}),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(ControlFile, EveryCombinationOfOptionsIsReadWithoutAFault) {
    Pass pass(support::CompleteProject());
    pass.Offer({kSolverAnsys, kMeshOriginal, 0}, false);
    for (int part = 0; part <= 5; ++part) {
        for (int insert = 0; insert <= 5; ++insert) {
            for (int density = 0; density <= 6; ++density) {
                for (int model = 0; model <= 2; ++model) {
                    pass.Manager().SetItemStatus(0, -1, part);
                    pass.Manager().SetItemStatus(12, -1, insert);
                    pass.Manager().SetItemStatus(13, -1, density);
                    pass.Manager().SetItemStatus(15, -1, model);
                    ASSERT_EQ(nothing, pass.Complaints());
                }
            }
        }
    }
}

TEST(ControlFile, ItemsWithoutTheirFactsAreReadWithoutAFault) {
    for (const int solverType : {0, 1}) {
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
    pass.Manager().SetItemStatus(0, -1, distributeModel);
    EXPECT_EQ(nothing, pass.Complaints());
}

TEST(ControlFile, AnyPathIsReadWithoutAFault) {
    for (const char* path : {"", " ", "/srv/Läufe/[HEADER]", R"(\\server\a = b\)", "D:\\x\t",
                             "C:\\\xc4\xd6", "MapFile = "}) {
        Pass pass(support::CompleteProject());
        pass.Manager().SetOutFolder(path);
        pass.Manager().SetMappedMeshFilePath(path);
        for (int mesh = 0; mesh <= 3; ++mesh) {
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
        pass.Offer({kSolverAnsys, kMeshDeformed, 1}, false);
        EXPECT_EQ(nothing, pass.Complaints()) << type;
    }
}

}  // namespace
