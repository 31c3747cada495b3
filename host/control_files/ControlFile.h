// Control parameter files as texts: what one says, and every line that is not as the engine writes
// it. Never touches the file system, the terminal or the engine.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "problems/Problem.h"

namespace host {

/// What a control parameter file says: its values as printed, by their keys. A key follows
/// its section except in the header: "QuadraticElement", "[MAP DOMAIN] SegmentX", "SolverName".
/// Lines that are left out have no key here.
using ControlFile = std::map<std::string, std::string>;

/// Whether a text starts as control files do.
bool IsControlFile(const std::string& text);

/// Reads the text of a file. Throws a Failure with all that the engine would not have written, in
/// the order of the lines; what is missing stands at the line in its place. `name` is the file's,
/// for the problems.
ControlFile ReadControlFile(const std::string& name, std::string_view text);

/// The number of a value's line in a file without faults, or of the line before which it would
/// stand. Named as in a ControlFile.
std::uint32_t LineOf(std::string_view text, const std::string& name);

/// What is odd in a file without faults, though the engine writes it when it is told so: warnings,
/// in the order of the lines.
Problems OdditiesOf(const std::string& name, std::string_view text, const ControlFile& file);

/// A number as the file prints it, with three decimals.
std::string Printed(double number);

/// The keys that are 1 for a mesh kind, by mesh kind.
inline constexpr const char* meshKeys[] = {"IsOriginalMesh", "IsDeformedMesh", "IsMappedMesh",
                                           "Is3DMappingShell"};

inline constexpr const char* annealedMeshKey = "IsAnnealingDeformedMesh";

/// The keys of the weld lines' ranges of angles, which are 1 to 3: the angle at which one ends, and
/// what remains of the strength there.
std::string AngleKey(int range);
std::string RateKey(int range);
inline constexpr const char* digimatAngleKey = "[DIGIMAT WELDLINE ANGLE] WeldlineAngle";

/// The options of kItemMicroMechanics, by option.
inline constexpr const char* compositeModels[] = {"traditional", "Halpin-Tsai", "Mori-Tanaka"};

/// Of the project types that the manual lists; the engine takes any number.
inline constexpr std::int32_t highestProjectType = 11;

/// The number that a key has.
double NumberAt(const ControlFile& file, const std::string& key);

/// The mesh kind that is on; none when none is.
std::optional<std::int32_t> MeshKindOf(const ControlFile& file);

/// One of the two mesh kinds that need a mapped mesh.
bool IsMapped(const ControlFile& file);

/// Whether the value of a key is there and 1.
bool IsOn(const ControlFile& file, const std::string& key);

/// The deformed mesh after annealing, which is none of the other mesh kinds.
bool IsAnnealedMesh(const ControlFile& file);

}  // namespace host
