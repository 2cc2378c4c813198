// On A4: no plot is cut, nothing sticks out, the heads of a long table stand on each of its sheets.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { within } from './support/browser.mjs';
import { assertWholeOnA4, printed } from './support/paper.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

for (const name of ['good', 'misaligned', 'two', 'eight', 'empty', 'broken', 'colour']) {
  test(`'${name}' is printed on A4 without a cut plot`, async () => {
    await within(pageFile(name), {}, async (page) => {
      await assertWholeOnA4(page);
    });
  });
}

test('The heads of a long table stand on each of its sheets', async () => {
  await within(pageFile('many'), {}, async (page) => {
    const sheets = await printed(page);
    const texts = sheets.map(({ words }) => words.map(({ text }) => text).join(' '));
    const table = texts.filter((text) => (text.match(/\bfinished\b/g) ?? []).length > 10);
    assert.ok(table.length >= 5, `${table.length} sheets of the table`);
    for (const text of table) assert.match(text, /\bPair State\b/);
  });
});

test('Paper has nothing to press and is light in the dark theme, too', async () => {
  await within(pageFile('good'), { theme: 'dark' }, async (page) => {
    const words = (await printed(page)).flatMap((sheet) => sheet.words.map(({ text }) => text));
    assert.ok(!words.includes('SVG') && !words.includes('CSV'));
    await page.emulateMediaType('print');
    const [red, green, blue] = await page.evaluate(() =>
      getComputedStyle(document.documentElement).backgroundColor.match(/\d+/g).map(Number),
    );
    assert.ok(red + green + blue > 3 * 240, `${red} ${green} ${blue}`);
  });
});

test('Paper has cameras, configuration and hashes, and its name and number on each sheet', async () => {
  await within(pageFile('misaligned'), {}, async (page) => {
    const sheets = (await printed(page)).map(({ words }) => words.map(({ text }) => text).join(' '));
    const all = sheets.join(' ');
    const { settings, set } = checkDocument('misaligned');
    assert.ok(all.includes('extrinsics.rx'));
    for (const key of Object.keys(settings)) assert.ok(all.includes(key), key);
    for (const { sha256 } of set.inputs) assert.ok(all.replace(/ /g, '').includes(sha256), sha256);
    sheets.forEach((text, sheet) => {
      assert.match(text, new RegExp(`Sheet ${sheet + 1} of ${sheets.length}`));
      assert.match(text, /misaligned/, `sheet ${sheet + 1}`);
    });
  });
});
