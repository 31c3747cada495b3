// The writer of the control parameter file: where the file goes, and its text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CZorbI2CMIData;

/// Hosts get it from CZorbI2EngineManager::GetZorbAccessCMIFile().
class CZorbI2AccessCMIFile {
public:
    // ---- What a host may read -------------------------------------------------------------------

    std::string filePath;  ///< full path, bytes in the system code page; empty until set

    // ---- What the manager calls -----------------------------------------------------------------
    // Not exported: a host calls CZorbI2EngineManager::WriteCMIFile.

    /// Writes the file at `filePath`, replacing an earlier one. The three lists hold the ids of
    /// the offered items of part, part insert and moldbase. A file that cannot be opened is not
    /// written, and nothing is reported.
    void Write(const std::vector<std::int32_t>& partItems,
               const std::vector<std::int32_t>& partInsertItems,
               const std::vector<std::int32_t>& moldbaseItems, const CZorbI2CMIData& data) const;
};
