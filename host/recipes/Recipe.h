// A recipe: everything that the desktop dialog would be told about one hand-over, read from TOML.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>

#include "problems/Problem.h"
#include "recipes/Names.h"

namespace host {

/// An item that the user names, and for it an option's key or label, "on" or "off".
struct Choice {
    Place place;
    std::int32_t itemId = 0;
    std::string value;  ///< not yet compared with what the item has; empty in `required`
};

/// A recipe for showing may lack what only the control file needs; one for listing what the engine
/// offers may lack the target.
enum class Purpose { listing, showing, writing };

/// Texts are UTF-8, paths absolute.
struct Recipe {
    std::string file;  ///< as the user named it
    CZorbFEAInformation project;
    bool emptyRun = false;  ///< there need be no file of the run
    std::int32_t solver = 0;
    std::int32_t meshKind = 0;
    bool quadraticElements = false;
    bool annealing = false;
    std::string mappedMesh;
    std::string controlFolder;
    std::string controlName;
    std::string controlExtension = "cmi";
    std::string outFolder;
    std::vector<Choice> choices;
    std::vector<Choice> required;         ///< must come out as 1 in the file
    std::vector<double> weldlineAngles;   ///< three, in degrees; empty: the engine's own
    std::vector<double> reductionRates;   ///< three fractions; likewise
    std::optional<double> digimatAngle;   ///< degrees; likewise
    std::map<std::string, Place> places;  ///< of the values that were given, by name
    std::set<std::string> pathsHere;      ///< names of the paths that are of this machine
    bool isTargetKnown = false;           ///< no error is about the project or the target
    Problems problems;                    ///< what is wrong or odd in it

    Place PlaceOf(const std::string& name) const;
};

/// What the command line says in the place of the recipe.
struct Overrides {
    std::optional<std::string> solver;
    std::optional<std::string> mesh;
    std::optional<std::string> controlFolder;
    std::vector<std::string> choices;  ///< "ITEM=CHOICE"
};

/// What a name must be that becomes a part of file names.
inline constexpr const char* fileNameRule =
    R"(a valid part of a file name: no leading dot and none of / \ : * ? " < > |)";
bool IsInFileNames(std::string_view name);

/// Reads a recipe whole, with the command line's values in it; "-" reads standard input. All that
/// is wrong with it stands in its problems. The recipe's own path and those of the command line
/// start at `folder`. Throws a Failure when the file cannot be read.
Recipe ReadRecipe(const std::string& file, const Overrides& overrides, const Names& names,
                  const std::filesystem::path& folder, Purpose purpose);

}  // namespace host
