#include "recipes/Recipe.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <set>
#include <sstream>
#include <tuple>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "problems/VisibleText.h"
#include "recipes/RecipeKeys.h"
#include "recipes/Toml.h"
#include "recipes/UnfitToml.h"
#include "system/Paths.h"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t highestRun = std::numeric_limits<std::int32_t>::max();
constexpr double highestAngle = 180.0;

constexpr const char* singleQuotesHint =
    R"(; use single quotes to keep backslashes as they are: 'D:\x')";

/// Whether the control file shows the number as it is.
bool IsPrintedWhole(double number) {
    const std::string printed = Printed(number);
    double read = 0.0;
    std::from_chars(printed.data(), printed.data() + printed.size(), read);
    return read == number;
}

/// A fraction with no more digits than tell it from others, as people write it.
std::string Shortest(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    const std::string text(digits.data(), end.ptr);
    return text + (text.find_first_not_of("-0123456789") == std::string::npos ? ".0" : "");
}

/// What is read, and into what. A value that does not fit is refused, and read as nothing.
struct Reader {
    Recipe& recipe;
    const fs::path& folder;  ///< relative paths start here
    const Names& names;
    Problems& problems;
    const toml::node* node = nullptr;  ///< the value at hand
    Place place = {};                  ///< of that value

    Reader At(const toml::node& value, const std::string& name) const {
        return {recipe, folder, names, problems, &value, PlaceOf(value.source(), name)};
    }

    /// Values of the command line have no line.
    Place PlaceOf(const toml::source_region& region, const std::string& name) const {
        return {recipe.file, region.begin.line, region.begin.column,
                region.begin.line > 0 ? name : "command line: " + name};
    }

    void Refuse(const Place& where, const std::string& text,
                ExitCode code = ExitCode::badUsage) const {
        problems.emplace_back(where, text, code);
    }
    void RefuseFor(const std::string& wanted) const {
        Refuse(place, Shown() + " is not " + wanted);
    }

    /// The value as the user wrote it, or its kind when it is a long one.
    std::string Shown() const { return node->is_string() ? Quoted(Word()) : Word(); }

    /// A text or a number as the text that it is. The library's formatter is kept from arrays: it
    /// measures a fraction in one by its logarithm, which may be negative.
    std::string Word() const {
        if (!node->is_value()) {
            return node->is_table() ? "a table" : "an array";
        }
        if (node->is_floating_point()) {
            return Shortest(node->value_or(0.0));
        }
        std::ostringstream text;
        text << toml::toml_formatter{*node};
        return node->is_string() ? node->value_or(std::string()) : text.str();
    }

    /// The value as a type; refused unless it is of that type and fits.
    template <class Type, class Fits>
    Type Take(const std::string& wanted, const Fits& fits) const {
        const bool isOfType = std::is_same_v<Type, double> ? node->is_number() : node->is<Type>();
        // The library converts numbers that do not fit, too.
        const std::optional<Type> value = isOfType ? node->value<Type>() : std::nullopt;
        if (!value || !fits(*value)) {
            RefuseFor(wanted);
            return {};
        }
        return *value;
    }

    bool Flag() const {
        return Take<bool>("true or false", [](bool) { return true; });
    }

    std::int32_t RunNumber() const { return Integer(highestRun); }
    std::int32_t ProjectType() const { return Integer(highestProjectType); }
    std::int32_t Integer(std::int32_t highest) const {
        return static_cast<std::int32_t>(Take<std::int64_t>(
            "a whole number from 0 to " + std::to_string(highest),
            [highest](std::int64_t number) { return number >= 0 && number <= highest; }));
    }

    double Angle() const { return Number("a number of degrees from 0 to 180", highestAngle); }
    double Fraction() const { return Number("a fraction from 0 to 1", 1.0); }
    double Number(const char* wanted, double highest) const {
        const std::size_t before = problems.size();
        const auto number = Take<double>(
            wanted, [highest](double value) { return value >= 0.0 && value <= highest; });
        if (problems.size() == before && !IsPrintedWhole(number)) {
            Refuse(place, Shown() + " would be written as " + Printed(number) +
                              "; the file keeps at most three decimals");
        }
        return number + 0.0;  // a zero without sign
    }

    std::string Text(const std::string& hint = {}) const {
        return Take<std::string>(
            "a string without line breaks or other control characters" + hint,
            [](const std::string& text) { return std::ranges::none_of(text, IsControl); });
    }

    std::string FileName() const {
        std::string name = Text();
        if (name.find_first_of(R"(/\:*?"<>|)") != std::string::npos || name.rfind('.', 0) == 0) {
            RefuseFor(
                R"(a valid part of a file name: no leading dot and none of / \ : * ? " < > |)");
        }
        return name;
    }

