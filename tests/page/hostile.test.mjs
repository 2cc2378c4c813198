// Names and texts that would be markup, requests or confusion stay texts.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, goTo, within } from './support/browser.mjs';
import { hostileTexts } from './support/alter.mjs';
import { pageFile, pageText } from './support/pages.mjs';

const shownTexts = hostileTexts.map((text) => text.replace(/\s+/g, ' '));

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
      // Of the breaks only the blank is left by the comparison, of the limit's reason nothing has to be seen.
      for (const wanted of script ? [0, 1, 3] : [0]) assert.ok(all.includes(shownTexts[wanted]), shownTexts[wanted]);
      assert.ok(script === false || all.includes('\ufffd'), 'bytes that are no UTF-8 are told by the replacement');
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
