// Reads control parameter files back: what a file asks for, and every line that is not as the
// engine writes it. Knows texts only; never touches the file system, the terminal or the engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cmi/CZorbI2CMIData.h"

namespace host {

/// Something in the text that the engine would not have written.
struct Fault {
    std::size_t line;  ///< from 1; where something is missing, the line that stands in its place
    std::string message;
};

/// One item line, such as "IsRunnerOutput =                1   (0:off,1:on)".
struct ItemLine {
    std::int32_t itemId;
    std::int32_t value;
    std::size_t line;  ///< from 1; 0 in a file that was not read
};

/// The values of a control parameter file.
struct ControlFile {
    /// The fields of the engine's data block, as printed: MapFile is empty unless the mesh is
    /// mapped or mapped to shell, IsAnnealingDeformedMesh says whether its line is there, and
    /// OutputFlags counts for the ids in `items` alone. The file does not tell DigimatOption.
    CZorbI2CMIData values;
    std::vector<ItemLine> items;  ///< in file order; an id may stand twice
};

/// Above this size a file is none of the engine's; ReadControlFile then looks no further.
constexpr std::size_t kLargestControlFile = 262'144;

/// Reads the text of a file (line ends LF or CR LF). Empties `faults`, then lists all of them by
/// line. Without faults the text is one that the engine writes for choices that its items have;
/// with faults, the values of faulty and missing lines mean nothing.
ControlFile ReadControlFile(std::string_view text, std::vector<Fault>& faults);

/// The file that must come out of a filled data block (CZorbI2EngineManager::GetZorbCMIData() after
/// WriteCMIFile) and the ids of the offered items, in any order. A host that knows better what the
/// user asked for sets those fields in the result.
ControlFile FileOf(const CZorbI2CMIData& block, std::vector<std::int32_t> itemIds);

/// A value under its key, which stands behind the section except in the header: "QuadraticElement",
/// "[MAP DOMAIN] SegmentX", "SolverName"; for an item "IsRunnerOutput".
struct NamedValue {
    std::string name;
    std::string text;  ///< as printed; empty for an item that has no line
    bool isNumber;
};

/// All values in the order of the file, those of all items included.
std::vector<NamedValue> ValuesOf(const ControlFile& file);

/// What differs, such as: [MAP DOMAIN] SegmentX is "80", asked for was "30". Empty when the two
/// files say the same. Values are compared as printed.
std::vector<std::string> Differences(const ControlFile& asked, const ControlFile& found);

/// What the file asks for, in lines of the form "label:  words", each ended by "\n".
std::string InWords(const ControlFile& file);

// ---- Words for single values ------------------------------------------------------------------

/// The key of an item's line ("IsRunnerOutput"); empty for 15 and ids outside 0 to 21.
std::string_view ItemKey(std::int32_t itemId);

/// The item's title without a full stop ("Runner output"), and for the untitled items 16 to 20
/// words made from the key ("Digimat weld line"); empty where ItemKey is.
std::string_view ItemTitle(std::int32_t itemId);

/// "MSC-Nastran" for "MSCNASTRAN"; "none" for an empty keyword, the keyword itself if unknown.
std::string SolverInWords(std::string_view keyword);

/// "original", "deformed", "deformed after annealing", "mapped", "3D mapping to shell" or "none".
std::string MeshInWords(const CZorbI2CMIData& values);

}  // namespace host
