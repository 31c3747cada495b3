// The pages of zorbi2 report in a real browser: what they show, that they ask for nothing, and that
// everybody can use them.
import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { after, before, test } from "node:test";

import { Folder, makeMany, startBrowser } from "./program.js";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf-8");

let browser;
let folder;
let one;
let some;

before(async () => {
  browser = await startBrowser();
  folder = new Folder();
  folder.makeRun("Cover", 2);
  folder.makeRun("Lid", 10, [".k5p"]);
  folder.makeRecipe("cover.toml");
  folder.run("write", "cover.toml");
  folder.makeRecipe("cover.toml", { mesh: "deformed", choices: "fiber-orientation = 0" });
  folder.makeRecipe("lid.toml", { project: "Lid", run: 10, solver: "MARC" });
  folder.makeRecipe("lid9.toml", { project: "Lid", run: 10, solver: "ABAQUS", choices: "runner = 1",
    target: '[control_file]\nname = "Other"' });
  one = folder.report("cover.toml");
  some = one.replace("report.html", "some.html");
  folder.run("report", "cover.toml", "lid.toml", "lid9.toml", "Cover02.cmi", "-o", "some.html");
});

after(async () => {
  await browser.close();
  folder.remove();
});

// Opens a page; a console error, a failure or a request but for the page itself fails the test.
async function open(t, url, options = {}) {
  const page = await browser.newPage(options);
  page.setDefaultTimeout(10000);
  const faults = [];
  page.on("console", (message) => faults.push(message.text()));
  page.on("pageerror", (error) => faults.push(error.message));
  page.on("dialog", (dialog) => { faults.push(dialog.message()); dialog.dismiss(); });
  page.on("request", (request) => { if (request.url().split("#")[0] !== url.split("#")[0]) faults.push(request.url()); });
  t.after(async () => {
    await page.close();
    assert.deepEqual(faults, []);
  });
  await page.goto(url, { timeout: 120000 });
  return page;
}

const firstWords = (page) => page.locator(".all > tbody > tr:not(.opened) > th > a").allTextContents();
const headOf = (page, name) => page.locator(".all > thead th", { hasText: new RegExp(`^${name}$`) });
const sortBy = (page, name) => headOf(page, name).locator("button").click();
const linkTo = (page, name) => page.locator(".all > tbody > tr > th > a", { hasText: new RegExp(`^${name}$`) });
// The row of an item in the dialog.
const rowOf = (page, title) => page.locator(".items tr", { has: page.locator("th", { hasText: new RegExp(`^${title} \\d`) }) });

async function checkAccess(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => axe.run());
  assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes[0].html, nodes[0].failureSummary]), []);
}

// ---- One recipe ---------------------------------------------------------------------------------

test("one recipe: the dialog, the matrix, weld lines, the text and what would change", async (t) => {
  const page = await open(t, one);
  await page.getByRole("heading", { name: "Cover, run 2, for ANSYS: deformed" }).waitFor();
  for (const group of ["Part", "Part insert"]) {
    assert.equal(await page.getByRole("heading", { name: group, exact: true }).count(), 1);
  }
  const item = (name) => rowOf(page, name);
  assert.match(await item("Fiber orientation").innerText(), /^\s*on\s/);
  assert.match(await item("Fiber orientation").locator(".chosen").innerText(), /Material reduction-Min chosen/);
  assert.match(await item("Runner output").innerText(), /missing: No runners/);
  assert.match(await page.locator("section").innerText(), /Not offered here:.*Thermal stress output/);
  assert.equal(await page.locator(".grid thead .here").innerText(), "D");
  assert.equal(await page.locator(".grid tbody tr").count(), 22);
  assert.match(await page.locator(".elsewhere li", { hasText: "Initial strain" }).innerText(),
    /: ANSYS original and mapped; ABAQUS/);
  assert.match(await page.locator(".weld > svg").getAttribute("aria-label"), /0 to 30 degrees 0.8; 30 to 60 degrees 0.9;/);
  assert.deepEqual(await page.locator(".difference .added").allInnerTexts().then((lines) => lines.slice(0, 2).map((line) => line.trim())),
    ["+IsOriginalMesh = 0 (0:off,1:on)", "+IsDeformedMesh = 1 (0:off,1:on)"]);
  assert.equal(await page.locator(".text li").first().innerText(), "I2-Output Control Parameter File");
});

