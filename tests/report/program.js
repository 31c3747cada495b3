// Runs zorbi2 for the browser's tests, in folders of their own, and opens what it wrote.
import { spawnSync } from "node:child_process";
import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const program = process.env.ZORBI2_PROGRAM;
const endings = [".o2w", ".k5o", ".k5f", ".k5p", ".k5c", ".k5w", ".rsf", "_medi.crp"];

// Without what a browser of the desktop asks the network for by itself.
const quiet = ["--disable-gpu", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync", "--disable-quic"];
const asRoot = process.getuid() === 0 ? ["--no-sandbox"] : [];

export const startBrowser = () =>
  chromium.launch({ executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: [...quiet, ...asRoot] });

export class Folder {
  constructor() {
    this.path = mkdtempSync(join(tmpdir(), "zorbi2 report "));
  }

  remove() {
    rmSync(this.path, { recursive: true, force: true });
  }

  makeRun(project, run, missing = []) {
    const folder = join(this.path, "runs");
    mkdirSync(folder, { recursive: true });
    const start = project + String(run).padStart(2, "0");
    for (const ending of endings.filter((one) => !missing.includes(one))) {
      writeFileSync(join(folder, start + ending), ending === ".k5o" ? "1004\n" : "");
    }
  }

  makeRecipe(name, { project = "Cover", run = 2, solver = "ANSYS", mesh = "original", choices = "",
    facts = "fiber_results = true", target = "" } = {}) {
    writeFileSync(join(this.path, name), `[project]
name = ${JSON.stringify(project)}
run = ${run}
folder = "runs"
${facts}
[target]
solver = "${solver}"
mesh = "${mesh}"
${target}
[choices]
${choices}
`);
    return name;
  }

  run(...words) {
    const done = spawnSync(program, words, { cwd: this.path, encoding: "utf-8" });
    if (done.error) throw done.error;
    return done;
  }

  // The address of a page about recipes and control files.
  report(...files) {
    const done = this.run("report", ...files, "-o", "report.html");
    if (!done.stdout.startsWith("wrote")) throw new Error(done.stderr);
    return pathToFileURL(join(this.path, "report.html")).href;
  }
}

// A thousand recipes or more of some runs, with a few that fail and some files that are there.
export function makeMany(folder, count) {
  const solvers = ["ANSYS", "ABAQUS", "LS-Dyna", "MARC", "Radioss", "MSC-Nastran"];
  const names = [];
  for (let i = 0; i < count; ++i) {
    const project = ["Cover", "Housing", "Bracket", "Lid"][i % 4];
    if (i < 200) folder.makeRun(project, i % 100, endings.filter((ending, j) => (i * 7 + j * 3) % 11 === 0));
    names.push(folder.makeRecipe(`r${String(i).padStart(4, "0")}.toml`, {
      project, run: i % 100, solver: solvers[i % 6], mesh: i % 3 ? "original" : "deformed",
      facts: `fiber_results = true\nrunners = ${i % 5 !== 0}\nmoldbase = ${i % 2 === 0}`,
      target: `[control_file]\nname = "C${i}"`,
      choices: i % 40 === 0 ? "runner = 1" : "density = 3",
    }));
  }
  return names;
}
