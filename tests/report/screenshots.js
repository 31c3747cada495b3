// Takes pictures of the pages into the folder that is named on the command line.
import { join, resolve } from "node:path";

import { Folder, makeMany, startBrowser } from "./program.js";

const target = resolve(process.argv[2]);
const browser = await startBrowser();
const folder = new Folder();
const single = folder.report(resolve("examples/cover/cover.toml"));

// Opens a page, does something with it, and takes its picture.
async function take(name, url, options = {}, step = async () => {}, shot = {}) {
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 }, ...options });
  await page.goto(url);
  await step(page);
  await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
  await page.screenshot({ path: join(target, `${name}.png`), ...shot });
  await page.close();
}

const toTable = (page) => page.locator("form").evaluate((form) => form.previousElementSibling.scrollIntoView());
const openFirst = async (page) => {
  await page.locator(".all > tbody > tr > th > a").nth(5).click();
  await toTable(page);
};

try {
  await take("one-light", single, {}, undefined, { fullPage: true });
  await take("one-dark", single, { colorScheme: "dark" }, undefined, { fullPage: true });
  await take("one-narrow", single, { viewport: { width: 390, height: 2400 } });
  const print = await browser.newPage();
  await print.goto(single);
  await print.pdf({ path: join(target, "one.pdf"), preferCSSPageSize: true });
  const many = folder.report(...makeMany(folder, 300));
  await take("many-top", many);
  await take("many-light", many, {}, toTable);
  await take("many-dark", many, { colorScheme: "dark" }, toTable);
  await take("many-open", many, { viewport: { width: 1280, height: 1600 } }, openFirst);
  await take("many-narrow", many, { viewport: { width: 390, height: 2400 } });
  await print.goto(many);
  await print.pdf({ path: join(target, "many.pdf"), preferCSSPageSize: true });
  await take("docs", folder.report(...makeMany(folder, 60)), { viewport: { width: 1200, height: 620 } }, toTable);
} finally {
  await browser.close();
  folder.remove();
}
