// One pass through the engine for one recipe. All that the host knows about items, options,
// reasons and offers comes from here, and here from the manager.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2ItemStatus.h>

#include "ControlFile.h"
#include "Problem.h"
#include "Recipe.h"

class SolverSlot;

namespace host {

/// An item that the dialog offers, with the choice made for it.
struct OfferedItem {
    int group = 0;  ///< of the dialog: 0 part, 1 part insert, 2 moldbase
    CZorbI2Item item;
    CZorbI2ItemStatus status;

    bool IsMissing() const { return status.optionValue == kOptionResultsMissing; }
    bool IsSwitch() const { return status.checkState != kNotACheckItem; }
    /// The label of the chosen option; of an item without results, the reason.
    std::string Label() const { return item.options.at(status.optionValue); }
};

class Session {
public:
    /// Creates the engine, which looks for the run's result files. Throws Problems for texts that
    /// cannot be handed to the engine.
    explicit Session(const Recipe& recipe);

    const CZorbI2Engine& Engine() const { return *manager_.engine; }

    /// The solvers that are offered for the project.
    std::vector<const SolverSlot*> Solvers() const;

    /// Makes a solver and mesh kind the current ones. Returns what is offered then, in the order
    /// of the dialog.
    const std::vector<OfferedItem>& Offer(std::int32_t solver, std::int32_t meshKind);

    /// Sets the recipe's solver and mesh kind, its choices and weld-line data, and commits them.
    /// Returns what of it the project does not offer or the engine refuses.
    Problems ApplyRecipe();

    /// Has the engine write the control file, and returns what must stand in it.
    ControlFile Write(const std::filesystem::path& folder, const std::string& extension);

    /// Why an item does not come out as 1 in the file.
    std::string ReasonAgainst(std::int32_t itemId) const;

private:
    void CheckTarget(Problems& problems) const;
    void Choose(const Choice& choice, Problems& problems);
    void SetWeldLines();
    const OfferedItem* FindOffered(std::int32_t itemId) const;

    const Recipe& recipe_;
    CZorbI2EngineManager manager_;
    std::vector<OfferedItem> offered_;
};

/// The names of items and solvers; asks the engine for its titles and display names.
Names AskNames();

bool Offers(const SolverSlot& slot, std::int32_t meshKind);

/// Where the engine puts the recipe's control file. Looks at no file.
std::filesystem::path ControlFilePath(const Recipe& recipe);

}  // namespace host
