#include "tests/golden/DecisionTables.h"

#include <algorithm>
#include <cstdint>
#include <locale>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/PopItemSelector.h>
#include <zorbi2/ZorbI2Types.h>

#include "cmi/WeldlineData.h"
#include "items/ResultMessages.h"
#include "tests/support/ResultReaderDouble.h"
#include "tests/support/WatchedPlatform.h"

namespace golden {

namespace {

using Lines = std::vector<std::string>;

/// Text of any printable parts, the same under every locale.
template <typename... Parts>
std::string Line(const Parts&... parts) {
    std::ostringstream line;
    line.imbue(std::locale::classic());
    (line << ... << parts);
    return line.str();
}

template <typename List>
std::string Joined(const List& list, const char* separator) {
    std::string joined;
    for (const auto& element : list) {
        joined += (joined.empty() ? "" : separator) + Line(element);
    }
    return joined;
}

// ---- Offered items ------------------------------------------------------------------------------

void AddOffers(PopItemSelector& selector, const std::string& project, Lines& lines) {
    for (int solver = -1; solver <= kSolverCount; ++solver) {
        for (int meshKind = -1; meshKind <= 4; ++meshKind) {
            for (int annealingMode = -1; annealingMode <= 2; ++annealingMode) {
                selector.SetCurrentStatus(solver, meshKind, 0, annealingMode);
                selector.SetPopItems();
                const bool hasAny = selector.HasPopItem();
                lines.push_back(Line("offer ", project, " solver=", solver, " mesh=", meshKind,
                                     " annealing=", annealingMode, " : ", hasAny, " part ",
                                     Joined(selector.partPopItems, ","), " insert ",
                                     Joined(selector.partInsertPopItems, ","), " moldbase ",
                                     Joined(selector.moldbasePopItems, ",")));
            }
        }
    }
}

void AddAllOffers(Lines& lines) {
    const ItemArray noItems;
    for (int solverType = -1; solverType <= 2; ++solverType) {
        for (const int voxelFlag : {0, 1, 2, 257}) {
            for (int projectType = 0; projectType <= 11; ++projectType) {
                PopItemSelector selector(solverType, noItems, cmi::DefaultWeldlineData(), voxelFlag,
                                         projectType);
                AddOffers(selector,
                          Line("solverType=", solverType, " voxelFlag=", voxelFlag,
                               " projectType=", projectType),
                          lines);
            }
        }
    }
}

// ---- Messages, slots and catalogue --------------------------------------------------------------

void AddMessages(Lines& lines) {
    for (int code = -40; code <= 40; ++code) {
        std::string message;
        items::GetResultMessage(code, message);
        lines.push_back(Line("message code=", code, " : ", message));
    }
}

CZorbFEAInformation SampleRecord(int solverType, int voxelFlag) {
    CZorbFEAInformation record;
    record.projectName = "Cover";
    record.runNumber = 3;
    record.projectFolder = "D:\\Proj\\Run03\\";
    record.solverType = solverType;
    record.voxelFlag = voxelFlag;
    record.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    return record;
}

void AddSlots(Lines& lines) {
    for (int solverType = -1; solverType <= 2; ++solverType) {
        for (const int voxelFlag : {0, 1, 2, 257}) {
            support::WatchedPlatform noFiles;
            const CZorbFEAInformation record = SampleRecord(solverType, voxelFlag);
            const CZorbI2Engine engine(&record);
            for (std::size_t solver = 0; solver < engine.solverSlots.size(); ++solver) {
                const auto& slot = engine.solverSlots[solver];
                const std::string outcome =
                    slot ? Line(slot->solverIndex, " ", slot->name, " meshes ",
                                Joined(slot->meshTypes, ","), " elements ",
                                Joined(slot->elementTypes, ","))
                         : "none";
                lines.push_back(Line("slot solverType=", solverType, " voxelFlag=", voxelFlag,
                                     " solver=", solver, " : ", engine.solverOffered[solver], " ",
                                     outcome));
            }
        }
    }
}

std::string Described(const CZorbI2Item& item) {
    Lines options;
    for (const auto& [key, label] : item.options) {
        options.push_back(Line(key, "=", label));
    }
    return Line(item.category, " ", item.itemId, " available=", item.isAvailable,
                " check=", item.checkState, " option=", item.optionValue, " [", item.title, "] [",
                item.description, "] ", Joined(options, ","));
}

void AddCatalogues(Lines& lines) {
    for (int solverType = -1; solverType <= 2; ++solverType) {
        for (const bool hasResults : {false, true}) {
            support::WatchedPlatform files;
            support::ResultReader() = support::ResultReaderDouble();
            CZorbFEAInformation record = SampleRecord(solverType, 0);
            if (hasResults) {
                std::fill(std::begin(record.flags), std::end(record.flags), '\1');
                for (const char* ending : {".o2w", ".rso", ".k5w", ".rsf", ".k5f", ".rsp", ".k5p",
                                           ".k5c", ".rsc", "_medi.crp", ".k5s"}) {
                    files.existing.insert("D:\\Proj\\Run03\\Cover03" + std::string(ending));
                }
            }
            const CZorbI2Engine engine(&record);
            for (const auto& item : engine.items) {
                lines.push_back(Line("item solverType=", solverType, " results=", hasResults, " : ",
                                     Described(*item)));
            }
        }
    }
}

// ---- Checks -------------------------------------------------------------------------------------

/// What the answer for an item may depend on, besides the kind of project.
struct CheckRow {
    int itemId;
    int flag;  ///< position in the record
    std::vector<std::string> endings;
};

const std::vector<CheckRow> checkRows = {
    {-1, 11, {".k5f"}},
    {0, 11, {".o2w", ".k5o", "_vox.k5o", ".rso"}},
    {1, 12, {}},
    {2, 13, {}},
    {3, 11, {".rsf", ".RSF"}},
    {4, 11, {".k5w"}},
    {5, 11, {".k5f", ".rsp", ".rsg", ".rsr"}},
    {6, 14, {".k5f"}},
    {7, 13, {".k5f"}},
    {8, 11, {".k5p", ".k5f", ".rsp", ".rsg", ".rsr"}},
    {9, 11, {".k5c", ".rsc"}},
    {10, 13, {".k5c"}},
    {11, 11, {".o2w", ".k5o", ".rso"}},
    {12, 14, {".k5o"}},
    {13, 11, {".k5f"}},
    {14, 16, {".k5f"}},
    {15, 11, {".o2w", ".k5o", "_vox.k5o", ".rso"}},
    {16, 16, {".k5f"}},
    {17, 11, {".k5f"}},
    {18, 11, {"_medi.crp", ".crp", ".k5o", "_vox.k5o", ".rso"}},
    {19, 11, {".rsf", ".k5w"}},
    {20, 11, {".k5p", ".k5c"}},
    {21, 11, {".k5s"}},
    {22, 11, {".k5f"}},
};

/// A world of files for one check.
struct CheckCase {
    CZorbFEAInformation record;
    std::vector<std::string> endings;  ///< of the files that exist
    int fiberVersion;                  ///< 0: the reader fails
    int previousShot;                  ///< run that the shot file names; 0: there is none
};

std::string Outcome(int itemId, const CheckCase& one) {
    support::WatchedPlatform files;
    support::ResultReader() = support::ResultReaderDouble();
    support::ResultReader().beginResult = one.fiberVersion == 0 ? 1 : 0;
    support::ResultReader().version = one.fiberVersion;
    for (const std::string& ending : one.endings) {
        files.existing.insert("D:\\Proj\\Run03\\Cover03" + ending);
        files.existing.insert("D:\\Proj\\Run02\\Cover02" + ending);
    }
    if (one.previousShot != 0) {
        files.readable["D:\\Proj\\Run03\\Cover03.cmx"] =
            Line("<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = ", one.previousShot,
                 "\n</SOLID_MCM>\n");
    }
    CZorbFEAInformation record = one.record;
    record.flags[CZorbFEAInformation::kBuildCatalogue] =
        0;  // a bare engine checks nothing by itself
    CZorbI2Engine engine(&record);
    const int code = engine.GetProjectResults(itemId);
    Lines written;
    for (const auto& [path, text] : files.written) {
        written.push_back(path + "=" + text);
    }
    // The reader is the one that gets paths in the system's own form.
    std::string reader = Joined(support::ResultReader().events, " ; ");
    std::replace(reader.begin(), reader.end(), '/', '\\');
    std::string outcome = Line(code, " ; ", Joined(files.events, " ; "), " ; reader ", reader,
                               " ; wrote ", Joined(written, " ; "));
    std::replace(outcome.begin(), outcome.end(), '\n', '|');
    return outcome;
}

std::vector<std::string> Subset(const std::vector<std::string>& all, unsigned bits) {
    std::vector<std::string> subset;
    for (std::size_t position = 0; position < all.size(); ++position) {
        if ((bits >> position & 1U) != 0) {
            subset.push_back(all[position]);
        }
    }
    return subset;
}

std::vector<int> ProjectTypesFor(int itemId) {
    return itemId == kItemPackingTemperature
               ? std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}
               : std::vector<int>{0};
}

bool AsksReader(int itemId) {
    return itemId == kItemFiberOrientation || itemId == kItemDigimatExport ||
           itemId == kItemMicroMechanics;
}

void AddChecks(const CheckRow& row, const CZorbFEAInformation& record, const std::string& inputs,
               Lines& lines) {
    const std::vector<int> versions =
        AsksReader(row.itemId) ? std::vector<int>{0, 1003, 1004} : std::vector<int>{0};
    const std::vector<int> shots =
        row.itemId == kItemInsertFiberMaterial ? std::vector<int>{0, 1, 2} : std::vector<int>{0};
    for (unsigned bits = 0; bits < 1U << row.endings.size(); ++bits) {
        const std::vector<std::string> endings = Subset(row.endings, bits);
        for (const int version : versions) {
            for (const int shot : shots) {
                lines.push_back(Line("check item=", row.itemId, inputs, " files=",
                                     Joined(endings, ","), " version=", version, " shot=", shot,
                                     " : ", Outcome(row.itemId, {record, endings, version, shot})));
            }
        }
    }
}

void AddAllChecks(Lines& lines) {
    for (const CheckRow& row : checkRows) {
        for (int solverType = 0; solverType <= 2; ++solverType) {
            for (const int voxelFlag : {0, 1, 257}) {
                for (const int projectType : ProjectTypesFor(row.itemId)) {
                    for (const int flag : {0, 1, 2}) {
                        CZorbFEAInformation record = SampleRecord(solverType, voxelFlag);
                        record.projectType = projectType;
                        record.flags[row.flag] = static_cast<unsigned char>(flag);
                        AddChecks(row, record,
                                  Line(" solverType=", solverType, " voxelFlag=", voxelFlag,
                                       " projectType=", projectType, " flag", row.flag, "=", flag),
                                  lines);
                    }
                }
            }
        }
    }
}

}  // namespace

std::vector<std::string> DecisionTables() {
    Lines lines;
    AddAllOffers(lines);
    AddMessages(lines);
    AddSlots(lines);
    AddCatalogues(lines);
    AddAllChecks(lines);
    return lines;
}

}  // namespace golden