    std::string Extension() const {
        std::string extension = FileName();
        if (extension.ends_with('.') || extension.ends_with(' ')) {
            RefuseFor("a valid extension: no trailing dot or space, because Windows drops them");
        }
        return extension;
    }

    std::string Path() const {
        std::string path = Text(node->is_string() ? singleQuotesHint : "");
        if (MayBeElsewhere(path)) {
            return path;  // as it stands: the translator may run on another machine
        }
        if (path.starts_with('~')) {
            Refuse(place, Quoted(path) +
                              R"( starts with "~", which is not expanded; write out the )" +
                              "full path");
        } else {
            recipe.pathsHere.insert(place.name);
        }
        return AbsolutePath(path, folder);
    }

    std::int32_t OneOf(const Vocabulary& words) const {
        const std::optional<std::int32_t> number = Find(Word(), words);
        if (!number) {
            RefuseFor("one of: " + Listed(words));
        }
        return number.value_or(0);
    }

    std::vector<double> Three(double (Reader::*number)() const) const {
        std::vector<double> numbers;
        const toml::array* array = node->as_array();
        if (array == nullptr || array->size() != 3) {
            Refuse(place, "must be an array of 3 numbers");
            return numbers;
        }
        for (const toml::node& element : *array) {
            numbers.push_back((At(element, place.name).*number)());
        }
        return numbers;
    }

    std::vector<double> Angles() const {
        const std::size_t before = problems.size();
        std::vector<double> angles = Three(&Reader::Angle);
        if (problems.size() != before) {
            return angles;
        }
        for (std::size_t i = 1; i < angles.size(); ++i) {
            if (angles[i] <= angles[i - 1]) {
                const Reader angle = At((*node->as_array())[i], place.name);
                Refuse(angle.place, angle.Shown() + " is not greater than " +
                                        Printed(angles[i - 1]) +
                                        "; the three angles must be in ascending order");
            }
        }
        return angles;
    }

    /// The value of a choice.
    std::string Chosen() const {
        if (!node->is_boolean() && !node->is_string() && !node->is_integer()) {
            RefuseFor(R"(an option's key or label, "on" or "off")");
        }
        return node->is_boolean() ? (Flag() ? "on" : "off") : Word();
    }
};

using Info = CZorbFEAInformation;

template <Info::FlagPosition position>
void ReadFact(Recipe& recipe, const Reader& value) {
    recipe.project.flags[position] = value.Flag();
}

struct Key {
    KeyDescription is;
    void (*read)(Recipe& recipe, const Reader& value);
};

// clang-format off
const Vocabulary analyses = {{kSolidProject, "solid"}, {kShellProject, "shell"}};

constexpr KeyForm anyText =        {"string"};
constexpr KeyForm flag =           {"boolean"};
constexpr KeyForm runNumber =      {"integer", highestRun};
constexpr KeyForm projectType =    {"integer", highestProjectType};
constexpr KeyForm angle =          {"number",  highestAngle};
constexpr KeyForm threeAngles =    {"number",  highestAngle, 3};
constexpr KeyForm threeFractions = {"number",  1.0, 3};
constexpr KeyForm analysis =       {"name",    0.0, 1, [](const Names&) { return analyses; }};
constexpr KeyForm meshKind =       {"name",    0.0, 1, [](const Names&) { return meshKinds; }};
constexpr KeyForm solverName =     {"name",    0.0, 1, [](const Names& names) { return names.solvers; }};

