#!/usr/bin/env python3
"""Second opinion on the golden control parameter files.

Works out, with tables and code of its own, what every pass of the table must write, and compares
it with the committed files. It shares nothing with the engine but the description of the passes,
which "golden_passes --passes FILE" prints.

    expected.py --passes FILE --goldens DIRECTORY [--results DIRECTORY]
    expected.py --passes FILE --write DIRECTORY

The first form fails when a committed file or a result of "golden_passes DIRECTORY" differs or is
missing, or a file is committed that belongs to no pass. The second form writes what is expected.
"""

import argparse
import pathlib
import sys
from decimal import ROUND_HALF_EVEN, Decimal

# ---- The passes ---------------------------------------------------------------------------------


class Pass:
    def __init__(self, name):
        self.name = name
        self.facts = {"viewEdit": None, "digimatAngle": None, "shotFile": ""}
        self.files = []
        self.weldlines = []
        self.visits = []
        self.lists = {}


def numbers(text, kind=int):
    return [kind(word) for word in text.split()]


def read_passes(path):
    passes = []
    for line in path.read_bytes().decode("latin-1").split("\n")[:-1]:
        key, _, value = line.partition(" ")
        current = passes[-1] if passes else None
        if key == "pass":
            passes.append(Pass(value))
        elif key == "end":
            pass
        elif key == "file":
            current.files.append(value)
        elif key == "weldlines":
            current.weldlines.append({"solver": int(value)})
        elif key in ("angles", "rates"):
            current.weldlines[-1][key] = numbers(value, float)
        elif key == "visit":
            solver, mesh, quadratic, annealing = numbers(value)
            current.visits.append({"solver": solver, "mesh": mesh, "quadratic": quadratic,
                                   "annealing": annealing, "choices": []})
        elif key == "choice":
            current.visits[-1]["choices"].append(numbers(value))
        elif key in ("offersItems", "commitsChoices", "takesWeldlines"):
            current.visits[-1][key] = value == "1"
        elif key in ("partList", "partInsertList", "moldbaseList"):
            current.lists[key] = numbers(value)
        elif key == "flags":
            current.facts[key] = numbers(value)
        elif key in ("runNumber", "solverType", "projectType", "voxelFlag", "fiberVersion"):
            current.facts[key] = int(value)
        elif key == "viewEdit":
            current.facts[key] = value == "1"
        elif key == "digimatAngle":
            current.facts[key] = float(value)
        else:
            current.facts[key] = value
    return passes


# ---- Which results exist ------------------------------------------------------------------------


def run_tag(number):
    return "0" + str(number) if number < 10 else str(number)


