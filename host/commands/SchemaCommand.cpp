// The command "schema": what a recipe looks like, as a JSON schema for editors.
#include <cctype>

#include "commands/Commands.h"
#include "commands/Surroundings.h"
#include "console/Report.h"
#include "recipes/RecipeKeys.h"

namespace host {

namespace {

/// A value that is one of some names, which the recipe may also spell otherwise or give as numbers.
Json NameSchema(const Vocabulary& words) {
    return {{"anyOf", {{{"enum", WordsOf(words)}}, {{"type", {"string", "integer"}}}}}};
}

Json NumberSchema(const KeyForm& form) {
    return {{"type", form.type}, {"minimum", 0}, {"maximum", form.highest}};
}

Json ValueSchema(const KeyForm& form, const Names& names) {
    if (form.words != nullptr) {
        return NameSchema(form.words(names));
    }
    Json schema = form.highest > 0 ? NumberSchema(form) : Json{{"type", form.type}};
    if (form.count > 1) {
        schema = {{"type", "array"},
                  {"items", schema},
                  {"minItems", form.count},
                  {"maxItems", form.count}};
    }
    return schema;
}

std::string Capitalized(std::string_view text) {
    std::string words(text);
    words[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(words[0])));
    return words;
}

Json TableSchema(const char* description) {
    return {{"description", description}, {"type", "object"}, {"properties", Json::object()}};
}

/// Items go by any of their names; the short ones are those that editors offer.
Json ChoicesSchema() {
    Json schema = TableSchema(R"(Item = an option, or "on" or "off")");
    const Json choice = {{"type", {"string", "integer", "boolean"}}};
    for (const auto& [itemId, name] : shortNames) {
        schema["properties"][name] = choice;
    }
    schema["additionalProperties"] = choice;
    return schema;
}

Json RequireSchema() {
    return {{"description", "Items that must end up on; otherwise nothing is written"},
            {"type", "array"},
            {"items", NameSchema(shortNames)}};
}

Json SectionSchema() {
    return {{"type", "object"}, {"additionalProperties", false}, {"properties", Json::object()}};
}

Json RecipeSchema(const Names& names) {
    Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"},
                   {"title", "zorbi2 recipe"},
                   {"type", "object"},
                   {"additionalProperties", false},
                   {"properties", {{"require", RequireSchema()}}}};
    for (const RecipeKey& key : RecipeKeys()) {
        const std::size_t point = key.name.find('.');
        const auto section = schema["properties"]
                                 .emplace(std::string(key.name.substr(0, point)), SectionSchema())
                                 .first;
        Json value = {{"description", Capitalized(key.description)}};
        value.update(ValueSchema(key.form, names));
        section.value()["properties"][std::string(key.name.substr(point + 1))] = value;
    }
    schema["properties"]["choices"] = ChoicesSchema();
    return schema;
}

ExitCode RunSchema(Terminal& terminal) {
    const Surroundings host(terminal);
    const Json schema = RecipeSchema(host.names);
    terminal.out << schema.dump(2) << '\n';
    return Report({}, terminal.options, {{"schema", schema}});
}

}  // namespace

RunFunction AddSchema(Arguments& /*arguments*/) {
    return RunSchema;
}

}  // namespace host
