// Hosts of any behavior within the order of calls: no input may break the engine's memory, make it
// throw anything but the errors that it names, or write a file that is not whole, that is not where
// the host wants it, or that has other items than those offered.
#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Engine.h>

#include "tests/fuzz/MemoryPlatform.h"
#include "tests/support/Errors.h"
#include "tests/support/ResultReaderDouble.h"

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

/// Whether the ending of a result file is one of those that the bits name.
bool IsAmong(unsigned bits, std::string_view path) {
    constexpr auto endings =
        std::to_array<std::string_view>({".o2w", ".k5o", ".rso", ".rsf", ".k5w", ".k5f", ".rsp",
                                         ".rsg", ".rsr", ".k5p", ".k5c", ".rsc", ".crp", ".k5s"});
    const auto ending = std::ranges::find_if(
        endings, [path](std::string_view known) { return path.ends_with(known); });
    return (bits >> (ending - endings.begin()) & 1U) != 0;
}

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

/// How often a line must be in the file.
std::ptrdiff_t TimesDue(const ControlFileLine& line, const CZorbI2Engine& engine) {
    const PopItemSelector& selector = *engine.popItemSelector;
    std::ptrdiff_t offered = 0;
    for (const auto* items :
         {&selector.partPopItems, &selector.partInsertPopItems, &selector.moldbasePopItems}) {
        offered += std::ranges::count(*items, line.itemId);
    }
    return line.presence == ControlFilePresence::whenOffered ? offered : 1;
}

/// Whether the rest of a file has the lines of the table from one on, each as often as it is due.
bool HasLinesFrom(const ControlFileLine* line, std::string_view rest, const CZorbI2Engine& engine) {
    for (; line != std::end(kControlFileLines); ++line) {
        const std::string_view text = line->text;
        const std::string_view start = text.substr(0, text.find('%'));
        std::ptrdiff_t times = 0;
        while (times < TimesDue(*line, engine) && rest.starts_with(start)) {
            rest.remove_prefix(rest.find('\n') + 1);
            ++times;
        }
        const bool mayMiss = line->presence == ControlFilePresence::whenAnnealed;
        if (times < TimesDue(*line, engine) && !mayMiss) {
            return false;
        }
    }
    return rest.empty();
}

/// Takes a text off the front of the rest; false when it is not there.
bool Take(std::string_view text, std::string_view& rest) {
    const bool isThere = rest.starts_with(text);
    rest.remove_prefix(isThere ? text.size() : 0);
    return isThere;
}

/// Texts are printed up to a NUL, as printf does.
void ExpectWholeFile(std::string_view rest, const CZorbI2Engine& engine) {
    const char* const mapFile = engine.mappedMeshFilePath.c_str();
    const std::int32_t meshKind = engine.popItemSelector->meshKind;
    const bool isMapped = meshKind == kMeshMapped || meshKind == kMesh3DMappingShell;
    const ControlFileLine* const solverType =
        std::ranges::find(kControlFileLines, &CZorbI2CMIData::SolverType, &ControlFileLine::number);
    fuzz::Expect(Take("I2-Output Control Parameter File\nFileVersion = 9064\n[HEADER]\n", rest) &&
                     Take("OutFolder = ", rest) && Take(engine.outFolder.c_str(), rest) &&
                     Take("\nMapFile = ", rest) && Take(isMapped ? mapFile : " ", rest) &&
                     Take("\n", rest),
                 "the file has the host's texts");
    fuzz::Expect(HasLinesFrom(solverType, rest, engine), "the file is whole");
}

void Write(CZorbI2EngineManager& manager, fuzz::MemoryPlatform& files) {
    const std::string path = manager.engine->cmiFileFullPath.c_str();  // up to a NUL, as fopen
    files.written.clear();
    manager.WriteCMIFile(0);
    fuzz::Expect(files.written.size() == 1 && files.written.begin()->first == path,
                 "the file is where the host wants it");
    fuzz::Expect(!files.IsWriting(), "what is written is closed");
    ExpectWholeFile(files.written.begin()->second, *manager.engine);
}

/// Expects that an item that was got is the one that its choice is of.
void ExpectSameItem(bool isGot, const CZorbI2Item& item, const CZorbI2ItemStatus& status) {
    fuzz::Expect(!isGot || item.itemId == status.itemId, "the choice is the item's");
}

void ExpectSameAnswer(CZorbI2EngineManager& manager) {
    const bool isAnyOffered = manager.HasPopItem();
    const bool isAnyInGroup =
        manager.HasPartPopItem() || manager.HasPartInsertPopItem() || manager.HasMoldbasePopItem();
    fuzz::Expect(isAnyOffered == isAnyInGroup, "what is offered is offered in a group");
    fuzz::Expect(manager.HasPartItem() && manager.HasPartInsertItem() && manager.HasMoldbaseItem(),
                 "each group has items");
}

void Call(CZorbI2EngineManager& manager, fuzz::MemoryPlatform& files, Input& input) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    CZorbI2WeldlineDataStatus weldlines;
    std::map<int, std::string> options;
    int values[3] = {};
    switch (input.Byte() % 22) {
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
            ExpectSameAnswer(manager);
            break;
        case 4:
            ExpectSameItem(manager.GetPartPopItem(input.Number(), &item, &status), item, status);
            break;
        case 5:
            ExpectSameItem(manager.GetPartInsertPopItem(input.Number(), &item, &status), item,
                           status);
            break;
        case 6:
            ExpectSameItem(manager.GetMoldBasePopItem(input.Number(), &item, &status), item,
                           status);
            break;
        case 7:
            ExpectSameItem(manager.GetPartPopItemByID(input.Number(), &item, &status), item,
                           status);
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
        case 19:
            manager.SetMappedMeshFilePath(input.Text());
            break;
        case 20:
            manager.SetViewEdit(input.Byte() % 2 == 1);
            break;
        default:
            Write(manager, files);
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
    fuzz::MemoryPlatform files;
    CZorbFEAInformation info = ReadProject(input);
    support::ResultReader() = {input.Byte() % 2, 1000LL + input.Number(), {}};
    const unsigned someResults = input.Byte();
    const unsigned results = someResults << 8U | input.Byte();
    files.exists = [results](std::string_view path) { return IsAmong(results, path); };
    const std::string shotFile = "<SOLID_MCM>\n" + input.Text() + "\nFlagPrevShot=" + input.Text();
    files.readable = &shotFile;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    while (!input.IsAtEnd()) {
        try {
            Call(manager, files, input);
        } catch (const std::out_of_range& error) {
            fuzz::Expect(IsNamedError(error), "an error is one of those that the engine names");
        }
    }
    support::ResultReader() = {};  // notes that stay would look like a leak to libFuzzer
    return 0;
}
