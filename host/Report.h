// How problems and JSON documents leave the host; the documents' shapes are in docs/json.md.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/CommandLine.h"
#include "host/Problem.h"

namespace host {

using Json = nlohmann::ordered_json;

/// A document with its version number, for the command to fill.
Json JsonDocument(const Options& options);
Json JsonOf(const Problems& problems);

/// Tells problems on standard error, or prints the document with them. Returns the exit code: that
/// of the gravest, which is the highest.
ExitCode Report(const Problems& problems, const Options& options, Json document);
ExitCode Report(const Problems& problems, const Options& options);

}  // namespace host
