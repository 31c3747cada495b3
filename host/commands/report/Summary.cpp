#include "commands/report/Summary.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace host {

namespace {

constexpr const char* countNames[] = {"entries", "failed",    "warned", "new",
                                      "changed", "unchanged", "read"};

std::size_t SumOf(const std::map<std::string, std::size_t>& reasons) {
    std::size_t sum = 0;
    for (const auto& [reason, count] : reasons) {
        sum += count;
    }
    return sum;
}

/// The names and counts of a map, the highest counts first.
Json Ranked(const std::map<std::string, std::size_t>& counts, const char* nameKey) {
    std::vector<std::pair<std::string, std::size_t>> rows(counts.begin(), counts.end());
    std::ranges::stable_sort(rows, std::greater(), [](const auto& row) { return row.second; });
    Json list = Json::array();
    for (const auto& [name, count] : rows) {
        list.push_back({{nameKey, name}, {"count", count}});
    }
    return list;
}

}  // namespace

std::string OutcomeOf(const Json& entry) {
    return entry.contains("change") ? entry["change"] : entry["status"];
}

std::size_t WarningsOf(const Json& entry) {
    return std::ranges::count_if(
        entry["problems"], [](const Json& problem) { return problem["severity"] == "warning"; });
}

void Summary::Add(const Json& entry) {
    ++counts_["entries"];
    ++counts_[OutcomeOf(entry)];
    counts_["warned"] += entry["status"] != "failed" && WarningsOf(entry) > 0 ? 1 : 0;
    if (!entry.contains("items")) {
        return;
    }
    for (const Json& item : entry["items"]) {
        if (item.contains("reason")) {
            ++missing_[item["name"]][item["reason"]];
        }
    }
}

Json Summary::AsJson() const {
    Json summary = Json::object();
    for (const char* const name : countNames) {
        const auto count = counts_.find(name);
        summary[name] = count == counts_.end() ? 0 : count->second;
    }
    std::map<std::string, std::size_t> sums;
    for (const auto& [item, reasons] : missing_) {
        sums[item] = SumOf(reasons);
    }
    summary["missing"] = Ranked(sums, "name");
    for (Json& item : summary["missing"]) {
        item["reasons"] = Ranked(missing_.at(item["name"]), "reason");
    }
    return summary;
}

}  // namespace host
