// The command "check": reads control parameter files from disk and reports their faults.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace host {

struct CheckRequest {
    std::vector<std::filesystem::path> files;  ///< as given on the command line
    bool show = false;                         ///< also say what each faultless file asks for
    bool json = false;                         ///< one JSON document instead of text
    bool quiet = false;                        ///< no lines about files that are fine, no summary
};

/// Checks all files, also after one that cannot be read.
///
/// Text: "FILE:LINE: message" on `err` for each fault; "FILE: no faults" on `out`, with `show`
/// followed by what the file asks for, indented; for several files a summary line on `out`. With
/// `quiet`, `out` gets nothing but what `show` asks for. A file that cannot be read gives
/// "FILE: cannot be read: REASON" on `err`.
///
/// JSON, on `out` (`err` stays empty; `show` and `quiet` change nothing; bytes that are not UTF-8
/// become U+FFFD):
///     {"version": 1, "command": "check", "files": [
///         {"file": "a.cmi", "ok": true, "faults": [], "asks":
///             {"solver": "ANSYS", "mesh": "deformed", "values":
///                 {"FileVersion": 9064, "OutFolder": "D:\\Out", ... "IsRunnerOutput": 0, ...
///                  "[MAP DOMAIN] SegmentX": 80, ... "[REDUCTION RATE] ReductionRate3": 0.95}}},
///         {"file": "b.cmi", "ok": false, "faults": [{"line": 5, "message": "..."}], "asks": null},
///         {"file": "c.cmi", "ok": false, "faults": [], "asks": null, "error": "REASON"}]}
/// "values" bears the names of NamedValue; items without a line are left out. "error" stands only
/// where a file cannot be read.
///
/// Returns the exit code: 0 all fine; 1 faults found; 3 a file cannot be read, faults or not. The
/// state of the streams is the caller's to look at.
int RunCheck(const CheckRequest& request, std::ostream& out, std::ostream& err);

}  // namespace host