class Run:
    """The files of a run, and for each item whether it can be handed over."""

    def __init__(self, one):
        self.facts = one.facts
        self.solver_type = one.facts["solverType"]
        self.existing = {one.facts["root"] + name for name in one.files}
        folder = one.facts["root"] + one.facts["runFolder"]
        self.folder = folder if folder.endswith("\\") else folder + "\\"

    def flag(self, position):
        return position in self.facts["flags"]

    def has(self, extension):
        stem = self.folder + self.facts["projectName"] + run_tag(self.facts["runNumber"])
        if extension.upper() == ".CRP":
            stem += "_medi"
        if extension.upper() == ".K5O" and self.facts["voxelFlag"] == 1:
            stem += "_vox"
        return stem + extension in self.existing

    def fibers(self):
        if self.solver_type == 0:
            # The version is asked for whether or not the file is there; the reader decides.
            new_enough = self.facts["fiberVersion"] >= 1004
            return self.flag(11) and (self.has(".o2w") or (self.has(".k5o") and new_enough))
        if self.solver_type == 1:
            return self.flag(11) and self.has(".rso")
        return True

    def shell_strain(self):
        return any([self.has(".rsp"), self.has(".rsg"), self.has(".rsr")])

    def packing(self):
        if self.solver_type == 1:
            return self.shell_strain()
        if self.solver_type != 0 or self.has(".k5p"):
            return True
        return self.facts["projectType"] in (4, 6, 7, 8, 9, 10, 11) and self.has(".k5f")

    def insert_fibers(self):
        values = {"flagprevshot": 0, "valueshotrunid": 0}
        inside = False
        for line in self.facts["shotFile"].split("|"):
            if "</SOLID_MCM>" in line:
                inside = False
            elif "<SOLID_MCM>" in line:
                inside = True
            elif inside and "=" in line:
                key, value = line.split("=")[:2]
                if key.rstrip(" ").lower() in values:
                    values[key.rstrip(" ").lower()] = int(value)
        if values["flagprevshot"] != 1:
            return False
        tag = run_tag(values["valueshotrunid"])
        place = self.folder[:self.folder.rfind("Run")] if "Run" in self.folder else self.folder
        return place + "Run" + tag + "\\" + self.facts["projectName"] + tag + ".k5o" in self.existing

    def available(self, item):
        solid = self.solver_type == 0
        return {
            0: self.fibers,
            1: lambda: self.flag(12),
            2: lambda: self.flag(13),
            3: lambda: self.has(".rsf"),
            4: lambda: self.has(".k5w"),
            5: lambda: self.has(".k5f") if solid
            else self.shell_strain() if self.solver_type == 1 else True,
            6: lambda: self.flag(14) and self.has(".k5f"),
            7: lambda: self.flag(13) and self.has(".k5f"),
            8: self.packing,
            9: lambda: self.has(".k5c" if solid else ".rsc"),
            10: lambda: self.flag(13) and self.has(".k5c"),
            11: lambda: self.fibers() if self.solver_type == 1 else True,
            12: self.insert_fibers,
            13: lambda: self.has(".k5f"),
            14: lambda: self.has(".k5f") and self.flag(16),
            15: self.fibers,
            16: lambda: self.has(".k5f") and self.flag(16),
            17: lambda: True,
            18: lambda: self.has(".crp") or self.has(".k5o"),
            19: lambda: self.has(".rsf") or self.has(".k5w"),
            20: lambda: self.has(".k5p") or self.has(".k5c"),
            21: lambda: self.has(".k5s"),
        }[item]()


# ---- Items and choices --------------------------------------------------------------------------

# Item -> default option of an item with results that is chosen by an option.
DEFAULTS = {0: 2, 1: 0, 11: 0, 12: 2, 13: 0, 15: 2}


def new_item(run, item):
    by_option = item in DEFAULTS and not (item == 11 and run.solver_type == 1)
    available = run.available(item)
    option = -2 if not available else DEFAULTS[item] if by_option else -1
    return {"available": available, "check": -1 if by_option else 0, "option": option}


def choose(status, check, option):
    if status["option"] == -2:
        return
    if status["check"] == -1:
        if option >= 0:
            status["option"] = option
    elif status["option"] == -1 and check >= 0:
        status["check"] = check


# ---- Offered items ------------------------------------------------------------------------------

OFFERS = {
    "T1": ("15 0 1 4 3 5 8 9 11 16 17 18 19 20 13 14", "6 12", "2 7 10"),
    "T2": ("15 0 1 5 8 9 11 16 17 18 19 20 13 14", "6 12", "2 7 10"),
    "T3": ("15 0 1 5 8 9 13 14", "6 12", "2 7 10"),
    "T4": ("15 0 1 11 16 17 18 19 20 13 14", "12", ""),
    "T5": ("15 0 1 11 16 17 18 19 20 13 14", "", ""),
    "T6": ("15 0 1 11 16 17 18 19 20 13 14 21", "", ""),
    "T7": ("15 0 1 11 16 17 18 19 20 13 14 21", "12", ""),
    "T8": ("15 0 1 13 14", "", ""),
    "T9": ("15 0 1 4 3 5 8 9 13 14", "", ""),
    "T10": ("5 8 9", "", ""),
    "T11": ("0 5 8", "", ""),
    "T12": ("0", "", ""),
    "T13": ("0 5 8 11", "", ""),
    "T14": ("0 11", "", ""),
    "T15": ("0 5 8 9 11", "", ""),
    "-": ("", "", ""),
}

