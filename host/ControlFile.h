// Control parameter files as texts: what one says, and every line that is not as the engine writes
// it. Never touches the file system, the terminal or the engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cmi/CZorbI2CMIData.h"

namespace host {

/// Something in a text that the engine would not have written.
struct Fault {
    std::uint32_t line;  ///< from 1; where something is missing, the line that stands in its place
    std::string message;
};

/// What a control parameter file says.
struct ControlFile {
    CZorbI2CMIData values;              ///< of the items, those that have a line
    std::vector<std::int32_t> itemIds;  ///< of the item lines in their order; one may stand twice
};

/// The lines of a text without their ends, which are LF or CR LF.
std::vector<std::string> SplitLines(std::string_view text);

/// The lines of the file that the engine writes for its data block and the offered items.
std::vector<std::string> LinesOf(const ControlFile& file);

/// What a line has that differs from the expected one.
std::string Expected(std::string_view line, std::string_view found);

/// Reads a text and lists its faults by line. Without faults the text is one that the engine
/// writes; with faults the result means nothing.
ControlFile ReadControlFile(std::string_view text, std::vector<Fault>& faults);

/// The mesh is a mapped one; for other kinds the file names no mapped mesh.
bool UsesMapFile(const CZorbI2CMIData& values);

/// The deformed mesh after annealing: its line stands instead of the deformed mesh's 1.
bool IsAnnealedMesh(const CZorbI2CMIData& values);

}  // namespace host
