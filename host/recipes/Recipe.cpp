#include "recipes/Recipe.h"

#include <algorithm>
#include <set>
#include <span>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "problems/VisibleText.h"
#include "recipes/RecipeKeys.h"
#include "recipes/RecipeValue.h"
#include "recipes/Toml.h"
#include "recipes/UnfitToml.h"
#include "system/InputFiles.h"
#include "system/Paths.h"

namespace host {

namespace {

namespace fs = std::filesystem;

std::string SectionOf(std::string_view key) {
    return std::string(key.substr(0, key.find('.')));
}

std::string Unknown(const std::string& kind, const std::string& name,
                    const std::vector<std::string>& known) {
    return "unknown " + kind + " " + Quoted(name) + "; closest matches: " + Nearest(name, known);
}

void RefuseKey(const RecipeReading& reading, const Place& place, const std::string& name) {
    std::set<std::string> known = {"choices", "require"};
    for (const RecipeKey& key : RecipeKeys()) {
        known.emplace(key.name);
        known.emplace(SectionOf(key.name));
    }
    reading.Refuse(place, Unknown("key", name, {known.begin(), known.end()}));
}

void ReadKey(const RecipeReading& reading, const Place& place, const std::string& name,
             const toml::node& node) {
    const std::span<const RecipeKey> keys = RecipeKeys();
    const auto key = std::ranges::find(keys, name, &RecipeKey::name);
    if (key == keys.end()) {
        return RefuseKey(reading, place, name);
    }
    const RecipeValue value(reading, node, name, key->form);
    if (!node.is_string() || !value.Word().empty()) {  // an empty text counts as not given
        reading.recipe.places[name] = value.PlaceInRecipe();
        key->read(reading.recipe, value);
    }
}

std::optional<std::int32_t> ItemNamed(const RecipeReading& reading, const Place& place,
                                      const std::string& name) {
    const std::optional<std::int32_t> itemId = Find(name, reading.names.items);
    if (!itemId) {
        reading.Refuse(place, Unknown("item", name, WordsOf(reading.names.items)));
    }
    return itemId;
}

void ReadChoices(const RecipeReading& reading, const toml::table& table) {
    std::vector<Choice>& choices = reading.recipe.choices;
    for (const auto& [key, node] : table) {
        const std::string name(key.str());
        const Place place = reading.PlaceOf(key.source(), "choices");
        if (const auto itemId = ItemNamed(reading, place, name)) {
            if (std::ranges::count(choices, *itemId, &Choice::itemId) != 0) {
                reading.Refuse(place, Quoted(name) + " is chosen twice, under two names");
            }
            const RecipeValue value(reading, node, "choices." + name);
            if (const auto chosen = value.Chosen()) {
                choices.push_back({value.PlaceInRecipe(), *itemId, *chosen});
            }
        }
    }
}

void ReadRequired(const RecipeReading& reading, const toml::node& node) {
    const std::string name = "require";
    if (!node.is_array()) {
        return RecipeValue(reading, node, name).RefuseFor("an array of items");
    }
    for (const toml::node& element : *node.as_array()) {
        const RecipeValue value(reading, element, name);
        if (!element.is_value()) {
            value.RefuseFor("an item");
            continue;
        }
        const std::optional<std::int32_t> itemId =
            ItemNamed(reading, value.PlaceInRecipe(), value.Word());
        if (itemId && ControlFileLineOfItem(*itemId) == nullptr) {
            value.RefuseFor("an item with an on/off line in the file");
        } else if (itemId) {
            reading.recipe.required.push_back({value.PlaceInRecipe(), *itemId, {}});
        }
    }
}

void ReadSection(const RecipeReading& reading, const std::string& section,
                 const toml::table& table) {
    if (section == "choices") {
        return ReadChoices(reading, table);
    }
    for (const auto& [key, value] : table) {
        ReadKey(reading, reading.PlaceOf(key.source(), {}), section + "." + std::string(key.str()),
                value);
    }
}

bool IsSection(const std::string& name) {
    return name == "choices" ||
           std::ranges::any_of(RecipeKeys(), [start = name + "."](const RecipeKey& key) {
               return key.name.starts_with(start);
           });
}

void ReadDocument(const RecipeReading& reading, const toml::table& document) {
    for (const auto& [key, node] : document) {
        const std::string name(key.str());
        const Place place = reading.PlaceOf(key.source(), {});
        if (name == "require") {
            ReadRequired(reading, node);
        } else if (!IsSection(name)) {
            RefuseKey(reading, place, name);
        } else if (!node.is_table()) {
            reading.Refuse(place, Quoted(name) + " must be a section: [" + name + "]");
        } else {
            ReadSection(reading, name, *node.as_table());
        }
    }
}

void ReadChoiceOverride(const RecipeReading& reading, const std::string& choice) {
    std::vector<Choice>& choices = reading.recipe.choices;
    const Place place{reading.recipe.file, 0, 0, "--set " + choice};
    const std::size_t equals = choice.find('=');
    if (equals == std::string::npos) {
        reading.Refuse(place, "must have the form ITEM=CHOICE");
    } else if (const auto itemId = ItemNamed(reading, place, choice.substr(0, equals))) {
        std::erase_if(choices, [&](const Choice& own) { return own.itemId == itemId; });
        choices.push_back({place, *itemId, choice.substr(equals + 1)});
    }
}

void ReadOverrides(const RecipeReading& reading, const Overrides& overrides) {
    const auto read = [&](const char* name, const std::optional<std::string>& text) {
        if (text) {
            ReadKey(reading, {}, name, toml::value(*text));
        }
    };
    read("target.solver", overrides.solver);
    read("target.mesh", overrides.mesh);
    read("control_file.folder", overrides.controlFolder);
    for (const std::string& choice : overrides.choices) {
        ReadChoiceOverride(reading, choice);
    }
}

void RefuseMissing(const RecipeReading& reading, const toml::table& document, Purpose purpose) {
    const Recipe& recipe = reading.recipe;
    for (const RecipeKey& key : RecipeKeys()) {
        const std::string name(key.name);
        const bool isForTarget = name.starts_with("target.");
        if (key.isNeeded && !recipe.places.contains(name) &&
            !(isForTarget && purpose == Purpose::listing)) {
            const toml::node* section = document.get(SectionOf(name));
            reading.Refuse(section != nullptr ? reading.PlaceOf(section->source(), name)
                                              : Place{recipe.file, 1, 1, name},
                           "missing: " + std::string(key.description));
        }
    }
}

/// Whether nothing is wrong about the project and the target, which the offer depends on.
bool IsTargetKnown(const Problems& problems) {
    return std::ranges::none_of(problems, [](const Problem& problem) {
        const std::string& name = problem.place.name;
        return name.starts_with("project") || name.starts_with("target") ||
               name.starts_with("command line: target");
    });
}

/// Requires: the target is known.
void CheckMesh(const RecipeReading& reading, Purpose purpose) {
    const Recipe& recipe = reading.recipe;
    const std::string mesh = Quoted(NameOf(recipe.meshKind, meshKinds));
    const bool needsMesh = purpose == Purpose::writing && recipe.meshKind >= kMeshMapped;
    if (recipe.annealing && recipe.project.projectType != kProjectTypeAnnealing) {
        reading.Refuse(recipe.PlaceOf("target.annealing"),
                       "true needs project.type " + std::to_string(kProjectTypeAnnealing) +
                           ", not " + std::to_string(recipe.project.projectType));
    }
    if (recipe.annealing && recipe.places.contains("target.mesh") &&
        recipe.meshKind != kMeshDeformed) {
        reading.Refuse(recipe.PlaceOf("target.annealing"),
                       "true needs the mesh kind \"deformed\", not " + mesh);
    }
    if (needsMesh && recipe.mappedMesh.empty()) {
        reading.Refuse(recipe.PlaceOf("target.mesh"),
                       mesh + " requires target.mapped_mesh, the path of the mapped mesh");
    }
    std::error_code error;
    if (needsMesh && recipe.pathsHere.contains("target.mapped_mesh") &&
        !fs::is_regular_file(PathOf(recipe.mappedMesh), error)) {
        reading.Refuse(recipe.PlaceOf("target.mapped_mesh"),
                       recipe.mappedMesh + ": " + (error ? ReasonOf(error) : "not a file"),
                       ExitCode::fileTrouble);
    }
}

void WarnOfMissingOutput(const RecipeReading& reading) {
    const Recipe& recipe = reading.recipe;
    std::error_code unknown;
    if (recipe.pathsHere.contains("output.folder") &&
        !fs::is_directory(PathOf(recipe.outFolder), unknown)) {
        reading.recipe.problems.push_back(
            Warning(recipe.PlaceOf("output.folder"),
                    recipe.outFolder + ": no such folder on this machine", ExitCode::fileTrouble));
    }
}

/// The document; nothing when it is not TOML.
std::optional<toml::table> Parse(const RecipeReading& reading, const std::string& text) {
    if (IsControlFile(text)) {
        reading.Refuse({reading.recipe.file}, "is a control file, not a recipe");
        return std::nullopt;
    }
    if (const auto unfit = FindUnfitToml(text)) {
        reading.Refuse({reading.recipe.file, unfit->line, unfit->column}, unfit->reason);
        return std::nullopt;
    }
    toml::parse_result parsed = toml::parse(text);
    if (parsed) {
        return std::move(parsed).table();
    }
    const std::string description(parsed.error().description());
    const bool isEscape = description.find("escape sequence") != std::string::npos ||
                          description.find("unicode scalar sequence") != std::string::npos;
    const bool isBareWord = description.find("determine value type") != std::string::npos;
    reading.Refuse(reading.PlaceOf(parsed.error().source(), {}),
                   description + (isEscape     ? singleQuotesHint
                                  : isBareWord ? "; texts must be in quotes"
                                               : ""));
    return std::nullopt;
}

void SetDefault(std::string& text, const std::string& value) {
    text = text.empty() ? value : text;
}

}  // namespace

Place Recipe::PlaceOf(const std::string& name) const {
    const auto place = places.find(name);
    return place != places.end() ? place->second : Place{file, 0, 0, name};
}

bool IsInFileNames(std::string_view name) {
    return name.find_first_of(R"(/\:*?"<>|)") == std::string_view::npos && !name.starts_with('.');
}

Recipe ReadRecipe(const std::string& file, const Overrides& overrides, const Names& names,
                  const fs::path& folder, Purpose purpose) {
    Recipe recipe;
    recipe.file = file;
    const bool isStream = file == "-";
    const fs::path path = PathOf(AbsolutePath(file, folder));
    const fs::path start = isStream ? folder : path.parent_path();
    const RecipeReading reading{recipe, start, names};
    const std::string text = isStream ? ReadStandardInput({file}) : ReadFile(path, {file});
    if (const auto document = Parse(reading, text)) {
        ReadDocument(reading, *document);
        ReadOverrides({recipe, folder, names}, overrides);
        RefuseMissing(reading, *document, purpose);
        recipe.isTargetKnown = IsTargetKnown(recipe.problems);
    }
    if (recipe.isTargetKnown) {
        CheckMesh(reading, purpose);
    }
    if (purpose == Purpose::writing) {
        WarnOfMissingOutput(reading);
    }
    SetDefault(recipe.controlFolder, Utf8Of(start));
    SetDefault(recipe.controlName, recipe.project.projectName);
    SetDefault(recipe.outFolder, recipe.controlFolder);
    return recipe;
}

}  // namespace host
