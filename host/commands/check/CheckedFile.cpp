#include "commands/check/CheckedFile.h"

#include "commands/check/InWords.h"
#include "system/HostPlatform.h"
#include "system/InputFiles.h"
#include "system/Paths.h"

namespace host {

CheckedFile CheckFile(const std::string& name, const Surroundings& host, OfferCheck& offers) {
    CheckedFile file{name};
    try {
        const std::string& text = file.text.emplace(FromEngineText(
            name == "-" ? ReadStandardInput({name})
                        : ReadFile(PathOf(AbsolutePath(name, host.scratch.Start())), {name})));
        file.values = ReadControlFile(name, text);
        file.problems = OdditiesOf(name, text, file.values);
        AddTo(file.problems, offers.Check(name, text, file.values));
    } catch (const Failure& faults) {
        file.problems = faults.List();
    }
    SortByLine(file.problems);
    if (host.terminal.options.strict) {
        MakeStrict(file.problems);
    }
    return file;
}

Json JsonOf(const CheckedFile& file, bool isFine) {
    return {{"file", file.name},
            {"ok", isFine},
            {"asks", isFine ? InWords(file.values) : Json(nullptr)}};
}

}  // namespace host