test("one recipe: each line of the control file is explained when it is pointed at or gets the focus", async (t) => {
  const page = await open(t, one);
  await page.locator(".text a", { hasText: "SegmentX =" }).hover();
  assert.match(await page.locator(".meaning").innerText(), /^\[MAP DOMAIN\] SegmentX: Segments along X/);
  await page.mouse.move(0, 0); // it would point at what scrolls under it
  await page.locator(".text a", { hasText: "OutFolder" }).focus();
  assert.match(await page.locator(".meaning").innerText(), /Folder where the translator puts its files/);
  await page.keyboard.press("Tab");
  await page.locator(".meaning", { hasText: "MapFile: " }).waitFor();
  assert.equal(await page.locator(".text li > span").count(), 0, "lines without a meaning");
});

test("the step chart draws the rates over their angles", async (t) => {
  const page = await open(t, one);
  assert.equal(await page.locator(".step").getAttribute("d"), "M0 0V0.8H30V0.9H60V0.95H90V0");
  const box = await page.locator(".step").boundingBox();
  const all = await page.locator(".grid-line").boundingBox();
  assert.ok(Math.abs(box.width / all.width - 0.5) < 0.02, "90 of 180 degrees");
  assert.ok(Math.abs(box.height / all.height - 0.95) < 0.05, "rates up to 0.95");
});

test("a control file alone tells its items, target, weld lines and lines", async (t) => {
  const page = await open(t, folder.report("Cover02.cmi"));
  await page.getByRole("heading", { name: "Cover02.cmi, for ANSYS: original read" }).waitFor();
  assert.match(await rowOf(page, "Fiber orientation").innerText(), /^\s*on/);
  assert.match(await page.locator(".facts").last().innerText(), /Micro mechanics\s+Mori-Tanaka/);
  assert.ok(await page.locator(".text li").count() > 60);
  folder.report("cover.toml");
});

// ---- Many ---------------------------------------------------------------------------------------

test("many: a summary, failures on top, a cell for each item", async (t) => {
  const page = await open(t, some);
  const counts = await page.locator(".counts div").allInnerTexts();
  assert.deepEqual(counts.map((text) => text.replace(/\s+/g, " ")), ["recipes and files 4", "failed 1",
    "with warnings 0", "new 1", "changed 1", "unchanged 0", "read back 1"]);
  assert.match(await page.locator(".most").innerText(), /Packing phase temperature output\s+2\s+No file \*\.k5p \(2\)/);
  assert.deepEqual(await firstWords(page), ["lid9.toml", "cover.toml", "lid.toml", "Cover02.cmi"]);
  assert.match(await page.locator(".all .why").innerText(), /choices.runner: results missing: No runners/);
  const states = await page.locator(".all > tbody > tr", { hasText: "lid.toml" }).locator("td:not(.word)").allTextContents();
  assert.equal(states.length, 22);
  assert.deepEqual(states.slice(0, 3), ["on", "missing", "missing"]);
});

test("many: rows are sorted by a head, up and down", async (t) => {
  const page = await open(t, some, { locale: "de-DE" });
  await sortBy(page, "Run");
  assert.deepEqual(await firstWords(page), ["Cover02.cmi", "cover.toml", "lid9.toml", "lid.toml"]);
  await sortBy(page, "Run");
  assert.deepEqual(await firstWords(page), ["lid9.toml", "lid.toml", "cover.toml", "Cover02.cmi"]);
  assert.equal(await headOf(page, "Run").getAttribute("aria-sort"), "descending");
  await sortBy(page, "Solver");
  assert.deepEqual(await firstWords(page), ["lid9.toml", "cover.toml", "Cover02.cmi", "lid.toml"]);
  await sortBy(page, "packing-temperature");
  assert.deepEqual((await firstWords(page))[3], "cover.toml");
});

test("many: rows are filtered by text, solver, project and state", async (t) => {
  const page = await open(t, some);
  const cases = [["Text", "COVER", ["cover.toml", "Cover02.cmi"]], ["Solver", "MARC", ["lid.toml"]],
    ["Project", "Lid", ["lid9.toml", "lid.toml"]], ["State", "failed", ["lid9.toml"]]];
  for (const [label, value, expected] of cases) {
    const control = page.locator(`form [name=${label.toLowerCase()}]`);
    await (label === "Text" ? control.fill(value) : control.selectOption(value));
    assert.deepEqual(await firstWords(page), expected, label);
    assert.equal(await page.getByRole("status").first().innerText(), `${expected.length} of 4 shown`);
    await page.getByRole("button", { name: "Show all" }).click();
    await page.getByText("4 of 4 shown").waitFor();
  }
});

