#include "recipes/RecipeValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

#include "control_files/ControlFile.h"
#include "problems/VisibleText.h"
#include "system/Paths.h"

namespace host {

namespace {

/// Whether the control file shows the number as it is.
bool IsPrintedExactly(double number) {
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

}  // namespace

Place RecipeReading::PlaceOf(const toml::source_region& region, const std::string& name) const {
    return {recipe.file, region.begin.line, region.begin.column,
            region.begin.line > 0 ? name : "command line: " + name};
}

void RecipeReading::Refuse(const Place& place, const std::string& text, ExitCode code) const {
    recipe.problems.emplace_back(place, text, code);
}

RecipeValue::RecipeValue(const RecipeReading& reading, const toml::node& node,
                         const std::string& name, const KeyForm& form)
    : reading_(reading), node_(node), place_(reading.PlaceOf(node.source(), name)), form_(form) {}

void RecipeValue::RefuseFor(const std::string& wanted) const {
    reading_.Refuse(place_, Shown() + " is not " + wanted);
}

/// As the user wrote it, or its kind when it is an array or a table.
std::string RecipeValue::Shown() const {
    return node_.is_string() ? Quoted(Word()) : Word();
}

/// The library's formatter is kept from arrays: it measures a fraction in one by its logarithm,
/// which may be negative.
std::string RecipeValue::Word() const {
    if (!node_.is_value()) {
        return node_.is_table() ? "a table" : "an array";
    }
    if (node_.is_floating_point()) {
        return Shortest(node_.value_or(0.0));
    }
    std::ostringstream text;
    text << toml::toml_formatter{node_};
    return node_.is_string() ? node_.value_or(std::string()) : text.str();
}

/// The value as a type; refused unless it is of that type and fits.
template <class Type, class Fits>
std::optional<Type> RecipeValue::Take(const std::string& wanted, const Fits& fits) const {
    const bool isOfType = std::is_same_v<Type, double> ? node_.is_number() : node_.is<Type>();
    // The library converts numbers that do not fit, too.
    std::optional<Type> value = isOfType ? node_.value<Type>() : std::nullopt;
    if (value && fits(*value)) {
        return value;
    }
    RefuseFor(wanted);
    return std::nullopt;
}

bool RecipeValue::Flag() const {
    return Take<bool>("true or false", [](bool) { return true; }).value_or(false);
}

// ---- Numbers ------------------------------------------------------------------------------------

std::string RecipeValue::Range() const {
    return std::string(form_.quantity) + " from 0 to " + std::to_string(form_.highest);
}

std::int32_t RecipeValue::Integer() const {
    const auto fits = [this](std::int64_t number) {
        return number >= 0 && number <= form_.highest;
    };
    return static_cast<std::int32_t>(Take<std::int64_t>(Range(), fits).value_or(0));
}

double RecipeValue::Number() const {
    const auto highest = static_cast<double>(form_.highest);
    const std::optional<double> number =
        Take<double>(Range(), [highest](double value) { return value >= 0.0 && value <= highest; });
    if (number && !IsPrintedExactly(*number)) {
        reading_.Refuse(place_, Shown() + " would be written as " + Printed(*number) +
                                    "; the file keeps at most three decimals");
    }
    return number.value_or(0.0) + 0.0;  // a zero without sign
}

RecipeValue RecipeValue::Element(const toml::node& element) const {
    return {reading_, element, place_.name, form_};
}

std::vector<double> RecipeValue::Numbers() const {
    std::vector<double> numbers;
    const toml::array* const array = node_.as_array();
    if (array == nullptr || array->size() != form_.count) {
        reading_.Refuse(place_, "must be an array of " + std::to_string(form_.count) + " numbers");
        return numbers;
    }
    for (const toml::node& element : *array) {
        numbers.push_back(Element(element).Number());
    }
    return numbers;
}

std::vector<double> RecipeValue::AscendingAngles() const {
    const std::size_t before = reading_.recipe.problems.size();
    std::vector<double> angles = Numbers();
    if (reading_.recipe.problems.size() != before) {
        return angles;
    }
    for (std::size_t i = 1; i < angles.size(); ++i) {
        if (angles[i] <= angles[i - 1]) {
            const RecipeValue later = Element((*node_.as_array())[i]);
            reading_.Refuse(later.place_, later.Shown() + " is not greater than " +
                                              Printed(angles[i - 1]) +
                                              "; the three angles must be in ascending order");
        }
    }
    return angles;
}

// ---- Texts --------------------------------------------------------------------------------------

std::int32_t RecipeValue::OneOf() const {
    const Vocabulary words = form_.words(reading_.names);
    const std::optional<std::int32_t> number = Find(Word(), words);
    if (!number) {
        RefuseFor("one of: " + Listed(WordsOf(words)));
    }
    return number.value_or(0);
}

std::string RecipeValue::Text(const char* hint) const {
    const std::optional<std::string> text = Take<std::string>(
        std::string("a string without line breaks or other control characters") + hint,
        [](const std::string& wanted) { return std::ranges::none_of(wanted, IsControl); });
    return text.value_or("");
}

std::string RecipeValue::FileName() const {
    std::string name = Text();
    if (!IsInFileNames(name)) {
        RefuseFor(fileNameRule);
    }
    return name;
}

std::string RecipeValue::Extension() const {
    std::string extension = FileName();
    const bool endsBadly = extension.ends_with('.') || extension.ends_with(' ');
    if (endsBadly && IsInFileNames(extension)) {
        RefuseFor("a valid extension: no trailing dot or space, because Windows drops them");
    }
    return extension;
}

std::string RecipeValue::Path() const {
    std::string path = Text(node_.is_string() ? singleQuotesHint : "");
    if (MayBeElsewhere(path)) {
        return path;  // as it stands: the translator may run on another machine
    }
    if (path.starts_with('~')) {
        reading_.Refuse(place_, Quoted(path) +
                                    R"( starts with "~", which is not expanded; write out the )" +
                                    "full path");
    } else {
        reading_.recipe.pathsHere.insert(place_.name);
    }
    return AbsolutePath(path, reading_.folder);
}

std::optional<std::string> RecipeValue::Chosen() const {
    if (node_.is_boolean()) {
        return Flag() ? "on" : "off";
    }
    if (node_.is_string() || node_.is_integer()) {
        return Word();
    }
    RefuseFor(R"(an option's key or label, "on" or "off")");
    return std::nullopt;
}

}  // namespace host
