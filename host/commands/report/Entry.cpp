#include "commands/report/Entry.h"

#include <utility>

#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/ZorbI2Types.h>

#include "commands/OfferJson.h"
#include "commands/check/CheckedFile.h"
#include "commands/check/InWords.h"
#include "handover/RunFolder.h"
#include "handover/Session.h"

namespace host {

namespace {

// ---- What control files say -------------------------------------------------------------------

/// The reduction over the meeting angle: a rate for each range of angles.
Json JsonOfWeldLines(const ControlFile& file) {
    Json ranges = Json::array();
    for (const int range : {1, 2, 3}) {
        ranges.push_back({{"from", ranges.empty() ? Json(0.0) : ranges.back()["to"]},
                          {"to", NumberAt(file, AngleKey(range))},
                          {"rate", NumberAt(file, RateKey(range))}});
    }
    return {{"ranges", ranges}, {"digimatAngle", NumberAt(file, digimatAngleKey)}};
}

/// What comes out of an item: of one without a line, whether it has results.
std::string StateOf(std::int32_t itemId, const ControlFile& file) {
    if (itemId == kItemMicroMechanics) {
        return file.at("IDCompositeModel") == std::to_string(kOptionResultsMissing) ? "missing"
                                                                                    : "on";
    }
    const std::string key = NameOf(itemId, itemKeys);
    return !file.contains(key) ? "not offered" : IsOn(file, key) ? "on" : "off";
}

void AddWhatIsAskedFor(Json& entry, const ControlFile& file) {
    entry["asks"] = InWords(file);
    entry["weldLines"] = JsonOfWeldLines(file);
}

// ---- Recipes ----------------------------------------------------------------------------------

Json StatesOf(const std::vector<OfferedItem>& items, const ControlFile& file) {
    Json states = Json::object();
    for (const auto& [itemId, name] : shortNames) {
        const OfferedItem* const offered = FindItem(items, itemId);
        states[name] = offered == nullptr     ? "not offered"
                       : offered->IsMissing() ? "missing"
                                              : StateOf(itemId, file);
    }
    return states;
}

Json MatrixOf(Session& session) {
    Json columns = Json::array();
    for (const SolverSlot* slot : OfferedSolvers(session.Engine())) {
        for (const auto& [kind, mesh] : meshKinds) {
            if (Offers(*slot, kind)) {
                const std::string signs = SignsOf(session.Offer(slot->solverIndex, kind));
                columns.push_back(JsonOfColumn(*slot, mesh, signs));
            }
        }
    }
    return columns;
}

/// Where an item is available: each solver with its mesh kinds.
Json PlacesOf(const std::string& item, const Json& matrix) {
    Json places = Json::array();
    for (const Json& column : matrix) {
        if (!column["available"].value(item, false)) {
            continue;
        }
        if (places.empty() || places.back()["solver"] != column["solver"]) {
            places.push_back({{"solver", column["solver"]}, {"meshes", Json::array()}});
        }
        places.back()["meshes"].push_back(column["mesh"]);
    }
    return places;
}

/// The items that another solver or mesh kind would have.
Json ElsewhereOf(const Json& states, const Json& matrix) {
    Json elsewhere = Json::array();
    for (const auto& [itemId, name] : shortNames) {
        const Json places = PlacesOf(name, matrix);
        if (states[name] == "not offered" && !places.empty()) {
            elsewhere.push_back({{"name", name}, {"places", places}});
        }
    }
    return elsewhere;
}

/// The dialog and the matrix. A session whose recipe has been applied, as far as it could be.
Json OfferOf(const Recipe& recipe, Session& session) {
    const SolverSlot* const slot = session.Engine().solverSlots[recipe.solver].get();
    if (slot == nullptr || session.Asked().empty()) {
        return Json::object();
    }
    const std::vector<OfferedItem> items = session.Offer(recipe.solver, recipe.meshKind);
    Json offer = JsonOfDialog(recipe, *slot, items);
    offer["elementType"] = ElementTypeOf(recipe, *slot);
    offer["states"] = StatesOf(items, session.Asked());
    offer["matrix"] = MatrixOf(session);
    offer["elsewhere"] = ElsewhereOf(offer["states"], offer["matrix"]);
    return offer;
}

/// What a recipe says that could be read.
Json TargetOf(const Recipe& recipe, const Names& names) {
    return {{"project", recipe.project.projectName},
            {"run", recipe.project.runNumber},
            {"folder", recipe.project.projectFolder},
            {"solver", NameOf(recipe.solver, names.solvers)},
            {"mesh", NameOf(recipe.meshKind, meshKinds)}};
}

// ---- Control files ----------------------------------------------------------------------------

/// The items that have a line, and the one that has none.
Json ItemsOf(const ControlFile& file, const CZorbI2Engine& engine) {
    Json items = Json::array();
    for (const auto& [itemId, name] : shortNames) {
        const CZorbI2Item& item = *engine.items[itemId];
        const std::string state = StateOf(itemId, file);
        if (state == "not offered") {
            continue;
        }
        items.push_back({{"id", itemId},
                         {"name", name},
                         {"title", TitleOf(item)},
                         {"description", item.description},
                         {"available", state != "missing"}});
        if (itemId == kItemMicroMechanics) {
            items.back()[state == "missing" ? "reason" : "model"] = CompositeModelOf(file);
        } else {
            items.back()["on"] = state == "on";
        }
    }
    return items;
}

void AddWhatTheFileSays(Json& entry, const ControlFile& file, const CZorbI2Engine& engine) {
    entry["solver"] = file.at("SolverName");
    entry["mesh"] = MeshOf(file);
    entry["items"] = ItemsOf(file, engine);
    entry["states"] = Json::object();
    for (const auto& [itemId, name] : shortNames) {
        entry["states"][name] = StateOf(itemId, file);
    }
    entry["weldLines"] = JsonOfWeldLines(file);
}

}  // namespace

Json EntryOf(Job& job, Surroundings& host, const FilesRead& recipesRead) {
    const GeneralOptions& options = host.terminal.options;
    const bool isRead = !job.controlFile.empty();
    Json offer = Json::object();  // stays empty unless all of it is there
    Attempt(job, options, [&] {
        CheckRun(job.recipe);
        Session session(job.recipe);
        Attempt(job, options, [&] {
            MakeText(job, session, options);
            const ControlFilePlace there = LookAtControlFile(
                job.controlFile, job.recipe, recipesRead.contains(job.controlFileIdentity),
                Replaces::controlFiles);
            job.change = ChangeTo(there, job.text);
            job.difference = job.WouldChange() ? DifferenceTo(there, job) : std::string();
        });
        Json found = OfferOf(job.recipe, session);
        if (job.IsFine()) {
            AddWhatIsAskedFor(found, session.Asked());
        }
        offer = std::move(found);
    });
    Json entry = JsonOf(job, "compared", true, true);
    if (isRead) {
        entry.update(TargetOf(job.recipe, host.names));
    }
    entry.update(offer);
    return entry;
}

Json EntryOf(const std::string& file, const Surroundings& host, OfferCheck& offers,
             Problems& problems) {
    CheckedFile checked = CheckFile(file, host, offers);
    const bool isFine = !HasErrors(checked.problems);
    Json entry = JsonOf(checked, isFine);
    entry["status"] = isFine ? "read" : "failed";
    entry["problems"] = JsonOf(checked.problems);
    entry["text"] = checked.text.value_or("");
    if (!checked.values.empty()) {
        AddWhatTheFileSays(entry, checked.values, *host.bareEngine.engine);
    }
    problems = std::move(checked.problems);
    return entry;
}

}  // namespace host
