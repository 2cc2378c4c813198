// Without JavaScript the verdict, the limits and the table of figures stand.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, within } from './support/browser.mjs';
import { textShows } from './support/figures.mjs';
import { checkDocument, pageFile, single } from './support/pages.mjs';

const verdicts = { pass: /PASS/i, fail: /FAIL/i, error: /ERROR|could not|no figure/i };

for (const name of single) {
  test(`Without JavaScript '${name}' tells verdict, limits and figures`, async () => {
    const document = checkDocument(name);
    await within(pageFile(name), { script: false }, async (page, seen) => {
      const text = await page.evaluate(() => document.body.innerText);
      assert.match(text, verdicts[document.verdict]);
      for (const limit of document.limits) assert.ok(text.includes(limit.text), limit.text);
      const rows = await page.$$eval('tr', (lines) =>
        lines.map(({ cells }) => [...cells].map((cell) => cell.innerText.trim())),
      );
      for (const [figure, { mean, min, max }] of Object.entries(document.summary.figures)) {
        const texts = rows.find(([head]) => head === figure) ?? [];
        for (const value of [mean, min, max].filter((number) => number !== null)) {
          assert.ok(
            texts.some((shown) => textShows(shown, value)),
            `${figure} ${value} in '${texts.join(' ')}'`,
          );
        }
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
