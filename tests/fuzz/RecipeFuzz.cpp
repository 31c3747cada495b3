// Recipes of any bytes, all the way to a written file, as "write" goes it: what is wrong is told
// with problems that stand in the recipe, and a file that is written says what was asked for and
// passes "check". The project's name tells which results the run has: all but those whose endings
// it contains, "Cover-k5f".
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "commands/check/OfferCheck.h"
#include "control_files/ControlFile.h"
#include "handover/Engine.h"
#include "handover/LoadRecipe.h"
#include "handover/Session.h"
#include "system/Paths.h"
#include "tests/fuzz/MemoryPlatform.h"
#include "tests/fuzz/Problems.h"
#include "tests/support/ResultReaderDouble.h"
#include "tests/support/TemporaryFolder.h"

namespace {

const std::string shotFile = "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 1\n</SOLID_MCM>\n";

bool IsResultThere(std::string_view path) {
    const std::size_t ending = path.rfind('.') + 1;
    return path.substr(0, ending).find(path.substr(ending)) == std::string_view::npos;
}

/// What lasts from one execution to the next.
struct Surroundings {
    Surroundings() {
        const fuzz::MemoryPlatform noFiles;
        CZorbI2EngineManager manager;
        host::CreateEngine(manager, CZorbFEAInformation());
        names = host::AskNames(*manager.engine);
    }

    std::string RecipeFile() const { return host::Utf8Of(folder.Path() / "recipe.toml"); }

    support::TemporaryFolder folder;  ///< of the recipe and of the run
    host::Names names;
    host::OfferCheck offers;
};

/// What "check" says about a file.
host::Problems FoundIn(const std::string& text, const host::ControlFile& file,
                       host::OfferCheck& offers) {
    const fuzz::MemoryPlatform noFiles;
    host::Problems found = host::OdditiesOf("fuzz.cmi", text, file);
    std::ranges::copy(offers.Check("fuzz.cmi", text, file), std::back_inserter(found));
    return found;
}

/// Zero is an angle that a recipe may start with, though "check" finds it odd.
bool IsExpected(const host::Problem& found, const host::Recipe& recipe) {
    return !recipe.weldlineAngles.empty() && recipe.weldlineAngles.front() == 0.0 &&
           found.message.find("WeldlineAngle2") != std::string::npos;
}

void ExpectPassesCheck(const host::Recipe& recipe, const std::string& text,
                       const host::ControlFile& file, host::OfferCheck& offers) {
    for (const host::Problem& problem : FoundIn(text, file, offers)) {
        if (!IsExpected(problem, recipe)) {
            fuzz::Break("a written file passes the check: " + host::InOneLine(problem) + "\n" +
                        text);
        }
    }
}

struct Written {
    host::Recipe recipe;
    host::ControlFile asked = {};  ///< for by the recipe
    std::string text = {};
};

/// Throws a Failure when the recipe is wrong.
Written Write(const Surroundings& surroundings, const std::string& bytes) {
    fuzz::MemoryPlatform files;
    files.exists = IsResultThere;
    files.readable = &shotFile;
    Written file{host::LoadRecipe(surroundings.RecipeFile(), {}, surroundings.names,
                                  surroundings.folder.Path(), host::Purpose::writing)};
    fuzz::ExpectGoodProblems(file.recipe.problems, bytes);
    host::Session session(file.recipe);
    const host::Problems problems = session.ApplyRecipe();
    fuzz::ExpectGoodProblems(problems, bytes);
    host::ThrowErrors(problems);
    session.Write();
    file.asked = session.Asked();
    files.written.erase("ThermalTest.txt");
    files.written.erase("ShellIniStrain.txt");
    fuzz::Expect(files.written.size() == 1, "one file is written");
    file.text = files.written.begin()->second;
    return file;
}

void ExpectSaysWhatWasAsked(const Written& file, host::OfferCheck& offers) {
    try {
        const host::ControlFile found = host::ReadControlFile("fuzz.cmi", file.text);
        fuzz::Expect(found == file.asked, "the file says what was asked for");
        ExpectPassesCheck(file.recipe, file.text, found, offers);
    } catch (const host::Failure& failure) {
        fuzz::Break("a written file can be read: " + std::string(failure.what()));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Surroundings surroundings;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    support::ResultReader() = {0, 1004, {}};
    surroundings.folder.MakeFile("recipe.toml", bytes);
    try {
        ExpectSaysWhatWasAsked(Write(surroundings, bytes), surroundings.offers);
    } catch (const host::Failure& failure) {
        fuzz::ExpectGoodProblems(failure.List(), bytes);
        fuzz::Expect(host::HasErrors(failure.List()), "a refused recipe has errors");
    }
    support::ResultReader() = {};  // notes that stay would look like a leak to libFuzzer
    return 0;
}