# Solver -> table for the meshes 0, 1, 2, 3.
SOLID = {
    0: "T1 annealed T1 -", 1: "T1 annealed T1 -", 2: "T2 T5 T2 -", 3: "T3 T8 T3 -",
    4: "T1 annealed T1 T10", 5: "T1 annealed T1 -", 6: "T3 T8 T3 -", 7: "T2 T5 T2 -",
}
VOXEL = {
    0: "- - T1 -", 1: "- - T1 -", 2: "- - T2 -", 3: "- - T3 -",
    4: "- - T1 T10", 5: "- - T1 -", 6: "- - T3 -", 7: "- - T2 -",
}
SHELL = {
    0: "T13 T12 T13 -", 1: "T15 T12 T15 -", 2: "T12 T12 T12 -", 3: "T12 T12 T12 -",
    4: "T14 T12 T14 -", 5: "T11 T12 T11 -", 6: "T12 T12 T12 -", 7: "T12 T12 T12 -",
}
# Solver -> table for the annealing modes 0, 1 and any other, on the deformed mesh.
ANNEALED = {0: "T4 T7 -", 1: "T4 T7 T4", 4: "T5 T6 T5", 5: "T5 T6 T5"}


def offer_table(facts, visit):
    solver, mesh = visit["solver"], visit["mesh"]
    if facts["solverType"] == 0 and solver == 8:
        return "T9"
    if facts["solverType"] == 1:
        rows = SHELL
    else:
        rows = VOXEL if facts["voxelFlag"] & 255 == 1 else SOLID
    if solver not in rows or not 0 <= mesh <= 3:
        return "-"
    table = rows[solver].split()[mesh]
    if table == "annealed":
        mode = visit["annealing"]
        table = ANNEALED[solver].split()[mode if mode in (0, 1) else 2]
    return table


def offered(facts, visit):
    groups = []
    for group in OFFERS[offer_table(facts, visit)]:
        ids = numbers(group)
        groups.append([item for item in ids
                       if (item != 17 or facts["projectType"] == 9)
                       and (item != 21 or facts["projectType"] == 3)])
    return groups


# ---- A pass from the record to the last choice --------------------------------------------------


class Session:
    def __init__(self, one):
        self.one = one
        run = Run(one)
        self.items = [new_item(run, item) for item in range(22)]
        self.statuses = [[dict(item) for item in self.items] for _ in range(9)]
        self.current = None
        self.offer = [[], [], []]
        self.records = [{"angles": [30.0, 60.0, 90.0], "rates": [0.8, 0.9, 0.95]}
                        for _ in range(9)]
        self.working = {"angles": [30.0, 60.0, 90.0], "rates": [0.8, 0.9, 0.95]}
        for values in one.weldlines:
            record = self.records[values["solver"]]
            record["angles"][:3] = values["angles"][:3]
            record["rates"][:3] = values["rates"][:3]
        for visit in one.visits:
            self.make(visit)

    def make(self, visit):
        self.status = visit
        if 0 <= visit["solver"] <= 8:
            self.current = self.statuses[visit["solver"]]
        if visit["offersItems"] and self.one.facts["solverType"] in (0, 1):
            self.offer = offered(self.one.facts, visit)
        for item, check, option in visit["choices"]:
            choose(self.current[item], check, option)
        if visit["commitsChoices"]:
            for item, status in zip(self.items, self.current):
                item["check"], item["option"] = status["check"], status["option"]
        if visit["takesWeldlines"]:
            record = self.records[visit["solver"]]
            self.working = {key: list(record[key][:3]) for key in ("angles", "rates")}

    def offered_ids(self):
        lists = self.one.lists
        if lists:
            return sorted(lists["partList"] + lists["partInsertList"] + lists["moldbaseList"])
        return sorted(sum(self.offer, []))


