// Checks of many pairs side by side, whose tables leave no room for much else.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { within } from './support/browser.mjs';
import { pageFile } from './support/pages.mjs';

const compared = (page) =>
  page.evaluate(() => {
    const section = document.querySelector('#comparison');
    return { maps: section.querySelectorAll('.plot-picture').length, text: section.innerText };
  });

test('The worst pair of each check has its map, though the tables take all the room', async () => {
  await within(pageFile('beside_many'), {}, async (page) => {
    const { maps, text } = await compared(page);
    assert.equal(maps, 2);
    assert.doesNotMatch(text, /no map/);
  });
});

test('A comparison without maps says so in their place', async () => {
  await within(pageFile('without_maps'), {}, async (page) => {
    const { maps, text } = await compared(page);
    assert.equal(maps, 0);
    for (const check of ['check 1', 'check 2'])
      assert.match(text, new RegExp(`no map of ${check}, .*: its dots were left out`));
    assert.match(text, /polarline report --budget takes more/);
  });
});