test("many: a row opens into the view of one, stays open when sorted, and closes", async (t) => {
  const page = await open(t, some);
  const link = linkTo(page, "cover.toml");
  assert.equal(await link.getAttribute("aria-expanded"), "false");
  await link.click();
  await page.getByRole("heading", { name: /Cover, run 2, for ANSYS: deformed/ }).waitFor();
  assert.equal(await page.locator(".opened .grid tbody tr").count(), 22);
  await sortBy(page, "Solver");
  assert.equal(await page.locator(".all > tbody > tr:nth-child(3)").getAttribute("class"), "opened");
  await link.click();
  assert.equal(await page.locator(".opened").count(), 0);
});

test("many: the keyboard alone suffices", async (t) => {
  const page = await open(t, some);
  const focusIs = (words) => page.evaluate((text) => document.activeElement.textContent.trim() === text, words);
  const tabTo = async (words) => {
    for (let i = 0; i < 60; ++i) {
      await page.keyboard.press("Tab");
      if (await focusIs(words)) return;
    }
    assert.fail(`no way to ${words}`);
  };
  await page.keyboard.press("Tab");
  assert.equal(await page.evaluate(() => document.activeElement.name), "text");
  await page.keyboard.type("lid");
  assert.deepEqual(await firstWords(page), ["lid9.toml", "lid.toml"]);
  await tabTo("Project");
  await tabTo("Mesh");
  await page.keyboard.press("Enter");
  await tabTo("lid.toml");
  await page.keyboard.press("Enter");
  await page.getByRole("heading", { name: /Lid, run 10, for MARC/ }).waitFor();
  await tabTo("Text of the control file");
  await page.keyboard.press("Enter");
  await page.keyboard.press("Tab");
  assert.match(await page.locator(".opened .meaning").innerText(), /^I2-Output Control Parameter File: /);
});

test("many: a link to an entry opens its row", async (t) => {
  const page = await open(t, `${some}#e2`);
  await page.locator(".opened").getByRole("heading", { name: /Lid, run 10, for MARC/ }).waitFor();
});

test("without script the tables and details stand there", async (t) => {
  const page = await open(t, some, { javaScriptEnabled: false });
  assert.equal(await page.locator(".all > tbody > tr").count(), 4);
  assert.ok(!await page.getByLabel("Text", { exact: true }).isVisible());
  assert.ok(await page.getByRole("heading", { name: /Cover, run 2, for ANSYS: deformed/ }).isVisible());
  assert.equal(await page.locator(".grid").count(), 3);
});

// ---- For everybody ------------------------------------------------------------------------------

for (const colorScheme of ["light", "dark"]) {
  test(`axe finds nothing, in ${colorScheme}`, async (t) => {
    const single = await open(t, one, { colorScheme });
    await checkAccess(single);
    const many = await open(t, some, { colorScheme });
    await linkTo(many, "cover.toml").click();
    await many.locator(".opened summary").click();
    await checkAccess(many);
    const backs = await many.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
    assert.equal(backs, colorScheme === "dark" ? "rgb(18, 23, 30)" : "rgb(255, 255, 255)");
  });
}

test("the table is one to assistive technology, with words for its states", async (t) => {
  const page = await open(t, some);
  const session = await page.context().newCDPSession(page);
  const { nodes } = await session.send("Accessibility.getFullAXTree");
  const count = (role) => nodes.filter((node) => !node.ignored && node.role?.value === role).length;
  assert.equal(count("table"), 2);
  assert.ok(count("row") >= 5, `${count("row")} rows`);
  assert.ok(count("columnheader") >= 29);
  assert.ok(count("cell") >= 4 * 28);
  const cells = nodes.filter((node) => node.role?.value === "cell").map((node) => node.name?.value);
  assert.ok(cells.includes("missing") && cells.includes("not offered"));
});

test("states differ in their signs, not in color alone", async (t) => {
  const page = await open(t, some);
  const signs = await page.evaluate(() => ["on", "off", "missing", "none"].map((state) =>
    getComputedStyle(document.querySelector(`.all > tbody td.${state}`), "::before").content));
  assert.equal(new Set(signs).size, 4);
});

