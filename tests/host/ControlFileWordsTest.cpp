// What a control file asks for, in words.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "CZorbI2Item.h"
#include "host/ControlFile.h"
#include "tests/host/SampleControlFile.h"
#include "tests/support/SampleProject.h"

namespace {

host::ControlFile Sample() {
    std::vector<host::Fault> faults;
    return host::ReadControlFile(samples::Joined(samples::SampleLines()), faults);
}

TEST(ControlFileWords, SayWhatTheFileAsksFor) {
    EXPECT_EQ(R"(Solver:                 MSC-Nastran
Mesh:                   deformed
Elements:               quadratic
Output folder:          "D:\Handover\Cover"
Project:                solid mesh, project type 6
Micro mechanics:        Halpin-Tsai model
Items on:               Fiber orientation
                        Digimat option to export fiber orientation data
                        Density output
                        Digimat fiber
Items off:              Runner output
                        Weld line output
                        Digimat weld line
                        Digimat stress
                        Digimat temperature
Fiber reduction:        Medium (angle segments 15)
Part insert reduction:  off
Density reduction:      Low (factor 4)
Distributed model:      off
View-edit mapping:      on
Weld-line strength:     0.800 at 30.000, 0.900 at 60.000, 0.950 at 90.500 degrees
Digimat weld line:      135.000 degrees
)",
              host::InWords(Sample()));
}

/// The words behind a label.
std::string WordsOf(const host::ControlFile& file, const std::string& label) {
    std::istringstream words(host::InWords(file));
    for (std::string line; std::getline(words, line);) {
        if (line.rfind(label, 0) == 0) {
            return line.substr(line.find_first_not_of(' ', label.size()));
        }
    }
    return "no such line";
}

TEST(ControlFileWords, NameTheMesh) {
    CZorbI2CMIData values;
    EXPECT_EQ("none", host::MeshInWords(values));
    values.IsOriginalMesh = 1;
    EXPECT_EQ("original", host::MeshInWords(values));
    values.IsOriginalMesh = 0;
    values.IsDeformedMesh = 1;
    EXPECT_EQ("deformed", host::MeshInWords(values));
    values.IsDeformedMesh = 0;
    values.IsMappedMesh = 1;
    EXPECT_EQ("mapped", host::MeshInWords(values));
    values.IsMappedMesh = 0;
    values.Is3DMappingShell = 1;
    EXPECT_EQ("3D mapping to shell", host::MeshInWords(values));
}

TEST(ControlFileWords, NameTheAnnealedMeshOnlyWhereItStandsForTheDeformedOne) {
    CZorbI2CMIData values;
    values.IsAnnealingDeformedMesh = 1;
    values.ProjectType = 3;
    EXPECT_EQ("deformed after annealing", host::MeshInWords(values));
    values.IsMappedMesh = 1;
    EXPECT_EQ("mapped", host::MeshInWords(values));
    values.IsMappedMesh = 0;
    values.ProjectType = 6;
    EXPECT_EQ("none", host::MeshInWords(values));
}

TEST(ControlFileWords, NameTheMappedMeshFile) {
    host::ControlFile file = Sample();
    EXPECT_EQ("no such line", WordsOf(file, "Mapped mesh:"));
    file.values.IsDeformedMesh = 0;
    file.values.IsMappedMesh = 1;
    file.values.MapFile = "D:\\mesh.inp";
    EXPECT_EQ("\"D:\\mesh.inp\"", WordsOf(file, "Mapped mesh:"));
}

TEST(ControlFileWords, NameTheProject) {
    host::ControlFile file = Sample();
    file.values.SolverType = 1;
    EXPECT_EQ("shell mesh, project type 6", WordsOf(file, "Project:"));
    file.values.SolverType = 7;
    EXPECT_EQ("other mesh, project type 6", WordsOf(file, "Project:"));
}

