// A recipe: everything that the desktop dialog would be told about one hand-over, read from TOML.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>

#include "CommandLine.h"
#include "Names.h"
#include "Problem.h"

namespace host {

/// An item that the user names, and for it an option's key or label, "on" or "off".
struct Choice {
    Place place;
    std::int32_t itemId = 0;
    std::string value;  ///< not yet compared with what the item has; empty in `required`
};

/// Texts are UTF-8, paths absolute.
struct Recipe {
    std::string file;  ///< as the user named it
    CZorbFEAInformation project;
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

    Place PlaceOf(const std::string& name) const;
};

/// Reads a recipe whole, as changed by the command line. Throws all that is wrong with it, in the
/// order of its lines. The paths of recipe and command line start at `folder`.
Recipe ReadRecipe(const std::string& file, const Options& options, const Names& names,
                  const std::filesystem::path& folder);

/// Throws Problems unless a path of a recipe is a folder.
void CheckFolder(const std::string& folder, const Place& place);

}  // namespace host
