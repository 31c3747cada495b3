// The recipe that "init" fills in: every key with its default and what it means.
#pragma once

namespace host {

constexpr const char* recipeText = R"(# The hand-over of one moulding run to a structural solver.
# "zorbi2 items FILE" shows what can be chosen, "zorbi2 write FILE" writes the control file.
# What the names of the run's files tell is filled in; everything else stands at its default.

# Items that must come out as switched on; otherwise nothing is written.
require = []

[project]
# Base name of the run's files, and the run number that follows it.
name = {name}
run = {run}
# Folder of the run's files. Paths in this recipe start at the recipe's own folder.
folder = {folder}
# Kind of moulding analysis: "solid" or "shell".
analysis = {analysis}
# Project type: 3 annealing; 4 and 6 to 11 injection compression, of these 9 Mucell.
type = 0
# The results are voxel-mesh results.
voxel_mesh = {voxel}
# What the project has: fibre results, runners, a moldbase, an inserted part, meeting angles of
# weld lines.
fiber_results = {fiber}
runners = false
moldbase = false
inserted_part = {insert}
meeting_angles = false
# A model edited in the viewer is mapped.
view_edit = false

[target]
# Structural solver; "zorbi2 items --solvers FILE" lists them.
solver = "ANSYS"
# Mesh kind: "original", "deformed", "mapped" or "3d-mapping-to-shell".
mesh = {mesh}
quadratic_elements = false
# The deformed mesh is the annealing-deformed one.
annealing = false
# Path of the mapped mesh, which the two mapped mesh kinds need.
mapped_mesh = ""

[control_file]
# Where the control file goes, and its name; the run number is added.
folder = "."
name = {name}
extension = "cmi"

[output]
# Where the translator puts its files; empty: beside the control file.
folder = ""

[choices]
# Item = an option, or "on" or "off". These are offered for the target above, with what they are
# without a choice, or with the reason why they cannot be chosen:{choices}

[weld_lines]
# Degrees, remaining strength as fractions, and the angle for Digimat in degrees.
# angles = [30.0, 60.0, 90.0]
# reduction_rates = [0.8, 0.9, 0.95]
# digimat_angle = 135.0
)";

}  // namespace host
