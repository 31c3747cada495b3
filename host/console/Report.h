// How problems and JSON documents leave the host; the documents' shapes are in docs/json.md.
#pragma once

#include <nlohmann/json.hpp>

#include "console/Terminal.h"
#include "problems/Problem.h"

namespace host {

/// A list or object is made before anything is put into it: when memory runs out while a null value
/// becomes one by itself, its destructor ends the program.
using Json = nlohmann::ordered_json;

Json JsonOf(const Problems& problems);

/// Tells a problem on standard error; on a terminal in color and broken between words.
void Tell(const Problem& problem);

/// Tells problems on standard error, or prints the document with the content and them. Returns the
/// exit code: that of the gravest error, which is the highest. With --strict warnings are errors.
ExitCode Report(Problems problems, const GeneralOptions& options,
                const Json& content = Json::object());

}  // namespace host
