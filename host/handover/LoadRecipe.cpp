#include "handover/LoadRecipe.h"

#include "handover/Session.h"
#include "system/Paths.h"

namespace host {

namespace {

/// Tries a recipe that is already known to be wrong.
Problems ProblemsOfPass(const Recipe& recipe) {
    try {
        CheckFolder(recipe.project.projectFolder, recipe.PlaceOf("project.folder"));
        return Session(recipe).ApplyRecipe();
    } catch (const Failure& failure) {
        return failure.List();
    }
}

}  // namespace

Recipe LoadRecipe(const std::string& file, const Overrides& overrides, const Names& names,
                  const std::filesystem::path& folder, Purpose purpose) {
    Recipe recipe = ReadRecipe(file, overrides, names, folder, purpose);
    if (HasErrors(recipe.problems) && recipe.isTargetKnown) {
        Problems more = ProblemsOfPass(recipe);
        std::erase_if(more, [](const Problem& problem) { return problem.isWarning; });
        AddTo(recipe.problems, more);
    }
    SortByLine(recipe.problems);
    ThrowErrors(recipe.problems);
    return recipe;
}

}  // namespace host
