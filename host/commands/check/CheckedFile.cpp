#include "commands/check/CheckedFile.h"

#include <algorithm>
#include <iterator>

#include "commands/check/InWords.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

std::string ReadControlText(const std::string& name, const Surroundings& host) {
    return FromEngineText(name == "-"
                              ? ReadStandardInput({name})
                              : ReadFile(PathOf(AbsolutePath(name, host.scratch.Start())), {name}));
}

Checked CheckText(const std::string& name, const std::string& text, OfferCheck& offers) {
    Checked file{name, {}, {}};
    try {
        file.values = ReadControlFile(name, text);
        file.problems = OdditiesOf(name, text, file.values);
        std::ranges::move(offers.Check(name, text, file.values), std::back_inserter(file.problems));
    } catch (const Failure& faults) {
        file.problems = faults.List();
    }
    return file;
}

Json JsonOf(const Checked& file, bool isFine) {
    return {{"file", file.name},
            {"ok", isFine},
            {"asks", isFine ? InWords(file.values) : Json(nullptr)}};
}

}  // namespace host
