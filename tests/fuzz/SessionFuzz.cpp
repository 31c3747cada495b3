// Hosts of any behavior within the order of calls: no input may break the engine's memory or
// make it throw anything but the errors that it names.
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Engine.h>

#include "tests/support/Errors.h"
#include "tests/support/ResultReaderDouble.h"
#include "tests/support/WatchedPlatform.h"

namespace {

/// Takes values from the input; zeros at its end.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool IsAtEnd() const { return size_ == 0; }

    std::uint8_t Byte() {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++;
    }

    /// Mostly small numbers around the valid ranges, now and then any.
    int Number() {
        const int byte = Byte();
        if (byte < 250) {
            return byte % 32 - 4;
        }
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i) {
            number = number << 8 | Byte();
        }
        return static_cast<int>(number);
    }

    std::string Text() {
        std::string text;
        for (int length = Byte() % 16; length > 0; --length) {
            text += static_cast<char>(Byte());
        }
        return text;
    }

    std::vector<double> Doubles() {
        std::vector<double> doubles;
        for (int length = Byte() % 6; length > 0; --length) {
            doubles.push_back(Number() / 8.0);
        }
        return doubles;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

CZorbFEAInformation ReadProject(Input& input) {
    CZorbFEAInformation info;
    info.projectName = input.Text();
    info.projectFolder = input.Text();
    info.runNumber = input.Number();
    info.solverType = input.Byte() % 4;
    info.projectType = input.Number();
    info.voxelFlag = input.Number();
    for (unsigned char& flag : info.flags) {
        flag = input.Byte() % 3;
    }
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    return info;
}

void Call(CZorbI2EngineManager& manager, Input& input) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    CZorbI2WeldlineDataStatus weldlines;
    std::map<int, std::string> options;
    int values[3] = {};
    switch (input.Byte() % 20) {
        case 0: {
            const int solver = input.Number();
            const int mesh = input.Number();
            const int quadratic = input.Number();
            manager.SetEngineCurrentStatus(solver, mesh, quadratic, input.Number());
            break;
        }
        case 1:
            manager.GetCurrentSolverStatus(input.Number(), values[0], values[1], values[2]);
            break;
        case 2:
            manager.SetPopItems();
            break;
        case 3:
            manager.HasPopItem();
            break;
        case 4:
            manager.GetPartPopItem(input.Number(), &item, &status);
            break;
        case 5:
            manager.GetPartInsertPopItem(input.Number(), &item, &status);
            break;
        case 6:
            manager.GetMoldBasePopItem(input.Number(), &item, &status);
            break;
        case 7:
            manager.GetPartPopItemByID(input.Number(), &item, &status);
            break;
        case 8: {
            const int category = input.Number();
            manager.GetItem(category, input.Number(), &item);
            break;
        }
        case 9:
            manager.GetItemAllOptions(input.Byte() % kItemCount, options);
            break;
        case 10: {
            const int index = input.Number();
            const int check = input.Number();
            manager.SetItemStatus(index, check, input.Number());
            break;
        }
        case 11:
            manager.SetItemsValue();
            break;
        case 12:
            manager.GetProjectResults(input.Number());
            break;
        case 13: {
            const int solver = input.Number();
            const std::vector<double> angles = input.Doubles();
            manager.SetWeldlineDataStatus(solver, angles, input.Doubles());
            break;
        }
        case 14:
            manager.SetWeldlineDataValue();
            break;
        case 15:
            manager.GetWeldlinePopData(input.Number(), &weldlines);
            break;
        case 16:
            manager.SetDigimatWeldlineData(input.Number() / 3.0);
            break;
        case 17: {
            const std::string folder = input.Text();
            const std::string name = input.Text();
            manager.SetCMIFileFullPath(folder, name, input.Number(), input.Text());
            break;
        }
        case 18:
            manager.SetOutFolder(input.Text());
            break;
        default:
            manager.WriteCMIFile(input.Number());
            break;
    }
}

bool IsNamedError(const std::out_of_range& error) {
    return error.what() == std::string(support::kInvalidSubscript) ||
           error.what() == std::string(support::kInvalidPosition);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    support::WatchedPlatform files;
    CZorbFEAInformation info = ReadProject(input);
    support::ResultReader() = {input.Byte() % 2, input.Number() + 1000, {}};
    // Which results exist: drawn by extension, under the names that the engine will ask for.
    const std::string base = info.projectFolder + "\\" + info.projectName + "00";
    for (const char* extension : {".o2w", ".k5o", ".rsf", ".k5w", ".k5f", ".k5p", ".k5c", ".k5s"}) {
        if (input.Byte() % 2 == 1) {
            files.existing.insert(base + extension);
        }
    }
    files.readable[info.projectFolder + info.projectName + "00.cmx"] =
        "<SOLID_MCM>\n" + input.Text() + "\nFlagPrevShot=" + input.Text();
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    while (!input.IsAtEnd()) {
        try {
            Call(manager, input);
        } catch (const std::out_of_range& error) {
            if (!IsNamedError(error)) {
                std::abort();
            }
        }
    }
    return 0;
}