# ---- The file -----------------------------------------------------------------------------------

KEYWORDS = ["ANSYS", "ABAQUS", "MSCNASTRAN", "NENASTRAN", "LSDYNA", "MARC", "NXNASTRAN", "RADIOSS",
            "WORKBENCH"]

# Item -> key with what stands between key and value; spaces fill up to column 32.
BLANK_KEYS = {
    0: "IsDoMaterialReduction", 1: "IsRunnerOutput", 2: "IsMoldbaseOutput",
    3: "IsFlowResidualstressOutput", 4: "IsThermalResidualstressOutput",
    5: "IsInitialstrainOutput", 6: "IsFlowPressureOutput", 7: "IsMoldbasePressureOutput",
    8: "IsPackTempOutput", 9: "IsCoolTempOutput", 10: "IsMoldbaseTempOutput", 11: "DigimatOutput",
    12: "IsPartInsertMaterialReduction", 13: "IsDensityOutput", 14: "IsWeldlineOutput",
}
TAB_KEYS = {
    16: ("DigimatWeldlineOutput", 2), 17: ("DigimatMucellOutput", 2), 18: ("DigimatFiberOutput", 2),
    19: ("DigimatStressOutput", 2), 20: ("DigimatTemperatureOutput", 1),
    21: ("IsAnnealingstressOutput", 1),
}
LEVELS = {0: (1, 1, 1), 1: (8, 5, 2), 2: (15, 10, 3), 3: (23, 15, 4), 4: (30, 20, 5)}
DENSITY_FACTORS = {1: 2, 2: 4, 3: 6, 4: 8, 5: 10}


def output_flag(item, record):
    if not record["available"] or record["option"] == -2:
        return 0
    option = record["option"]
    if item in (0, 12):
        return int(option != 5)
    if item == 1:
        return int(option == 1)
    if item == 13:
        return int(option != 0)
    return int(record["check"] == 1 or option >= 0)


def item_line(item, flag):
    if item in BLANK_KEYS:
        start = (BLANK_KEYS[item] + " =").ljust(32)
    elif item in TAB_KEYS:
        key, tabs = TAB_KEYS[item]
        start = key + " =" + "\t" * tabs
    else:
        return []
    return ["%s%d   (0:off,1:on)" % (start, flag)]


def three_decimals(number):
    # Exact, on the binary value: no rounding of the platform's own.
    return str(Decimal(number).quantize(Decimal("0.001"), rounding=ROUND_HALF_EVEN))


def segments(option):
    theta, strength_x, strength_y = LEVELS.get(option, (15, 10, 3))
    return ["FiberThetaXSegment = %d (1~30)" % theta,
            "FiberThetaYSegment = %d (1~30)" % theta,
            "FiberThetaZSegment = %d (1~30)" % theta,
            "FiberStrengthXSegment = %d (1~20)" % strength_x,
            "FiberStrengthYSegment = %d (1~5)" % strength_y]


def switch(key, value):
    return "%s = %d (0:off,1:on)" % (key, value)


def header_lines(session):
    facts, status, items = session.one.facts, session.status, session.items
    mesh = status["mesh"]
    annealed = facts["projectType"] == 3 and status["annealing"] == 1
    solver = status["solver"]
    keyword = KEYWORDS[solver] if 0 <= solver <= 8 else ""
    density = items[13]["option"]
    view_edit = 19 in facts["flags"] if facts["viewEdit"] is None else facts["viewEdit"]
    lines = ["[HEADER]",
             "OutFolder = " + facts["outFolder"],
             "MapFile = " + (facts["mappedMesh"] if mesh in (2, 3) else " "),
             "SolverType = %d" % facts["solverType"],
             "ProjectType = %d" % facts["projectType"],
             switch("QuadraticElement", status["quadratic"] != 0),
             "IDCompositeModel = %d" % items[15]["option"],
             "[" + keyword + "] ",
             switch("IsOriginalMesh", mesh == 0),
             switch("IsDeformedMesh", mesh == 1 and not annealed),
             switch("IsMappedMesh", mesh == 2),
             switch("Is3DMappingShell", mesh == 3),
             switch("IsDistributeModel", items[0]["option"] == 6),
             switch("IsViewEditModelMapping", view_edit)]
    if status["annealing"] == 1:
        lines.append("IsAnnealingDeformedMesh = 1 (0:off,1:on)")
    for item in session.offered_ids():
        lines += item_line(item, output_flag(item, items[item]))
    return lines + [
        "IsDoDensityReduction =" + " " * 10 + "%d   (0:off,1:on)" % (density > 0 and density != 6),
        "[" + keyword + "_EOF]",
        "[\\HEADER]"]


