// Without JavaScript the verdict, the limits and the table of figures stand.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, within } from './support/browser.mjs';
import { checkDocument, pageFile, single } from './support/pages.mjs';

const verdicts = { pass: /PASS/i, fail: /FAIL/i, error: /ERROR|could not|no figure/i };

for (const name of single) {
  test(`Without JavaScript '${name}' tells verdict, limits and figures`, async () => {
    const document = checkDocument(name);
    await within(pageFile(name), { script: false }, async (page, seen) => {
      const text = await page.evaluate(() => document.body.innerText);
      assert.match(text, verdicts[document.verdict]);
      for (const limit of document.limits) assert.ok(text.includes(limit.text), limit.text);
      for (const pair of document.pairs.filter(({ figures }) => typeof figures.dy_max === 'number')) {
        const rows = await page.$$eval('tr', (lines) => lines.map((line) => line.innerText));
        const shown = pair.figures.dy_max.toPrecision(3).slice(0, 5);
        assert.ok(
          rows.some((row) => row.includes(shown)),
          `dy_max ${shown} of pair ${pair.index}`,
        );
      }
      assert.deepEqual(complaints(seen), []);
    });
  });
}

test('With JavaScript nothing is said twice', async () => {
  await within(pageFile('good'), {}, async (page) => {
    assert.equal(await page.$$eval('h1', (nodes) => nodes.filter((node) => node.checkVisibility()).length), 1);
    const still = await page.$('#polarline-static');
    assert.ok(still === null || !(await still.isVisible()));
  });
});
