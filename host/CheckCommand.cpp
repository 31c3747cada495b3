#include "CheckCommand.h"

#include <cerrno>
#include <fstream>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

#include "ControlFile.h"

namespace host {

namespace {

using Json = nlohmann::ordered_json;

struct CheckedFile {
    std::string name;
    std::string error;  ///< why it cannot be read
    std::vector<Fault> faults;
    ControlFile content;

    bool IsFine() const { return error.empty() && faults.empty(); }
};

/// Reads no more than it takes to know that a file is too large: it may have no end.
std::string ReadText(const std::filesystem::path& path, std::string& error) {
    std::string text(kLargestControlFile + 1, '\0');
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!stream.is_open() || stream.bad()) {
        error = std::generic_category().message(errno != 0 ? errno : EIO);
    }
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

CheckedFile CheckFile(const std::filesystem::path& path) {
    CheckedFile file;
    const std::u8string name = path.u8string();
    file.name.assign(name.begin(), name.end());
    const std::string text = ReadText(path, file.error);
    if (file.error.empty()) {
        file.content = ReadControlFile(text, file.faults);
    }
    return file;
}

void PrintText(const CheckedFile& file, const CheckRequest& request, std::ostream& out,
               std::ostream& err) {
    if (!file.error.empty()) {
        err << file.name << ": cannot be read: " << file.error << '\n';
    }
    for (const Fault& fault : file.faults) {
        err << file.name << ':' << fault.line << ": " << fault.message << '\n';
    }
    if (file.IsFine() && (request.show || !request.quiet)) {
        out << file.name << ": no faults\n";
    }
    if (file.IsFine() && request.show) {
        std::istringstream words(InWords(file.content));
        for (std::string line; std::getline(words, line);) {
            out << "  " << line << '\n';
        }
    }
}

Json WhatItAsks(const ControlFile& file) {
    Json values = Json::object();
    for (const NamedValue& value : ValuesOf(file)) {
        if (!value.isNumber) {
            values[value.name] = value.text;
        } else if (!value.text.empty()) {
            values[value.name] = Json::parse(value.text);
        }
    }
    return {{"solver", SolverInWords(file.values.SolverName)},
            {"mesh", MeshInWords(file.values)},
            {"values", values}};
}

void PrintJson(const std::vector<CheckedFile>& files, std::ostream& out) {
    Json document = {{"version", 1}, {"command", "check"}, {"files", Json::array()}};
    for (const CheckedFile& file : files) {
        Json faults = Json::array();
        for (const Fault& fault : file.faults) {
            faults.push_back({{"line", fault.line}, {"message", fault.message}});
        }
        Json entry = {{"file", file.name},
                      {"ok", file.IsFine()},
                      {"faults", faults},
                      {"asks", file.IsFine() ? WhatItAsks(file.content) : Json()}};
        if (!file.error.empty()) {
            entry["error"] = file.error;
        }
        document["files"].push_back(std::move(entry));
    }
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace

int RunCheck(const CheckRequest& request, std::ostream& out, std::ostream& err) {
    std::vector<CheckedFile> files;
    int faulty = 0;
    int unreadable = 0;
    for (const std::filesystem::path& path : request.files) {
        const CheckedFile& file = files.emplace_back(CheckFile(path));
        faulty += file.faults.empty() ? 0 : 1;
        unreadable += file.error.empty() ? 0 : 1;
        if (!request.json) {
            PrintText(file, request, out, err);
        }
    }
    if (request.json) {
        PrintJson(files, out);
    } else if (files.size() > 1 && !request.quiet) {
        out << files.size() << " files: " << faulty << " with faults, " << unreadable
            << " not readable\n";
    }
    constexpr int faultsFound = 1;
    constexpr int fileTrouble = 3;
    return unreadable > 0 ? fileTrouble : faulty > 0 ? faultsFound : 0;
}

}  // namespace host
