#include "commands/report/Page.h"

#include <cctype>
#include <cstdint>
#include <kainjow/mustache.hpp>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

#include "commands/OfferJson.h"
#include "commands/report/LineMeanings.h"
#include "commands/report/PageText.h"
#include "commands/report/Summary.h"
#include "control_files/TextLines.h"
#include "recipes/Names.h"

namespace host {

namespace {

using Template = kainjow::mustache::mustache;
using Data = kainjow::mustache::data;

// ---- Templates --------------------------------------------------------------------------------

/// Numbers look the same in every language, and whole ones have no decimals.
std::string NumberText(const Json& number) {
    std::string text = number.dump();
    return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
}

/// Takes JSON for what a template shows. An empty text or null counts as not there.
Data DataOf(const Json& json) {
    if (json.is_object()) {
        Data object(Data::type::object);
        for (const auto& [key, value] : json.items()) {
            object[key] = DataOf(value);
        }
        return object;
    }
    if (json.is_array()) {
        kainjow::mustache::list list;
        list.reserve(json.size());
        for (const Json& value : json) {
            list.push_back(DataOf(value));
        }
        return {list};
    }
    if (json.is_string()) {
        const auto& text = json.get_ref<const std::string&>();
        return text.empty() ? Data(false) : Data(text);
    }
    return json.is_number() ? Data(NumberText(json)) : Data(json.is_boolean() && json.get<bool>());
}

void Render(Template& form, const Json& view, std::string& text) {
    const Data data = DataOf(view);
    kainjow::mustache::context<std::string> context;
    context.push(&data);
    std::ostringstream stream;
    form.render(context, stream);
    text += stream.str();
}

// ---- What the templates show ------------------------------------------------------------------

/// A value of an entry, or null.
const Json& Field(const Json& entry, const std::string& key) {
    static const Json none;
    const auto found = entry.find(key);
    return found == entry.end() ? none : *found;
}

std::string ClassOf(const std::string& state) {
    return state == "not offered" ? "none" : state;
}

std::string TitleOfItem(const CZorbI2Engine& engine, std::int32_t itemId) {
    return TitleOf(*engine.items[itemId]);
}

/// A cell for each item of the engine, in the order of their ids.
Json CellsOf(const Json& entry, const CZorbI2Engine& engine) {
    std::map<std::string, std::string> reasons;
    for (const Json& item : Field(entry, "items")) {
        reasons[item["name"]] = item.value("reason", "");
    }
    const Json& states = Field(entry, "states");
    Json cells = Json::array();
    for (const auto& [itemId, name] : shortNames) {
        const std::string state = states.is_null() ? "unknown" : states[name].get<std::string>();
        const std::string& reason = reasons[name];
        cells.push_back(
            {{"class", ClassOf(state)},
             {"state", state},
             {"tip", reason.empty() ? "" : TitleOfItem(engine, itemId) + ": " + reason}});
    }
    return cells;
}

void MarkChosen(Json& options, const Json& chosen) {
    for (Json& option : options) {
        option["chosen"] = option["key"] == chosen;
    }
}

Json GroupsOf(const Json& entry) {
    Json groups = Json::array();
    for (Json item : Field(entry, "items")) {
        const std::string group = item.value("group", "In the file");
        if (groups.empty() || groups.back()["group"] != group) {
            groups.push_back({{"group", group}, {"items", Json::array()}});
        }
        const std::string state = entry["states"][item["name"].get<std::string>()];
        item["state"] = state;
        item["class"] = ClassOf(state);
        if (item.contains("options")) {
            MarkChosen(item["options"], item["option"]);
        }
        groups.back()["items"].push_back(std::move(item));
    }
    return groups;
}

/// The items of an entry that knows what is offered, and that are not.
std::string NotOfferedOf(const Json& entry, const CZorbI2Engine& engine) {
    std::vector<std::string> titles;
    for (const auto& [itemId, name] : shortNames) {
        if (Field(Field(entry, "states"), name) == "not offered") {
            titles.push_back(TitleOfItem(engine, itemId));
        }
    }
    return Listed(titles);
}

/// "ANSYS original and mapped".
std::string PlaceInWords(const Json& place) {
    std::string words = place["solver"].get<std::string>() + " ";
    const Json& meshes = place["meshes"];
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        words += (i == 0                   ? ""
                  : i + 1 == meshes.size() ? " and "
                                           : ", ") +
                 meshes[i].get<std::string>();
    }
    return words;
}

Json ElsewhereView(const Json& entry, const CZorbI2Engine& engine) {
    Json list = Json::array();
    for (const Json& item : Field(entry, "elsewhere")) {
        std::string places;
        for (const Json& place : item["places"]) {
            places += (places.empty() ? "" : "; ") + PlaceInWords(place);
        }
        const std::int32_t itemId = Find(item["name"].get<std::string>(), shortNames).value_or(0);
        list.push_back({{"title", TitleOfItem(engine, itemId)}, {"places", places}});
    }
    return list;
}

/// Whether a column of the matrix is that of the recipe.
bool IsTarget(const Json& entry, const Json& column) {
    return column["solver"] == entry["solver"] && column["mesh"] == entry["mesh"];
}

/// The heads of the matrix: solvers, and the mesh kinds of each.
Json MatrixHeads(const Json& entry) {
    Json solvers = Json::array();
    Json meshes = Json::array();
    for (const Json& column : entry["matrix"]) {
        if (solvers.empty() || solvers.back()["solver"] != column["solver"]) {
            solvers.push_back({{"solver", column["solver"]}, {"span", 0}});
        }
        solvers.back()["span"] = solvers.back()["span"].get<int>() + 1;
        const std::string mesh = column["mesh"];
        meshes.push_back({{"mesh", mesh},
                          {"here", IsTarget(entry, column)},
                          {"letter", std::string(1, static_cast<char>(std::toupper(mesh[0])))}});
    }
    return {{"solvers", solvers}, {"meshes", meshes}};
}

Json MatrixView(const Json& entry, const CZorbI2Engine& engine) {
    if (!entry.contains("matrix")) {
        return false;
    }
    Json matrix = MatrixHeads(entry);
    matrix["rows"] = Json::array();
    for (const auto& [itemId, name] : shortNames) {
        Json cells = Json::array();
        for (const Json& column : entry["matrix"]) {
            const Json& available = column["available"];
            const char* const state = !available.contains(name)     ? "no"
                                      : available[name].get<bool>() ? "yes"
                                                                    : "missing";
            cells.push_back(state);
        }
        matrix["rows"].push_back({{"title", TitleOfItem(engine, itemId)}, {"cells", cells}});
    }
    return matrix;
}

Json RowsOfText(const Json& entry) {
    Json lines = Json::array();
    for (const auto& [text, meaning] : ExplainedLines(entry.value("text", ""))) {
        const bool isKnown = meaning != NumberedLine::noMeaning;
        lines.push_back({{"text", text}, {"meaning", isKnown ? Json(meaning) : Json(false)}});
    }
    return lines;
}

/// The difference, with what each line is; of a new file all would be new.
Json DifferenceOf(const Json& entry) {
    Json lines = Json::array();
    const std::string text = entry.value("diff", "");
    for (const std::string_view whole :
         LinesOf(OutcomeOf(entry) == "changed" ? std::string_view(text) : "")) {
        const std::string_view line = WithoutEnd(whole);
        const bool isHead = line.starts_with("--- ") || line.starts_with("+++ ");
        lines.push_back({{"text", line},
                         {"added", !isHead && line.starts_with('+')},
                         {"removed", !isHead && line.starts_with('-')}});
    }
    return lines;
}

Json AsksOf(const Json& entry) {
    Json rows = Json::array();
    for (const auto& [label, words] : Field(entry, "asks").items()) {
        rows.push_back({{"label", label}, {"words", words}});
    }
    return rows;
}

/// The first error of an entry that failed.
Json WhyFailed(const Json& entry) {
    for (const Json& problem : entry["problems"]) {
        if (entry["status"] == "failed" && problem["severity"] == "error") {
            return problem["message"];
        }
    }
    return {};
}

/// What table and details show of an entry.
Json HeadOf(const Json& entry, std::size_t number) {
    const std::string outcome = OutcomeOf(entry);
    Json head = {{"number", number},
                 {"file", entry.contains("recipe") ? entry["recipe"] : entry["file"]},
                 {"isRecipe", entry.contains("recipe")},
                 {"outcome", outcome},
                 {"why", WhyFailed(entry)},
                 {"warnings", WarningsOf(entry)}};
    for (const char* const key : {"project", "run", "solver", "mesh"}) {
        head[key] = Field(entry, key);
    }
    return head;
}

Json DetailsOf(const Json& entry, std::size_t number, const CZorbI2Engine& engine) {
    Json view = HeadOf(entry, number);
    for (const char* const key : {"folder", "elementType", "controlFile", "weldLines"}) {
        view[key] = Field(entry, key);
    }
    view["problems"] = entry["problems"];
    for (Json& problem : view["problems"]) {
        problem["place"] = problem["line"] == 0 ? Json() : problem["line"];
    }
    view["hasProblems"] = !entry["problems"].empty();
    view["groups"] = GroupsOf(entry);
    view["notOffered"] = NotOfferedOf(entry, engine);
    view["matrix"] = MatrixView(entry, engine);
    view["elsewhere"] = ElsewhereView(entry, engine);
    view["hasElsewhere"] = !view["elsewhere"].empty();
    view["asks"] = AsksOf(entry);
    view["hasAsks"] = !view["asks"].empty();
    view["lines"] = RowsOfText(entry);
    view["hasLines"] = !view["lines"].empty();
    view["difference"] = DifferenceOf(entry);
    view["isChanged"] = !view["difference"].empty();
    return view;
}

Json ItemHeads(const CZorbI2Engine& engine) {
    Json heads = Json::array();
    for (const auto& [itemId, name] : shortNames) {
        heads.push_back({{"id", itemId}, {"name", name}, {"title", TitleOfItem(engine, itemId)}});
    }
    return heads;
}

/// An entry whose texts are UTF-8: what is not becomes U+FFFD.
Json Readable(const Json& entry) {
    return Json::parse(entry.dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace

void Page::Add(const Json& entry) {
    static Template rowForm{std::string(rowText)};
    static Template detailsForm{std::string(detailsText)};
    const Json readable = Readable(entry);
    ++count_;
    Json row = HeadOf(readable, count_);
    row["cells"] = CellsOf(readable, engine_);
    Render(rowForm, row, readable["status"] == "failed" ? failedRows_ : rows_);
    Json details = DetailsOf(readable, count_, engine_);
    details["single"] = isSingle_;
    Render(detailsForm, details, details_);
}

std::string Page::Text(const Json& summary) const {
    Template form{std::string(pageText)};
    Json view = summary;
    view["hasMissing"] = !summary["missing"].empty();
    for (Json& item : view["missing"]) {
        const std::int32_t itemId = Find(item["name"].get<std::string>(), shortNames).value_or(0);
        item["title"] = TitleOfItem(engine_, itemId);
    }
    view["single"] = isSingle_;
    view["program"] = "zorbi2 " ZORBI2_VERSION;
    view["itemCount"] = std::to_string(kItemCount);
    view["itemHeads"] = ItemHeads(engine_);
    view["rows"] = failedRows_ + rows_;
    view["details"] = details_;
    view["meanings"] = Json::array();
    for (const auto& [key, meaning] : LineMeanings(engine_)) {
        view["meanings"].push_back(
            {{"number", view["meanings"].size()}, {"key", key}, {"meaning", meaning}});
    }
    std::string text;
    Render(form, view, text);
    return text;
}

bool Page::IsPage(std::string_view text) {
    const std::string_view page = pageText;
    return text.starts_with(page.substr(0, page.find("<html")));
}

}  // namespace host