TEST(ControlFileWords, NameTheCompositeModel) {
    host::ControlFile file = Sample();
    file.values.IDCompositeModel = 0;
    EXPECT_EQ("Traditional composite model", WordsOf(file, "Micro mechanics:"));
    file.values.IDCompositeModel = 2;
    EXPECT_EQ("Mori-Tanaka model", WordsOf(file, "Micro mechanics:"));
    file.values.IDCompositeModel = -2;
    EXPECT_EQ("none (its results are missing)", WordsOf(file, "Micro mechanics:"));
}

TEST(ControlFileWords, NameTheLevelsOfFiberReduction) {
    const std::map<std::int32_t, std::string> levels = {{1, "Min"},   {8, "Low"},  {15, "Medium"},
                                                        {23, "High"}, {30, "Max"}, {2, "other"}};
    for (const auto& [segments, level] : levels) {
        host::ControlFile file = Sample();
        file.values.OutputFlags[12] = 1;
        file.values.InsertFiberThetaXSegment = segments;
        EXPECT_EQ(level + " (angle segments " + std::to_string(segments) + ")",
                  WordsOf(file, "Part insert reduction:"));
    }
}

TEST(ControlFileWords, NameTheLevelsOfDensityReduction) {
    const std::map<std::int32_t, std::string> levels = {{2, "Min"},  {4, "Low"},  {6, "Medium"},
                                                        {8, "High"}, {10, "Max"}, {3, "other"}};
    for (const auto& [factor, level] : levels) {
        host::ControlFile file = Sample();
        file.values.DensityReduction = factor;
        EXPECT_EQ(level + " (factor " + std::to_string(factor) + ")",
                  WordsOf(file, "Density reduction:"));
        file.values.IsDoDensityReduction = 0;
        EXPECT_EQ("off", WordsOf(file, "Density reduction:"));
    }
}

TEST(ControlFileWords, ItemTitlesAreTheEnginesWithoutTheirFullStop) {
    support::OpenProject project;
    for (int id = 0; id < kItemCount; ++id) {
        CZorbI2Item item;
        for (int category = 0; category <= 2; ++category) {
            project.manager.GetItem(category, id, &item);
        }
        std::string title = item.title;
        if (!title.empty() && title.back() == '.') {
            title.pop_back();
        }
        if (!title.empty() && id != 15) {
            EXPECT_EQ(title, host::ItemTitle(id));
        }
    }
}

TEST(ControlFileWords, UntitledItemsTakeTheirWordsFromTheirKey) {
    EXPECT_EQ("Digimat weld line", host::ItemTitle(16));
    EXPECT_EQ("Digimat mucell", host::ItemTitle(17));
    EXPECT_EQ("Digimat fiber", host::ItemTitle(18));
    EXPECT_EQ("Digimat stress", host::ItemTitle(19));
    EXPECT_EQ("Digimat temperature", host::ItemTitle(20));
}

TEST(ControlFileWords, ItemsWithoutALineHaveNoKeyAndNoTitle) {
    for (const int id : {-1, 15, 22}) {
        EXPECT_EQ("", host::ItemKey(id));
        EXPECT_EQ("", host::ItemTitle(id));
    }
    EXPECT_EQ("IsDoMaterialReduction", host::ItemKey(0));
    EXPECT_EQ("IsAnnealingstressOutput", host::ItemKey(21));
}

TEST(ControlFileWords, SolversBearTheirDisplayNames) {
    const std::map<std::string, int> slots = {{"ANSYS", 0},     {"ABAQUS", 1},  {"MSCNASTRAN", 2},
                                              {"NENASTRAN", 3}, {"LSDYNA", 4},  {"MARC", 5},
                                              {"NXNASTRAN", 6}, {"RADIOSS", 7}, {"WORKBENCH", 8}};
    support::OpenProject project;
    for (const auto& [keyword, slot] : slots) {
        EXPECT_EQ(project.Engine().solverSlots.at(slot)->name, host::SolverInWords(keyword));
    }
    EXPECT_EQ("none", host::SolverInWords(""));
    EXPECT_EQ("FOO", host::SolverInWords("FOO"));
}

}  // namespace
