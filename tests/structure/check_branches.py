#!/usr/bin/env python3
"""Fails when tests do not take a branch of the engine that they could take.

    check_branches.py REPOSITORY COVERAGE

COVERAGE is what "gcovr --json --exclude-throw-branches --exclude-unreachable-branches" writes for
the build "sanitize". What is left there of the compiler's own branches is listed below.
"""

import json
import pathlib
import sys

ABORTS = "an assertion that fails ends the process before it counts; death tests hold it"
CLEAN_UP = "clean-up of temporaries, split by whether they were made"
GUARD = "another thread may be making the object"
NO_OTHER = "a value that the enumeration does not have"
SANITIZER = "the sanitizer asks whether a flag is 0 or 1, or a pointer not null"
UNWINDING = "an exception, in copies of an inline function that are linked but not used"

# Source file, line, how many of its branches are never taken, why.
NEVER_TAKEN = [
    ("cmi/CMIDataFill.cpp", "if (option == kOptionResultsMissing || !items[itemId]->isAvailable) {", 1, SANITIZER),
    ("cmi/CMIDataFill.cpp", "data.IsViewEditModelMapping = source.viewEdit;", 1, SANITIZER),
    ("cmi/CMIFileText.cpp", "std::memcpy(End(), piece.bytes.data(), longest);", 2, SANITIZER),
    ("cmi/CMIFileText.cpp", "return text.c_str();", 1, SANITIZER),
    ("cmi/CMIFileText.cpp", "switch (line.value) {", 1, NO_OTHER),
    ("engine/CZorbI2EngineManager.cpp", 'assert(engine != nullptr && "CreateEngine has not been called");', 1, ABORTS),
    ("engine/CZorbI2EngineManager.cpp", 'assert(cmiData != nullptr && "CreateCMIDataBlock has not been called");', 1, ABORTS),
    ("engine/CZorbI2EngineManager.cpp", 'assert(accessCmiFile != nullptr && "CreateCMIAccess has not been called");', 1, ABORTS),
    ("engine/CZorbI2EngineManager.cpp", 'assert(Created(engine).popItemSelector && "the project record\'s flag 1 is not 1");', 1, ABORTS),
    ("engine/CZorbI2EngineManager.cpp", ".viewEdit = engine.viewEdit,", 1, SANITIZER),
    ("engine/CZorbI2EngineManager.cpp", "engine = new (std::nothrow) CZorbI2Engine(info);", 2, CLEAN_UP),
    ("include/zorbi2/ControlFileFormat.h", "const Text key = line.substr(0, isTag && end != Text::npos ? end + 1 : end);", 1, UNWINDING),
    ("include/zorbi2/ControlFileFormat.h", 'return key.substr(0, key.find_last_not_of(" \\t") + 1);', 1, UNWINDING),
    ("items/ItemCatalogue.cpp", "row.category, itemId, available, std::string(row.title), std::string(row.description),", 4, CLEAN_UP),
    ("items/ItemCatalogue.cpp", "checkState, std::move(options), defaultOption));", 4, CLEAN_UP),
    ("items/SolverSlots.cpp", "offered[row.solver] = row.isOfferedForShells || solverType != kShellProject;", 1, SANITIZER),
    ("items/SolverSlots.cpp", "row.solver, std::string(row.name),", 4, CLEAN_UP),
    ("items/SolverSlots.cpp", "Listed(voxelResults ? meshes.ofVoxelResults : meshes.ofOtherResults),", 1, CLEAN_UP),
    ("items/SolverSlots.cpp", "Listed(isShell ? row.shellElements : row.solidElements)));", 3, CLEAN_UP),
    ("platform/PlatformCalls.cpp", "static Calls calls = SystemCalls();", 1, GUARD),
    ("platform/PlatformPosix.cpp", "for (const char* next = path; (next = std::strchr(next, '\\\\')) != nullptr; ++next) {", 1, SANITIZER),
    ("platform/PlatformPosix.cpp", "const std::size_t size = std::strlen(path) + 1;", 1, SANITIZER),
    ("platform/PlatformPosix.cpp", "if (fits_) {", 1, SANITIZER),
    ("platform/PlatformPosix.cpp", "std::memcpy(text_.data(), path, size);", 2, SANITIZER),
    ("platform/PlatformPosix.cpp", "const char* Text() const { return fits_ ? text_.data() : nullptr; }", 1, SANITIZER),
    ("platform/PlatformPosix.cpp", "return native.Text() != nullptr && stat(native.Text(), &status) == 0;", 1, SANITIZER),
    ("platform/Text.cpp", "*to++ = static_cast<char>('0' + thousandths / unit % 10);", 1, SANITIZER),
    ("results/ResultChecks.cpp", "bool Any() const { return rsp || rsg || rsr; }", 3, SANITIZER),
    ("results/ResultChecks.cpp", '"RSP = " + std::to_string(int{shell.rsp}) + "RSG = " + std::to_string(int{shell.rsg}) +', 2, SANITIZER),
    ("results/ResultChecks.cpp", '"RSR = " + std::to_string(int{shell.rsr}) + "File = " + std::to_string(int{shell.Any()}));', 1, SANITIZER),
    ("results/ResultChecks.cpp", 'return AvailableOr(isSolid ? LookFor(run, ".k5c") : LookFor(run, ".rsc"), kResultNoK5c);', 2, CLEAN_UP),
    ("results/ResultChecks.cpp", 'const bool hasRso = run.info.solverType == kShellProject && LookFor(run, ".rso");', 2, CLEAN_UP),
    ("results/ResultChecks.cpp", 'return AvailableOr(LookFor(run, ".rsf") || LookFor(run, ".k5w"), kResultNeitherRsfNorK5w);', 3, CLEAN_UP),
    ("results/ResultChecks.cpp", 'return AvailableOr(LookFor(run, ".k5p") || LookFor(run, ".k5c"), kResultNeitherK5pNorK5c);', 3, CLEAN_UP),
    ("results/ShotFile.cpp", "return std::strstr(line.data(), text) != nullptr;", 2, SANITIZER),
    ("results/ShotFile.cpp", 'const char* token = text + std::strspn(text, "=");', 1, SANITIZER),
    ("results/ShotFile.cpp", 'const std::size_t length = std::strcspn(token, "=");', 1, SANITIZER),
]


def lines_of(repository, coverage):
    """File, line number, text and branches of each line that has some."""
    for file in coverage["files"]:
        text = (repository / file["file"]).read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            if line["branches"]:
                number = line["line_number"]
                yield file["file"], number, text[number - 1].strip(), line["branches"]


def main():
    repository = pathlib.Path(sys.argv[1])
    coverage = json.loads(pathlib.Path(sys.argv[2]).read_text(encoding="utf-8"))
    expected = {(file, text): count for file, text, count, _ in NEVER_TAKEN}
    all_branches = 0
    faults = []
    for file, number, text, branches in lines_of(repository, coverage):
        all_branches += len(branches)
        never = sum(branch["count"] == 0 for branch in branches)
        known = expected.pop((file, text), 0)
        if never != known:
            faults.append(f"{file}:{number}: {never} of {len(branches)} branches never taken, "
                          f"{known} expected: {text}")
    faults += [f"{file}: no branches in the line: {text}" for file, text in expected]
    if not all_branches:
        faults.append("no branches counted")
    own = sum(count for _, _, count, _ in NEVER_TAKEN)
    print("\n".join(faults) or f"{all_branches - own} of {all_branches - own} branches taken, and "
          f"{own} that only the compiler could take")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
