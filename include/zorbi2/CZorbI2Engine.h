// The state of one open project: the host's record, the solver slots, the items, the user's
// choices and the settings. Created by the manager; hosts change it only through the manager.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CZorbFEAInformation.h"
#include "CZorbI2Item.h"
#include "CZorbI2ItemStatus.h"
#include "CZorbI2WeldlineDataStatus.h"
#include "PopItemSelector.h"
#include "SolverSlot.h"
#include "ZorbI2Types.h"

/// Hosts get it from CZorbI2EngineManager::GetZorbI2Engine().
class CZorbI2Engine {
public:
    // ---- What a host may read -------------------------------------------------------------------

    std::string outFolder;           ///< where the translator puts its files
    std::string cmiFileFullPath;     ///< of the control parameter file
    std::string mappedMeshFilePath;  ///< as set, whatever the mesh kind
    SolverSlotArray solverSlots;     ///< by solver; null: not offered, or no memory for it
    ItemArray items;                 ///< by item id
    /// The working weld-line data, from which the control parameter file is written.
    std::unique_ptr<CZorbI2WeldlineDataStatus> weldlineAngleSet;
    double digimatWeldlineAngle = kDefaultDigimatWeldlineAngle;  ///< degrees
    bool viewEdit = false;                             ///< a model edited in the viewer is mapped
    std::unique_ptr<PopItemSelector> popItemSelector;  ///< status, choices and offered items
    std::unique_ptr<CZorbFEAInformation> feaInformation;  ///< the engine's copy; never null
    std::vector<bool> solverOffered;                      ///< by solver; empty in a bare engine
    /// Values of the shot file last read; a file without the key leaves them as they are.
    std::int32_t flagPrevShot = 0;    ///< 1: the part insert comes from a previous shot
    std::int32_t valueShotRunID = 0;  ///< run number of that shot

    // ---- What the manager calls -----------------------------------------------------------------
    // Not exported: a host calls the manager's operations, whose header describes them.

    /// Copies `*info` and, when its flag 1 is exactly 1, builds slots, items, weld-line data and
    /// selector. Otherwise, or for a null `info`, a bare engine: those pointers stay null.
    explicit CZorbI2Engine(const CZorbFEAInformation* info);
    ~CZorbI2Engine();
    CZorbI2Engine(const CZorbI2Engine&) = delete;
    CZorbI2Engine& operator=(const CZorbI2Engine&) = delete;

    void SetEngineCurrentStatus(SolverIndex solver, std::int32_t meshKind,
                                std::int32_t quadraticElement, std::int32_t annealingMode);
    void GetCurrentSolverStatus(SolverIndex solver, std::int32_t& meshKind,
                                std::int32_t& quadraticElement, std::int32_t& annealingMode) const;

    bool HasItemOfCategory(ItemCategory category) const;
    bool GetItem(ItemCategory category, std::int32_t itemId, CZorbI2Item* item) const;
    bool GetItemAllOptions(std::int32_t itemId, std::map<std::int32_t, std::string>& options) const;
    void SetItemsValue();
    ResultCode GetProjectResults(std::int32_t itemId);

    void SetWeldlineDataStatus(SolverIndex solver, const std::vector<double>& angles,
                               const std::vector<double>& rates);
    void SetWeldlineDataValue();
    void GetWeldlinePopData(SolverIndex solver, CZorbI2WeldlineDataStatus& record) const;

private:
    void BuildCatalogue();
    bool HasSlot(SolverIndex solver) const;
};
