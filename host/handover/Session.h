// One pass through the engine for one recipe. All that the host knows about items, options,
// reasons and offers comes from here, and here from the manager.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2EngineManager.h>

#include "control_files/ControlFile.h"
#include "handover/Offers.h"
#include "problems/Problem.h"
#include "recipes/Recipe.h"

namespace host {

class Session {
public:
    /// Creates the engine, which looks for the run's result files. Throws a Failure for texts that
    /// cannot be handed to the engine, for files of the run that cannot be read, and for results
    /// that were not found at first.
    explicit Session(const Recipe& recipe);

    const CZorbI2Engine& Engine() const { return *manager_.engine; }

    /// Makes a solver and mesh kind the current ones. Returns what is offered then.
    std::vector<OfferedItem> Offer(std::int32_t solver, std::int32_t meshKind);

    /// Sets the recipe's solver and mesh kind, its choices and weld-line data, and commits them.
    /// Returns what of it the project does not offer or the engine refuses, what is required but
    /// does not come out, and what is odd.
    Problems ApplyRecipe();

    /// What must stand in the control file, as far as ApplyRecipe came; empty before.
    const ControlFile& Asked() const { return asked_; }

    /// Has the engine write the control file into the scratch folder.
    void Write();

private:
    void CheckMissingResults();
    void Choose(const Choice& choice, Problems& problems);
    void SetWeldLines();
    void CheckRequired(Problems& problems) const;
    void WarnOfNothing(Problems& problems) const;
    std::string ReasonAgainst(std::int32_t itemId) const;  ///< that it comes out as 1

    const Recipe& recipe_;
    CZorbI2EngineManager manager_;
    std::vector<OfferedItem> offered_;  ///< for the recipe's target, with the recipe's choices
    std::set<std::int32_t> refused_;    ///< items whose choices were
    ControlFile asked_;
};

}  // namespace host
