#include "host/Recipe.h"

#include <algorithm>
#include <limits>
#include <sstream>
#include <tuple>

#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

#include "ZorbI2Types.h"
#include "host/Paths.h"

namespace host {

namespace {

namespace fs = std::filesystem;

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

/// A value as the user wrote it, or its kind when it is a long one.
std::string Shown(const toml::node& node) {
    if (node.is_table() || node.is_array()) {
        return node.is_table() ? "a table" : "an array";
    }
    std::ostringstream text;
    text << toml::toml_formatter{node};
    return node.is_string() ? Quoted(*node.value<std::string_view>()) : text.str();
}

/// What all parts of the reading need.
struct Reading {
    Recipe& recipe;
    const fs::path& folder;  ///< relative paths start here
    const Names& names;
    Problems& problems;

    /// Values of the command line have no line.
    Origin OriginOf(const toml::source_region& region, const std::string& name) const {
        return {{recipe.file, region.begin.line, region.begin.column},
                region.begin.line > 0 ? name : "command line: " + name};
    }
    void Refuse(const Origin& origin, const std::string& text) const {
        problems.emplace_back(origin, text, ExitCode::badUsage);
    }
};

struct Range {
    double largest;  ///< from 0 on
    const char* inWords;
};

constexpr Range degrees{180.0, "a number of degrees from 0 to 180"};
constexpr Range fraction{1.0, "a fraction from 0 to 1"};

/// One value. What does not fit is refused, and read as nothing.
struct Value {
    const Reading& reading;
    const Origin& origin;
    const toml::node& node;

    void Refuse(const std::string& wanted) const {
        reading.Refuse(origin, Shown(node) + " is not " + wanted);
    }

    bool Flag() const {
        if (!node.is_boolean()) {
            Refuse("true or false");
        }
        return node.value_or(false);
    }

    std::int32_t Integer() const {
        constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
        const std::int64_t number = node.is_integer() ? **node.as_integer() : -1;
        if (number < 0 || number > largest) {
            Refuse("a whole number from 0 to " + std::to_string(largest));
            return 0;
        }
        return static_cast<std::int32_t>(number);
    }

    std::string Text() const {
        std::string text = node.value_or(std::string());
        const bool isPlain = std::ranges::none_of(
            text, [](unsigned char letter) { return letter < 0x20 || letter == 0x7F; });
        if (!node.is_string() || !isPlain) {
            Refuse("a text without line ends and other control characters");
            text.clear();
        }
        return text;
    }

    std::string FileName() const {
        std::string name = Text();
        if (name.find_first_of("/\\:*?\"<>|") != name.npos || name.rfind('.', 0) == 0) {
            Refuse("a part of a file name: no dot at the start, no / \\ : * ? \" < > |");
        }
        return name;
    }

    std::string Path() const { return AbsolutePath(Text(), reading.folder); }

    std::int32_t OneOf(const Vocabulary& words) const {
        const bool isWord = node.is_string() || node.is_integer();
        const std::optional<std::int32_t> number = isWord ? words.Find(Word()) : std::nullopt;
        if (!number) {
            Refuse("one of: " + words.All());
        }
        return number.value_or(0);
    }

    /// A text or a number as the text that it is.
    std::string Word() const {
        return node.is_string() ? node.value_or(std::string()) : Shown(node);
    }

    double Number(const Range& range) const {
        const double number = node.value_or(-1.0);
        if (!node.is_number() || !(number >= 0.0 && number <= range.largest)) {
            Refuse(range.inWords);
        }
        return number;
    }

    ThreeNumbers Three(const Range& range) const {
        ThreeNumbers numbers{};
        const toml::array* array = node.as_array();
        if (array == nullptr || array->size() != numbers.size()) {
            Refuse("an array of 3 values, each " + std::string(range.inWords));
            return numbers;
        }
        for (std::size_t position = 0; position < numbers.size(); ++position) {
            const toml::node& element = *array->get(position);
            const Origin own = reading.OriginOf(element.source(), origin.name);
            numbers[position] = Value{reading, own, element}.Number(range);
        }
        return numbers;
    }