constexpr bool needed = true;
constexpr bool hasDefault = false;
constexpr Key keys[] = {
    {{"project.name", needed, anyText, "the base name of the run's files"}, [](Recipe& r, const Reader& v) { r.project.projectName = v.FileName(); }},
    {{"project.run", needed, runNumber, "the number of the run"}, [](Recipe& r, const Reader& v) { r.project.runNumber = v.RunNumber(); }},
    {{"project.folder", needed, anyText, "the folder of the run's files"}, [](Recipe& r, const Reader& v) { r.project.projectFolder = v.Path(); }},
    {{"project.empty_run", hasDefault, flag, "the run may have no result files"}, [](Recipe& r, const Reader& v) { r.emptyRun = v.Flag(); }},
    {{"project.analysis", hasDefault, analysis, "kind of molding analysis"}, [](Recipe& r, const Reader& v) { r.project.solverType = v.OneOf(analyses); }},
    {{"project.type", hasDefault, projectType, "project type: 3 is annealing; 4 and 6 to 11 are injection compression (9 is Mucell)"}, [](Recipe& r, const Reader& v) { r.project.projectType = v.ProjectType(); }},
    {{"project.voxel_mesh", hasDefault, flag, "the results are voxel-mesh results"}, [](Recipe& r, const Reader& v) { r.project.voxelFlag = v.Flag(); }},
    {{"project.fiber_results", hasDefault, flag, "the project has fiber results"}, ReadFact<Info::kHasFiber>},
    {{"project.runners", hasDefault, flag, "the project has runners"}, ReadFact<Info::kHasRunners>},
    {{"project.moldbase", hasDefault, flag, "the project has a moldbase"}, ReadFact<Info::kHasMoldbase>},
    {{"project.inserted_part", hasDefault, flag, "the project has an inserted part"}, ReadFact<Info::kHasInsertedPart>},
    {{"project.meeting_angles", hasDefault, flag, "the project has weld-line meeting angles"}, ReadFact<Info::kHasMeetingAngle>},
    {{"project.view_edit", hasDefault, flag, "a model edited in the viewer is mapped"}, ReadFact<Info::kViewEditAtStart>},
    {{"target.solver", needed, solverName, "the structural solver"}, [](Recipe& r, const Reader& v) { r.solver = v.OneOf(v.names.solvers); }},
    {{"target.mesh", needed, meshKind, "the mesh kind"}, [](Recipe& r, const Reader& v) { r.meshKind = v.OneOf(meshKinds); }},
    {{"target.quadratic_elements", hasDefault, flag, "use the second of the solver's element types"}, [](Recipe& r, const Reader& v) { r.quadraticElements = v.Flag(); }},
    {{"target.annealing", hasDefault, flag, "use the annealing-deformed mesh as the deformed mesh"}, [](Recipe& r, const Reader& v) { r.annealing = v.Flag(); }},
    {{"target.mapped_mesh", hasDefault, anyText, "path of the mapped mesh, which the two mapped mesh kinds need"}, [](Recipe& r, const Reader& v) { r.mappedMesh = v.Path(); }},
    {{"control_file.folder", hasDefault, anyText, "folder of the control file; by default the recipe's"}, [](Recipe& r, const Reader& v) { r.controlFolder = v.Path(); }},
    {{"control_file.name", hasDefault, anyText, "name of the control file, without the run number; by default project.name"}, [](Recipe& r, const Reader& v) { r.controlName = v.FileName(); }},
    {{"control_file.extension", hasDefault, anyText, "extension of the control file, without the dot; by default cmi"}, [](Recipe& r, const Reader& v) { r.controlExtension = v.Extension(); }},
    {{"output.folder", hasDefault, anyText, "where the translator puts its files; by default next to the control file"}, [](Recipe& r, const Reader& v) { r.outFolder = v.Path(); }},
    {{"weld_lines.angles", hasDefault, threeAngles, "three ascending angles in degrees"}, [](Recipe& r, const Reader& v) { r.weldlineAngles = v.Angles(); }},
    {{"weld_lines.reduction_rates", hasDefault, threeFractions, "remaining strength, as three fractions"}, [](Recipe& r, const Reader& v) { r.reductionRates = v.Three(&Reader::Fraction); }},
    {{"weld_lines.digimat_angle", hasDefault, angle, "the Digimat angle, in degrees"}, [](Recipe& r, const Reader& v) { r.digimatAngle = v.Angle(); }},
};
// clang-format on

std::string SectionOf(std::string_view key) {
    return std::string(key.substr(0, key.find('.')));
}

std::string Unknown(const std::string& kind, const std::string& name, const Vocabulary& known) {
    return "unknown " + kind + " " + Quoted(name) + "; closest matches: " + Nearest(name, known);
}

void RefuseKey(const Reader& reader, const Place& place, const std::string& name) {
    std::set<std::string> known = {"choices", "require"};
    for (const Key& key : keys) {
        known.emplace(key.is.name);
        known.emplace(SectionOf(key.is.name));
    }
    Vocabulary words;
    for (const std::string& word : known) {
        words.emplace_back(0, word);
    }
    reader.Refuse(place, Unknown("key", name, words));
}

void ReadKey(const Reader& reader, const Place& place, const std::string& name,
             const toml::node& node) {
    const Key* const key =
        std::ranges::find(keys, name, [](const Key& candidate) { return candidate.is.name; });
    if (key == std::end(keys)) {
        return RefuseKey(reader, place, name);
    }
    const Reader value = reader.At(node, name);
    if (!node.is_string() || !value.Word().empty()) {  // an empty text counts as not given
        reader.recipe.places[name] = value.place;
        key->read(reader.recipe, value);
    }
}

