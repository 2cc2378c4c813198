// What the page shows is what was measured, to the last digit.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { missingFigures, shownFigures, wrongFigures } from './support/figures.mjs';
import { checkDocument, pageFile, single } from './support/pages.mjs';

/** All figures that somebody sees who looks at each pair, once with the library's and once with the refined ones. */
async function everyFigure(page, document) {
  const shown = [...(await shownFigures(page))];
  for (const pair of document.pairs) {
    await goTo(page, `#pair=${pair.index}`);
    shown.push(...(await shownFigures(page)));
  }
  return shown;
}

for (const name of single) {
  test(`Every figure of '${name}' is in its page, and none is another`, async () => {
    const document = checkDocument(name);
    await within(pageFile(name), {}, async (page) => {
      const shown = await everyFigure(page, document);
      assert.deepEqual(wrongFigures(document, shown), []);
      assert.deepEqual(missingFigures(document, shown), []);
    });
  });
}

test('The worst values of the limits are those of the document', async () => {
  const { limits } = checkDocument('misaligned');
  const shown = await within(pageFile('misaligned'), {}, (page) =>
    page.$$eval('[data-limit]', (nodes) => nodes.map((node) => [node.dataset.limit, node.dataset.value])),
  );
  assert.deepEqual(new Map(shown), new Map(limits.map((limit, index) => [String(index), String(limit.value)])));
});

test('Each number that is not finite is a dash, and says why', async () => {
  await within(pageFile('nulls'), { hash: '#pair=0' }, async (page) => {
    const dashes = await page.$$eval('[data-pair="0"][data-value="null"]', (nodes) =>
      nodes.map((node) => ({
        figure: node.dataset.figure,
        dash: node.textContent.trim().startsWith('\u2013'),
        why: node.title || node.textContent,
      })),
    );
    for (const figure of ['dy_means', 'tri_dis[2]', 'dis_rms']) {
      const found = dashes.filter((entry) => entry.figure === figure);
      assert.notDeepEqual(found, [], figure);
      assert.ok(
        found.every((entry) => entry.dash && entry.why.length > 3),
        figure,
      );
    }
    const carried = dashes.find((entry) => entry.figure === 'dis_rms');
    assert.match(carried.why, /carried/);
  });
});
