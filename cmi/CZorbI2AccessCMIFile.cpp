#include <zorbi2/CZorbI2AccessCMIFile.h>

#include "cmi/CMIFileText.h"
#include "platform/Files.h"

void CZorbI2AccessCMIFile::Write(const std::vector<std::int32_t>& partItems,
                                 const std::vector<std::int32_t>& partInsertItems,
                                 const std::vector<std::int32_t>& moldbaseItems,
                                 const CZorbI2CMIData& data) const {
    std::vector<std::int32_t> itemIds = partItems;
    itemIds.insert(itemIds.end(), partInsertItems.begin(), partInsertItems.end());
    itemIds.insert(itemIds.end(), moldbaseItems.begin(), moldbaseItems.end());
    // The text first: without memory for it, the old file stays intact.
    const std::string text = cmi::CMIFileText(data, itemIds);
    platform::TextFile(filePath).Write(text);
}
