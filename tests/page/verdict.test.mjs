// The verdict is the document's, and what it rests on is told.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { checkDocument, pageFile, single } from './support/pages.mjs';

for (const name of [...single, 'bytes']) {
  test(`The verdict of '${name}' is that of its document`, async () => {
    const { verdict, limits } = checkDocument(name);
    await within(pageFile(name), {}, async (page) => {
      const title = await page.$eval('#verdict-title', (node) => node.textContent.trim().toLowerCase());
      const without = verdict === 'pass' && limits.length === 0;
      assert.equal(title, without ? 'pass, no limits' : verdict);
    });
  });
}

test('A limit on what was not measured says why', async () => {
  const { limits } = checkDocument('unseen');
  await within(pageFile('unseen'), {}, async (page) => {
    const text = await page.$eval('.limits', (node) => node.innerText);
    for (const { why } of limits) assert.ok(text.includes(why), why);
  });
});

test('A value over a limit stands out in the table of all pairs', async () => {
  const document = checkDocument('misaligned');
  await within(pageFile('misaligned'), {}, async (page) => {
    const over = await page.$$eval('#pairs td.over-text[data-figure="dy_means"]', (nodes) =>
      nodes.map((node) => Number(node.dataset.value)),
    );
    const wanted = document.pairs.filter(({ state, figures }) => state === 'finished' && figures.dy_means > 0.05);
    assert.deepEqual(
      over,
      wanted.map(({ figures }) => figures.dy_means),
    );
    assert.ok(over.length > 0);
  });
});

test('A pair that failed after the rectification shows the rectified picture', async () => {
  const document = checkDocument('unseen');
  await within(pageFile('unseen'), {}, async (page) => {
    for (const { index } of document.pairs) {
      await goTo(page, `#pair=${index}`);
      const title = await page.$eval('#pair figure.shot h3', (node) => node.textContent);
      assert.match(title, /the rectified left picture$/);
    }
  });
});