test("the print fits on A4, in light colors, with all that is open", async (t) => {
  for (const url of [one, some]) {
    const page = await open(t, url, { colorScheme: "dark", viewport: { width: 703, height: 1000 } });
    await page.emulateMedia({ media: "print" });
    const { width, color, form } = await page.evaluate(() => ({
      width: document.documentElement.scrollWidth,
      color: getComputedStyle(document.documentElement).backgroundColor,
      form: document.querySelector("form")?.checkVisibility() ?? false }));
    assert.ok(width <= 703, `${url} is ${width} pixels wide`);
    assert.equal(color, "rgb(255, 255, 255)");
    assert.equal(form, false);
    assert.ok((await page.pdf({ preferCSSPageSize: true })).length > 10000);
  }
});

test("on a phone nothing but tables is wider than the screen", async (t) => {
  for (const url of [one, some]) {
    const page = await open(t, url, { viewport: { width: 390, height: 800 } });
    const width = await page.evaluate(() => document.documentElement.scrollWidth);
    assert.ok(width <= 390, `${width} pixels`);
  }
});

// ---- Hostile names ------------------------------------------------------------------------------

test("names and texts that are markup are shown as such", async (t) => {
  const hostile = new Folder();
  t.after(() => hostile.remove());
  const refused = "<script>alert(1)<\u2215script>";
  const project = "&lt;b&gt;'{{file}} \u202edlo";
  const file = "\"><img src=x onerror=alert(2)>{{{rows}}}'&.toml";
  const folder = "<\u2215noscript></noscript><script>alert(3)</script>";
  hostile.makeRun(project, 2);
  hostile.makeRecipe(file, { project, target: `[output]\nfolder = 'X:\\${folder}'` });
  hostile.makeRecipe("refused.toml", { project: refused });
  for (const files of [[file], [file, "refused.toml"]]) {
    const page = await open(t, hostile.report(...files));
    if (files.length > 1) {
      assert.ok((await page.locator(".all .why").innerText()).includes(refused));
      await page.locator(".all > tbody > tr > th > a").nth(1).click();
    }
    await page.getByRole("heading", { name: /, run 2/ }).waitFor();
    const text = await page.locator("main").innerText();
    for (const words of [project, file, folder]) assert.ok(text.includes(words), words);
    assert.equal(await page.evaluate(() => document.scripts.length), 1);
    assert.equal(await page.locator("img, main b").count(), 0);
  }
});

test("nothing from elsewhere could be loaded", async (t) => {
  const page = await browser.newPage();
  t.after(() => page.close());
  await page.goto(one);
  const refused = await page.evaluate(() => new Promise((resolve) => {
    document.addEventListener("securitypolicyviolation", (event) => resolve(event.violatedDirective));
    document.body.append(Object.assign(document.createElement("img"), { src: "https://example.org/x.png" }));
  }));
  assert.equal(refused, "img-src");
});

// ---- Size and speed -----------------------------------------------------------------------------

test("the page without data is small", async () => {
  folder.makeRecipe("broken.toml", { solver: "none" });
  folder.report("broken.toml");
  const size = statSync(join(folder.path, "report.html")).size;
  console.log(`page: ${size} bytes without data`);
  assert.ok(size < 60000);
});

const untilInteractive = (page) =>
  page.evaluate(() => performance.getEntriesByType("navigation")[0].domContentLoadedEventEnd);

// Milliseconds until a step can be seen.
async function timed(page, step) {
  const start = Date.now();
  await step();
  await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => requestAnimationFrame(resolve))));
  return Date.now() - start;
}

// The times are printed. ZORBI2_REPORT_RECIPES=5000 tries more.
const count = Number(process.env.ZORBI2_REPORT_RECIPES ?? 1000);
test(`${count} recipes: they open, sort and can be looked into`, async (t) => {
  const many = new Folder();
  t.after(() => many.remove());
  const names = makeMany(many, count);
  const started = Date.now();
  const url = many.report(...names);
  const written = Date.now() - started;
  const page = await open(t, url);
  const interactive = await untilInteractive(page);
  const sorted = await timed(page, () => sortBy(page, "Solver"));
  const opened = await timed(page, () => linkTo(page, names[7]).click());
  const size = statSync(join(many.path, "report.html")).size;
  console.log(`browser: ${count} recipes: interactive after ${Math.round(interactive)} ms; sorted in ${sorted} ms, ` +
    `a row opened in ${opened} ms, page of ${Math.round(size / 1e6)} MB made in ${written} ms`);
  assert.equal(await page.locator(".opened").count(), 1);
  await page.locator("form [name=text]").fill(names.at(-1));
  assert.deepEqual(await firstWords(page), [names.at(-1)]);
});
