// Whole passes through the manager, as data: the project, the user's way through the dialog, and
// the settings. Each ends in one control parameter file, which is committed beside this table.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace golden {

/// A project and what its run left on the disk.
struct Project {
    std::string root = "D:\\Moulds\\Cover\\";  ///< folder of the run folders
    std::string runFolder = "Run03";           ///< the record's folder, below the root
    std::string name = "Cover";
    int runNumber = 3;
    int solverType = 0;
    int projectType = 0;
    int voxelFlag = 0;
    std::vector<int> flags = {};          ///< positions that hold 1
    std::vector<std::string> files = {};  ///< existing files, below the root
    std::string shotFile = {};            ///< content of the run's shot file; empty: there is none
    long long fiberVersion = 0;           ///< what the result reader finds; 0: it cannot read
};

struct Settings {
    std::string outFolder = "D:\\Moulds\\Cover\\Run03\\I2";
    std::string mappedMesh = "D:\\Moulds\\Cover\\mapped.msh";
    std::optional<bool> viewEdit = {};
    std::optional<double> digimatAngle = {};
};

struct WeldlineValues {
    int solver;
    std::vector<double> angles;
    std::vector<double> rates;
};

/// One SetItemStatus.
struct Choice {
    int itemId;
    int checkState;
    int option;
};

/// One look at the dialog: a solver with its status, and what the user does there.
struct Visit {
    int solver = 0;
    int meshKind = 0;
    int quadraticElement = 0;
    int annealingMode = 0;
    std::vector<Choice> choices = {};
    bool offersItems = true;      ///< SetPopItems and HasPopItem
    bool commitsChoices = true;   ///< SetItemsValue
    bool takesWeldlines = false;  ///< SetWeldlineDataValue
};

/// Lists of item ids for the writer, in place of the offered ones.
struct ItemLists {
    std::vector<int> part;
    std::vector<int> partInsert;
    std::vector<int> moldbase;
};

struct Pass {
    std::string name;  ///< of the test and of the committed file
    Project project;
    std::vector<Visit> visits;
    Settings settings = {};
    std::vector<WeldlineValues> weldlines = {};
    std::optional<ItemLists> lists = {};
};

/// The table; names are unique.
const std::vector<Pass>& Passes();

/// The table as text, for programs in other languages: "key value" lines, a pass from "pass NAME"
/// to "end".
std::string PassesAsText();

inline std::ostream& operator<<(std::ostream& stream, const Pass& pass) {
    return stream << pass.name;
}

}  // namespace golden