std::optional<std::int32_t> FindItem(const Reader& reader, const Place& place,
                                     const std::string& name) {
    const std::optional<std::int32_t> itemId = Find(name, reader.names.items);
    if (!itemId) {
        reader.Refuse(place, Unknown("item", name, reader.names.items));
    }
    return itemId;
}

void ReadChoices(const Reader& reader, const toml::table& table) {
    std::vector<Choice>& choices = reader.recipe.choices;
    for (const auto& [key, node] : table) {
        const std::string name(key.str());
        const Place place = reader.PlaceOf(key.source(), "choices");
        if (const auto itemId = FindItem(reader, place, name)) {
            if (std::ranges::count(choices, *itemId, &Choice::itemId) != 0) {
                reader.Refuse(place, Quoted(name) + " is chosen twice, under two names");
            }
            const Reader value = reader.At(node, "choices." + name);
            const std::size_t before = reader.problems.size();
            const std::string chosen = value.Chosen();
            if (reader.problems.size() == before) {
                choices.push_back({value.place, *itemId, chosen});
            }
        }
    }
}

void ReadRequired(const Reader& reader) {
    if (!reader.node->is_array()) {
        return reader.RefuseFor("an array of items");
    }
    for (const toml::node& element : *reader.node->as_array()) {
        const Reader value = reader.At(element, "require");
        if (!element.is_value()) {
            value.RefuseFor("an item");
            continue;
        }
        const std::optional<std::int32_t> itemId = FindItem(reader, value.place, value.Word());
        if (itemId && ControlFileLineOfItem(*itemId) == nullptr) {
            value.RefuseFor("an item with an on/off line in the file");
        } else if (itemId) {
            reader.recipe.required.push_back({value.place, *itemId, {}});
        }
    }
}

void ReadSection(const Reader& reader, const std::string& section, const toml::table& table) {
    if (section == "choices") {
        return ReadChoices(reader, table);
    }
    for (const auto& [key, value] : table) {
        ReadKey(reader, reader.PlaceOf(key.source(), {}), section + "." + std::string(key.str()),
                value);
    }
}

bool IsSection(const std::string& name) {
    return name == "choices" || std::ranges::any_of(keys, [start = name + "."](const Key& key) {
               return key.is.name.starts_with(start);
           });
}

void ReadDocument(const Reader& reader, const toml::table& document) {
    for (const auto& [key, node] : document) {
        const std::string name(key.str());
        const Place place = reader.PlaceOf(key.source(), {});
        if (name == "require") {
            ReadRequired(reader.At(node, name));
        } else if (!IsSection(name)) {
            RefuseKey(reader, place, name);
        } else if (!node.is_table()) {
            reader.Refuse(place, Quoted(name) + " must be a section: [" + name + "]");
        } else {
            ReadSection(reader, name, *node.as_table());
        }
    }
}

void ReadChoiceOverride(const Reader& reader, const std::string& choice) {
    std::vector<Choice>& choices = reader.recipe.choices;
    const Place place{reader.recipe.file, 0, 0, "--set " + choice};
    const std::size_t equals = choice.find('=');
    if (equals == std::string::npos) {
        reader.Refuse(place, "must have the form ITEM=CHOICE");
    } else if (const auto itemId = FindItem(reader, place, choice.substr(0, equals))) {
        std::erase_if(choices, [&](const Choice& own) { return own.itemId == itemId; });
        choices.push_back({place, *itemId, choice.substr(equals + 1)});
    }
}

void ReadOverrides(const Reader& reader, const Overrides& overrides) {
    const auto read = [&](const char* name, const std::optional<std::string>& text) {
        if (text) {
            ReadKey(reader, {}, name, toml::value(*text));
        }
    };
    read("target.solver", overrides.solver);
    read("target.mesh", overrides.mesh);
    read("control_file.folder", overrides.controlFolder);
    for (const std::string& choice : overrides.choices) {
        ReadChoiceOverride(reader, choice);
    }
}