def section(name, lines, trailing=""):
    return ["[" + name + "]"] + lines + ["[\\" + name + "]" + trailing]


def control_file(session):
    items, working, facts = session.items, session.working, session.one.facts
    digimat = 135.0 if facts["digimatAngle"] is None else facts["digimatAngle"]
    lines = ["I2-Output Control Parameter File", "FileVersion = 9064"]
    lines += header_lines(session)
    lines += section("MAP DOMAIN", ["Segment%s = 80 (1~100)" % axis for axis in "XYZ"], " ")
    lines += section("MATERIAL REDUCTION", segments(items[0]["option"]), " ")
    lines += section("PARTINSERT MATERIAL REDUCTION", segments(items[12]["option"]))
    lines += section("DENSITY REDUCTION", ["DensityReduction = %d (2~10)"
                                           % DENSITY_FACTORS.get(items[13]["option"], 0)])
    lines += section("WELDLINE ANGLE", ["WeldlineAngle%d = %s" % (number, three_decimals(angle))
                                        for number, angle in enumerate([0.0] + working["angles"], 1)])
    lines += section("DIGIMAT WELDLINE ANGLE", ["WeldlineAngle = " + three_decimals(digimat)])
    lines += section("REDUCTION RATE", ["ReductionRate%d = %s" % (number, three_decimals(rate))
                                        for number, rate in enumerate(working["rates"], 1)])
    return "".join(line + "\n" for line in lines).encode("latin-1")


# ---- Comparison ---------------------------------------------------------------------------------


def differences(expected, directory, nothing_else):
    faults = []
    found = {path.stem: path.read_bytes() for path in directory.glob("*.cmi")}
    for name, content in sorted(expected.items()):
        if name not in found:
            faults.append("%s: no file in %s" % (name, directory))
        elif found[name] != content:
            lines = zip(content.split(b"\n"), found[name].split(b"\n"))
            line = next(("expected %r, found %r" % pair for pair in lines if pair[0] != pair[1]),
                        "the lengths differ")
            faults.append("%s in %s: %s" % (name, directory, line))
    if nothing_else:
        faults += ["%s: a file in %s, but no such pass" % (name, directory)
                   for name in sorted(set(found) - set(expected))]
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--passes", type=pathlib.Path, required=True)
    parser.add_argument("--goldens", type=pathlib.Path)
    parser.add_argument("--results", type=pathlib.Path)
    parser.add_argument("--write", type=pathlib.Path)
    arguments = parser.parse_args()

    passes = read_passes(arguments.passes)
    expected = {one.name: control_file(Session(one)) for one in passes}
    if not expected or len(expected) != len(passes):
        sys.exit("no passes, or two of one name")
    if arguments.write:
        arguments.write.mkdir(parents=True, exist_ok=True)
        for name, content in expected.items():
            (arguments.write / (name + ".cmi")).write_bytes(content)
    faults = []
    if arguments.goldens:
        faults += differences(expected, arguments.goldens, nothing_else=True)
    if arguments.results:  # may lie where results of earlier tables do
        faults += differences(expected, arguments.results, nothing_else=False)
    print("\n".join(faults) or "%d passes, as expected" % len(expected))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
