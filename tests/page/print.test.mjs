// On A4: no plot is cut, nothing sticks out, the heads of a long table stand on each of its sheets.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { within } from './support/browser.mjs';
import { edgeMark, markPlots, printed } from './support/paper.mjs';
import { pageFile } from './support/pages.mjs';

const A4 = { width: 595, height: 842 };

for (const name of ['good', 'misaligned', 'two', 'empty']) {
  test(`'${name}' is printed on A4 without a cut plot`, async () => {
    await within(pageFile(name), {}, async (page) => {
      const plots = await markPlots(page);
      const sheets = await printed(page);
      assert.ok(
        sheets.every(({ width, height }) => Math.abs(width - A4.width) < 2 && Math.abs(height - A4.height) < 2),
      );
      const edge = sheets[0].words.find(({ text }) => text === edgeMark);
      assert.ok(edge.right > A4.width - 50, `the print is made smaller: its right edge is at ${edge.right}`);
      const places = new Map(sheets.flatMap(({ words }, sheet) => words.map(({ text }) => [text, sheet])));
      for (const plot of plots) {
        assert.ok(places.has(plot.begin) && places.has(plot.end), `${plot.title} is not on paper as a whole`);
        assert.equal(places.get(plot.begin), places.get(plot.end), `${plot.title} lies on two sheets`);
      }
      const out = sheets.flatMap(({ words }) => words.filter(({ left, right }) => left < 20 || right > A4.width - 20));
      assert.deepEqual(
        out.map(({ text }) => text),
        [],
        'beyond the margin',
      );
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
