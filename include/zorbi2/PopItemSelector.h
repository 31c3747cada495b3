// The user's side of the engine: the current solver and its status, the choices per solver, and
// the items that the host's dialog offers ("pop items") in three groups. Never looks at files.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "CZorbI2Item.h"
#include "CZorbI2ItemStatus.h"
#include "CZorbI2WeldlineDataStatus.h"
#include "ZorbI2Types.h"

/// One entry for each item, at the position of its id.
typedef std::vector<CZorbI2ItemStatus> ItemStatusList;

/// Owned by the engine, where hosts find it as `popItemSelector`.
class PopItemSelector {
public:
    // ---- What a host may read -------------------------------------------------------------------

    std::array<ItemStatusList, kSolverCount> itemStatusLists;  ///< the choices, by solver
    /// One of the lists above (not owned). Null until a solver is set; until then operations take
    /// it for an empty list.
    ItemStatusList* currentItemStatusList = nullptr;
    std::vector<CZorbI2WeldlineDataStatus> weldlineTable;  ///< one record per solver
    std::int32_t currentWeldlineIndex = kNoSolver;  ///< its record; that of the current solver
    SolverIndex currentSolver = kNoSolver;          ///< as last set by SetEngineCurrentStatus
    std::int32_t meshKind = 0;                      ///< likewise
    std::int32_t quadraticElement = 0;              ///< likewise
    std::int32_t annealingMode = 0;                 ///< likewise
    std::int32_t projectType;                       ///< of the project record
    std::int32_t solverType;                        ///< of the project record
    std::uint8_t voxelFlag;                         ///< low byte of the record's flag; 1 means set
    /// List sizes as of the last HasPopItem; they limit reads by position until its next call.
    std::int32_t partCount = 0;
    std::int32_t partInsertCount = 0;              ///< likewise
    std::int32_t moldbaseCount = 0;                ///< likewise
    std::vector<std::int32_t> partPopItems;        ///< item ids in offering order
    std::vector<std::int32_t> partInsertPopItems;  ///< likewise
    std::vector<std::int32_t> moldbasePopItems;    ///< likewise

    // ---- What the engine and the manager call ---------------------------------------------------
    // Not exported: a host calls the manager's operations, whose header describes them.

    /// Starts with empty offered lists, no current solver, and for every solver the items' own
    /// choices and a copy of the weld-line data. Keeps pointers to the items, which must outlive
    /// it.
    PopItemSelector(std::int32_t projectSolverType, const ItemArray& items,
                    const CZorbI2WeldlineDataStatus& weldlineAngleSet,
                    std::int32_t projectVoxelFlag, std::int32_t kindOfProject);
    PopItemSelector(const PopItemSelector&) = delete;
    PopItemSelector& operator=(const PopItemSelector&) = delete;

    void SetCurrentStatus(SolverIndex solver, std::int32_t mesh, std::int32_t quadratic,
                          std::int32_t annealing);

    void SetPopItems();
    bool HasPopItem();
    bool HasPartPopItem() const { return partCount != 0; }
    bool HasPartInsertPopItem() const { return partInsertCount != 0; }
    bool HasMoldbasePopItem() const { return moldbaseCount != 0; }

    bool GetPartPopItem(std::int32_t position, CZorbI2Item* item, CZorbI2ItemStatus* status) const;
    bool GetPartInsertPopItem(std::int32_t position, CZorbI2Item* item,
                              CZorbI2ItemStatus* status) const;
    bool GetMoldBasePopItem(std::int32_t position, CZorbI2Item* item,
                            CZorbI2ItemStatus* status) const;
    bool GetPartPopItemByID(std::int32_t itemId, CZorbI2Item* item,
                            CZorbI2ItemStatus* status) const;

    bool SetItemStatus(std::int32_t index, std::int32_t newCheckState, std::int32_t newOptionValue);

private:
    bool GetPopItem(const std::vector<std::int32_t>& offered, std::int32_t count,
                    std::int32_t position, CZorbI2Item* item, CZorbI2ItemStatus* status) const;
    CZorbI2ItemStatus& CurrentStatus(std::int32_t position) const;

    static constexpr SolverIndex kNoSolver = -1;
};
