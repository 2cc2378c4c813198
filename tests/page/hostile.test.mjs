// Names and texts that would be markup, requests or confusion stay texts.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, goTo, within } from './support/browser.mjs';
import { shownOfHostile } from './support/alter.mjs';
import { pageFile, pageText } from './support/pages.mjs';

async function text(page) {
  return page.evaluate(() => document.body.innerText.replace(/\s+/g, ' '));
}

for (const script of [true, false]) {
  test(`Hostile texts are shown as they are, ${script ? 'with' : 'without'} JavaScript`, async () => {
    await within(pageFile('hostile'), { script }, async (page, seen) => {
      let all = await text(page);
      for (const pair of script ? [0, 1] : []) {
        await goTo(page, `#pair=${pair}`);
        all += await text(page);
      }
      for (const wanted of script ? shownOfHostile.page : shownOfHostile.still) assert.ok(all.includes(wanted), wanted);
      assert.deepEqual(complaints(seen), []);
      assert.doesNotMatch(await page.title(), /^taken$/);
      assert.deepEqual(await page.$$eval('img:not([src^="data:"])', (nodes) => nodes.length), 0);
    });
  });
}

test('The data end no element and hold no mark that a reader of HTML would stop at', () => {
  const data = /<script type="application\/json" id="polarline-data">([^]*?)<\/script>/.exec(pageText('hostile'))[1];
  assert.doesNotMatch(data, /</);
  assert.doesNotThrow(() => JSON.parse(data));
});

test('A name that is no UTF-8 is shown with the sign for it', async () => {
  await within(pageFile('bytes'), {}, async (page, seen) => {
    assert.match(await text(page), /<b>\ufffd+\(\.png/);
    assert.deepEqual(complaints(seen), []);
  });
});