    /// An option's key or label, "on" or "off".
    std::string Chosen() const {
        if (node.is_boolean()) {
            return node.value_or(false) ? "on" : "off";
        }
        if (!node.is_string() && !node.is_integer()) {
            Refuse("an option's key or label, \"on\" or \"off\"");
        }
        return Word();
    }
};

using Info = CZorbFEAInformation;

template <Info::FlagPosition position>
void ReadFact(Recipe& recipe, const Value& value) {
    recipe.project.flags[position] = value.Flag() ? 1 : 0;
}

struct Key {
    const char* section;
    const char* name;
    const char* neededAs;  ///< what a recipe without it lacks; null: it has a default
    void (*read)(Recipe& recipe, const Value& value);
};

// clang-format off
const Vocabulary analyses = {{kSolidProject, "solid"}, {kShellProject, "shell"}};
constexpr Key keys[] = {
    {"project", "name", "the base name of the run's files", [](Recipe& r, const Value& v) { r.project.projectName = v.FileName(); }},
    {"project", "run", "the number of the run", [](Recipe& r, const Value& v) { r.project.runNumber = v.Integer(); }},
    {"project", "folder", "the folder of the run's files", [](Recipe& r, const Value& v) { r.project.projectFolder = v.Path(); }},
    {"project", "analysis", nullptr, [](Recipe& r, const Value& v) { r.project.solverType = v.OneOf(analyses); }},
    {"project", "type", nullptr, [](Recipe& r, const Value& v) { r.project.projectType = v.Integer(); }},
    {"project", "voxel_mesh", nullptr, [](Recipe& r, const Value& v) { r.project.voxelFlag = v.Flag() ? 1 : 0; }},
    {"project", "fiber_results", nullptr, ReadFact<Info::kHasFiber>},
    {"project", "runners", nullptr, ReadFact<Info::kHasRunners>},
    {"project", "moldbase", nullptr, ReadFact<Info::kHasMoldbase>},
    {"project", "inserted_part", nullptr, ReadFact<Info::kHasInsertedPart>},
    {"project", "meeting_angles", nullptr, ReadFact<Info::kHasMeetingAngle>},
    {"project", "view_edit", nullptr, ReadFact<Info::kViewEditAtStart>},
    {"target", "solver", "the structural solver", [](Recipe& r, const Value& v) { r.solver = v.OneOf(v.reading.names.solvers); }},
    {"target", "mesh", "the mesh kind", [](Recipe& r, const Value& v) { r.meshKind = v.OneOf(v.reading.names.meshes); }},
    {"target", "quadratic_elements", nullptr, [](Recipe& r, const Value& v) { r.quadraticElements = v.Flag(); }},
    {"target", "annealing", nullptr, [](Recipe& r, const Value& v) { r.annealing = v.Flag(); }},
    {"target", "mapped_mesh", nullptr, [](Recipe& r, const Value& v) { r.mappedMesh = v.Path(); }},
    {"control_file", "folder", nullptr, [](Recipe& r, const Value& v) { r.controlFolder = v.Path(); }},
    {"control_file", "name", nullptr, [](Recipe& r, const Value& v) { r.controlName = v.FileName(); }},
    {"control_file", "extension", nullptr, [](Recipe& r, const Value& v) { r.controlExtension = v.FileName(); }},
    {"output", "folder", nullptr, [](Recipe& r, const Value& v) { r.outFolder = v.Path(); }},
    {"weld_lines", "angles", nullptr, [](Recipe& r, const Value& v) { r.weldlineAngles = v.Three(degrees); }},
    {"weld_lines", "reduction_rates", nullptr, [](Recipe& r, const Value& v) { r.reductionRates = v.Three(fraction); }},
    {"weld_lines", "digimat_angle", nullptr, [](Recipe& r, const Value& v) { r.digimatAngle = v.Number(degrees); }},
};
const Vocabulary topLevelNames = {{0, "project"}, {0, "target"}, {0, "control_file"}, {0, "output"},
                                  {0, "choices"}, {0, "weld_lines"}, {0, "require"}};
// clang-format on

std::string Unknown(const std::string& kind, const std::string& name, const Vocabulary& known) {
    return "unknown " + kind + " " + Quoted(name) + "; nearest: " + known.Nearest(name);
}

void ReadSection(const Reading& reading, const std::string& section, const toml::table& table) {
    for (const auto& [name, node] : table) {
        Vocabulary known;
        const Key* found = nullptr;
        for (const Key& key : keys) {
            if (section == key.section) {
                known.Add(0, key.name);
                found = name == key.name ? &key : found;
            }
        }
        const std::string text(name.str());
        if (found == nullptr) {
            reading.Refuse(reading.OriginOf(name.source(), section), Unknown("key", text, known));
        } else if (!node.is_string() || !node.value_or(std::string()).empty()) {
            const Origin origin = reading.OriginOf(node.source(), section + "." + text);
            reading.recipe.origins[section + "." + text] = origin;
            found->read(reading.recipe, {reading, origin, node});
        }  // an empty text counts as not given
    }
}

std::optional<std::int32_t> FindItem(const Reading& reading, const Origin& origin,
                                     const std::string& name) {
    const std::optional<std::int32_t> itemId = reading.names.items.Find(name);
    if (!itemId) {
        reading.Refuse(origin, Unknown("item", name, reading.names.items));
    }
    return itemId;
}

void ReadChoices(const Reading& reading, const toml::table& table) {
    std::vector<Choice>& choices = reading.recipe.choices;
    for (const auto& [key, node] : table) {
        const std::string name(key.str());
        const Origin keyOrigin = reading.OriginOf(key.source(), "choices");
        const Origin origin = reading.OriginOf(node.source(), "choices." + name);
        if (const auto itemId = FindItem(reading, keyOrigin, name)) {
            if (std::ranges::count(choices, *itemId, &Choice::itemId) != 0) {
                reading.Refuse(keyOrigin, Quoted(name) + " is chosen twice, under two names");
            }
            choices.push_back({origin, *itemId, Value{reading, origin, node}.Chosen()});
        }
    }
    std::ranges::sort(choices, {}, [](const Choice& choice) { return choice.origin.place.line; });
}

void ReadRequired(const Reading& reading, const toml::node& node) {
    constexpr std::int32_t itemWithoutLine = 15;
    if (!node.is_array()) {
        return reading.Refuse(reading.OriginOf(node.source(), "require"),
                              Shown(node) + " is not an array of items");
    }
    for (const toml::node& element : *node.as_array()) {
        const Origin origin = reading.OriginOf(element.source(), "require");
        const Value value{reading, origin, element};
        const std::optional<std::int32_t> itemId = FindItem(reading, origin, value.Word());
        if (itemId == itemWithoutLine) {
            value.Refuse("an item with an on/off line in the file");
        } else if (itemId) {
            reading.recipe.required.push_back({origin, *itemId, {}});
        }
    }
}

void ReadTopLevel(const Reading& reading, const toml::table& document) {
    for (const auto& [key, node] : document) {
        const std::string name(key.str());
        const Origin origin = reading.OriginOf(key.source(), {});
        const toml::table* table = node.as_table();
        const bool isSection = name == "choices" || std::ranges::any_of(keys, [&](const Key& row) {
                                   return name == row.section;
                               });
        if (name == "require") {
            ReadRequired(reading, node);
        } else if (!isSection) {
            reading.Refuse(origin, Unknown("name", name, topLevelNames));
        } else if (table == nullptr) {
            reading.Refuse(origin, Quoted(name) + " is a section: [" + name + "]");
        } else if (name == "choices") {
            ReadChoices(reading, *table);
        } else {
            ReadSection(reading, name, *table);
        }
    }
}

/// The command line beats the recipe.
void ReadCommandLine(const Reading& reading, const Options& options) {
    toml::table target;
    if (options.solver) {
        target.insert("solver", *options.solver);
    }
    if (options.mesh) {
        target.insert("mesh", *options.mesh);
    }
    ReadSection(reading, "target", target);
    if (options.outFolder) {
        ReadSection(reading, "control_file", toml::table{{"folder", *options.outFolder}});
    }
    for (const std::string& choice : options.choices) {
        const Origin origin{{reading.recipe.file}, "--set " + choice};
        const std::size_t equals = choice.find('=');
        if (equals == choice.npos) {
            reading.Refuse(origin, "not of the form ITEM=CHOICE");
        } else if (const auto itemId = FindItem(reading, origin, choice.substr(0, equals))) {
            std::erase_if(reading.recipe.choices,
                          [&itemId](const Choice& own) { return own.itemId == itemId; });
            reading.recipe.choices.push_back({origin, *itemId, choice.substr(equals + 1)});
        }
    }
}

void RefuseMissing(const Reading& reading, const toml::table& document) {
    for (const Key& key : keys) {
        const std::string name = std::string(key.section) + "." + key.name;
        if (key.neededAs != nullptr && !reading.recipe.origins.contains(name)) {
            const toml::node* section = document.get(key.section);
            reading.Refuse(section != nullptr ? reading.OriginOf(section->source(), name)
                                              : Origin{{reading.recipe.file, 1, 1}, name},
                           std::string("missing: ") + key.neededAs);
        }
    }
}

void SetDefaults(Recipe& recipe, const fs::path& folder) {
    const auto setDefault = [](std::string& text, const std::string& value) {
        text = text.empty() ? value : text;
    };
    setDefault(recipe.controlFolder, Utf8Of(folder));
    setDefault(recipe.controlName, recipe.project.projectName);
    setDefault(recipe.outFolder, recipe.controlFolder);
}

}  // namespace

Origin Recipe::OriginOf(const std::string& key) const {
    const auto origin = origins.find(key);
    return origin != origins.end() ? origin->second : Origin{{file}, key};
}

Recipe ReadRecipe(const std::string& file, const Options& options, const Names& names,
                  const fs::path& folder, Problems& problems) {
    Recipe recipe;
    recipe.file = file;
    const fs::path path = PathOf(AbsolutePath(file, folder));
    const fs::path home = path.parent_path();
    Problems found;
    const Reading reading{recipe, home, names, found};
    const toml::parse_result parsed = toml::parse(ReadFile(path));
    if (parsed) {
        ReadTopLevel(reading, parsed.table());
        ReadCommandLine({recipe, folder, names, found}, options);
        RefuseMissing(reading, parsed.table());
        SetDefaults(recipe, home);
    } else {
        reading.Refuse(reading.OriginOf(parsed.error().source(), {}),
                       std::string(parsed.error().description()));
    }
    std::ranges::stable_sort(found, {}, [](const Problem& problem) {
        return std::tuple(problem.place.line, problem.place.column);
    });
    problems.insert(problems.end(), found.begin(), found.end());
    return recipe;
}

}  // namespace host
