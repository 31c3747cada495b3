#include <zorbi2/CZorbI2AccessCMIFile.h>

#include "cmi/CMIFileText.h"
#include "platform/Files.h"

void CZorbI2AccessCMIFile::Write(const std::vector<std::int32_t>& partItems,
                                 const std::vector<std::int32_t>& partInsertItems,
                                 const std::vector<std::int32_t>& moldbaseItems,
                                 const CZorbI2CMIData& data) const {
    // The text first: without memory for it, the old file stays intact.
    const std::string text = cmi::CMIFileText(data, {partItems, partInsertItems, moldbaseItems});
    platform::TextFile(filePath).Write(text);
}