void RefuseMissing(const Reader& reader, const toml::table& document, Purpose purpose) {
    const Recipe& recipe = reader.recipe;
    for (const Key& key : keys) {
        const std::string name(key.is.name);
        const bool isForTarget = name.starts_with("target.");
        if (key.is.isNeeded && !recipe.places.contains(name) &&
            !(isForTarget && purpose == Purpose::listing)) {
            const toml::node* section = document.get(SectionOf(name));
            reader.Refuse(section != nullptr ? reader.PlaceOf(section->source(), name)
                                             : Place{recipe.file, 1, 1, name},
                          "missing: " + std::string(key.is.description));
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
void CheckTarget(const Reader& reader, Purpose purpose) {
    const Recipe& recipe = reader.recipe;
    const std::string mesh = Quoted(NameOf(recipe.meshKind, meshKinds));
    const bool needsMesh = purpose == Purpose::writing && recipe.meshKind >= kMeshMapped;
    if (recipe.annealing && recipe.project.projectType != kProjectTypeAnnealing) {
        reader.Refuse(recipe.PlaceOf("target.annealing"),
                      "true needs project.type " + std::to_string(kProjectTypeAnnealing) +
                          ", not " + std::to_string(recipe.project.projectType));
    }
    if (recipe.annealing && recipe.meshKind != kMeshDeformed) {
        reader.Refuse(recipe.PlaceOf("target.annealing"),
                      "true needs the mesh kind \"deformed\", not " + mesh);
    }
    if (needsMesh && recipe.mappedMesh.empty()) {
        reader.Refuse(recipe.PlaceOf("target.mesh"),
                      mesh + " requires target.mapped_mesh, the path of the mapped mesh");
    }
    std::error_code error;
    if (needsMesh && recipe.pathsHere.contains("target.mapped_mesh") &&
        !fs::is_regular_file(PathOf(recipe.mappedMesh), error)) {
        reader.Refuse(recipe.PlaceOf("target.mapped_mesh"),
                      recipe.mappedMesh + ": " + (error ? ReasonOf(error) : "not a file"),
                      ExitCode::fileTrouble);
    }
}

void WarnOfMissingOutput(const Reader& reader) {
    const Recipe& recipe = reader.recipe;
    std::error_code unknown;
    if (recipe.pathsHere.contains("output.folder") &&
        !fs::is_directory(PathOf(recipe.outFolder), unknown)) {
        reader.problems.push_back(Warning(recipe.PlaceOf("output.folder"),
                                          recipe.outFolder + ": no such folder on this machine",
                                          ExitCode::fileTrouble));
    }
}

/// The document; nothing when it is not TOML.
std::optional<toml::table> Parse(const Reader& reader, const std::string& text) {
    if (const auto unfit = FindUnfitToml(text)) {
        reader.Refuse({reader.recipe.file, unfit->line, unfit->column}, unfit->reason);
        return std::nullopt;
    }
    toml::parse_result parsed = toml::parse(text);
    if (parsed) {
        return std::move(parsed).table();
    }
    const std::string description(parsed.error().description());
    const bool isEscape = description.find("escape sequence") != std::string::npos ||
                          description.find("unicode scalar sequence") != std::string::npos;
    reader.Refuse(reader.PlaceOf(parsed.error().source(), {}),
                  description + (isEscape ? singleQuotesHint : ""));
    return std::nullopt;
}

void SetDefault(std::string& text, const std::string& value) {
    text = text.empty() ? value : text;
}

}  // namespace

std::vector<KeyDescription> RecipeKeys() {
    std::vector<KeyDescription> descriptions;
    for (const Key& key : keys) {
        descriptions.push_back(key.is);
    }
    return descriptions;
}

Place Recipe::PlaceOf(const std::string& name) const {
    const auto place = places.find(name);
    return place != places.end() ? place->second : Place{file, 0, 0, name};
}

Recipe ReadRecipe(const std::string& file, const Overrides& overrides, const Names& names,
                  const fs::path& folder, Purpose purpose) {
    Recipe recipe;
    recipe.file = file;
    const bool isStream = file == "-";
    const fs::path path = PathOf(AbsolutePath(file, folder));
    const fs::path start = isStream ? folder : path.parent_path();
    const Reader reader{recipe, start, names, recipe.problems};
    const std::string text = isStream ? ReadStandardInput({file}) : ReadFile(path, {file});
    if (const auto document = Parse(reader, text)) {
        ReadDocument(reader, *document);
        ReadOverrides({recipe, folder, names, recipe.problems}, overrides);
        RefuseMissing(reader, *document, purpose);
        recipe.isTargetKnown = IsTargetKnown(recipe.problems);
    }
    if (recipe.isTargetKnown) {
        CheckTarget(reader, purpose);
    }
    if (purpose == Purpose::writing) {
        WarnOfMissingOutput(reader);
    }
    SetDefault(recipe.controlFolder, Utf8Of(start));
    SetDefault(recipe.controlName, recipe.project.projectName);
    SetDefault(recipe.outFolder, recipe.controlFolder);
    return recipe;
}

void SortByLine(Problems& problems) {
    std::ranges::stable_sort(problems, {}, [](const Problem& problem) {
        return std::tuple(problem.place.line, problem.place.column);
    });
}

}  // namespace host
