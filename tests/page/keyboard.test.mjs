// Everything goes without a mouse.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { settled, within } from './support/browser.mjs';
import { pageFile } from './support/pages.mjs';

/** What has the focus: its place among all elements and how it is told, null for nothing. */
function focused(page) {
  return page.evaluate(() => {
    const node = document.activeElement;
    if (!node || node === document.body) return null;
    const style = getComputedStyle(node);
    const box = node.getBoundingClientRect();
    return {
      place: [...document.querySelectorAll('*')].indexOf(node),
      what: `${node.tagName} ${node.className} ${node.getAttribute('aria-label') ?? node.textContent.slice(0, 40)}`,
      seen: box.width > 0 && box.height > 0 && box.top < innerHeight && box.bottom > 0,
      told: (style.outlineStyle !== 'none' && parseFloat(style.outlineWidth) > 0) || style.boxShadow !== 'none',
    };
  });
}

async function tabPath(page) {
  const path = [];
  for (let count = 0; count < 600; count += 1) {
    await page.keyboard.press('Tab');
    const at = await focused(page);
    if (at === null || at.place === path[0]?.place) return path;
    path.push(at);
  }
  throw new Error('the tab key does not come to the end of the page');
}

for (const name of ['misaligned', 'two', 'empty']) {
  test(`The tab key goes through '${name}' in reading order, and one sees where it is`, async () => {
    await within(pageFile(name), { calm: true }, async (page) => {
      const path = await tabPath(page);
      assert.ok(path.length > 0);
      assert.deepEqual(
        path.filter(({ seen }) => !seen).map(({ what }) => what),
        [],
        'focus out of sight',
      );
      assert.deepEqual(
        path.filter(({ told }) => !told).map(({ what }) => what),
        [],
        'focus that is not told',
      );
      const places = path.map(({ place }) => place);
      assert.deepEqual(
        places,
        [...places].sort((a, b) => a - b),
      );
    });
  });
}

test('Arrows lead from pair to pair', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const pair = () => page.$eval('#pair h2', (node) => node.textContent.trim());
    await page.keyboard.press('ArrowRight');
    await settled(page);
    assert.equal(await pair(), 'Pair 1');
    await page.keyboard.press('ArrowLeft');
    await settled(page);
    await page.keyboard.press('ArrowLeft');
    await settled(page);
    assert.equal(await pair(), 'Pair 0');
  });
});

test('A table is sorted by its heads', async () => {
  await within(pageFile('misaligned'), {}, async (page) => {
    const values = () =>
      page.$$eval('#pairs td[data-figure="dy_max"]', (nodes) => nodes.map((node) => node.dataset.value));
    const head = await page.evaluateHandle(() =>
      [...document.querySelectorAll('#pairs th[scope=col]')].find((node) => node.textContent.includes('dy_max')),
    );
    const button = await head.$('button');
    await button.focus();
    const numbers = async () => (await values()).filter((value) => value !== 'null').map(Number);
    await page.keyboard.press('Enter');
    assert.equal(await head.evaluate((node) => node.getAttribute('aria-sort')), 'ascending');
    assert.deepEqual(
      await numbers(),
      [...(await numbers())].sort((a, b) => a - b),
    );
    assert.equal((await values()).at(-1), 'null', 'what was not measured stands last');
    await page.keyboard.press('Enter');
    assert.equal(await head.evaluate((node) => node.getAttribute('aria-sort')), 'descending');
    assert.deepEqual(
      await numbers(),
      [...(await numbers())].sort((a, b) => b - a),
    );
    assert.equal(await page.$$eval('#pairs [aria-sort]', (nodes) => nodes.length), 1);
  });
});

/** Plots in which a dot is marked. */
const markedPlots = (page) =>
  page.$$eval('#pair .plot-overlay > g:nth-child(2)', (nodes) => nodes.filter((node) => node.childElementCount).length);

test('A dot that is marked with the keys is marked in every plot, and Escape takes it back', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    assert.equal(await markedPlots(page), 0);
    await page.focus('#pair .plot-picture .plot-stage');
    await settled(page);
    await page.keyboard.press('ArrowRight');
    const tip = await page.$eval('.tooltip', (node) => (node.checkVisibility() ? node.textContent : ''));
    assert.match(tip, /row/i);
    await page.keyboard.press('Enter');
    const overlays = await page.$$eval('#pair .plot-overlay', (nodes) => nodes.length);
    assert.ok(overlays >= 3, `${overlays} plots with dots`);
    assert.equal(await markedPlots(page), overlays);
    await page.keyboard.press('Escape');
    assert.equal(await markedPlots(page), 0);
  });
});

test('What is told of a dot goes out of sight with its plot, and comes back with it', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    await page.focus('#pair .plot-picture .plot-stage');
    await settled(page);
    for (const key of ['ArrowRight', 'Enter']) await page.keyboard.press(key);
    const isTold = () => page.$eval('.tooltip', (node) => node.checkVisibility());
    const scroll = async (down) => {
      await page.evaluate((by) => scrollBy({ top: by, behavior: 'instant' }), down);
      await settled(page);
      return isTold();
    };
    assert.deepEqual([await isTold(), await scroll(1200), await scroll(-1200)], [true, false, true]);
  });
});

/** How many dots are said to be chosen, and how many rows their table has. */
const chosen = (page) =>
  page.evaluate(() => ({
    said: document.querySelector('[role=status]')?.textContent ?? '',
    rows: document.querySelectorAll('#pair .chosen tbody tr').length,
    drawn: document.querySelectorAll('#pair .plot-overlay > g:nth-child(4) rect').length,
  }));

test('Dots are selected over the map with the keys, and Escape lets them go', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    await page.focus('#pair .plot-picture .plot-stage');
    await page.keyboard.press('s');
    const first = await chosen(page);
    assert.match(first.said, /^Dot \d+ selected$/);
    assert.deepEqual([first.rows, first.drawn], [1, 1]);
    for (const key of ['ArrowRight', 'ArrowRight', 'ArrowDown']) await page.keyboard.press(key);
    const { said, rows, drawn } = await chosen(page);
    assert.match(said, /^\d+ dots selected, up to dot \d+$/);
    assert.ok(rows >= 2 && drawn === 1, `${rows} rows`);
    assert.equal(parseInt(said, 10), rows);
    await page.keyboard.press('s');
    await page.keyboard.press('ArrowDown');
    const after = await chosen(page);
    assert.deepEqual([after.rows, after.drawn], [rows, 0], 'what was selected stays');
    await page.keyboard.press('Escape');
    assert.equal((await chosen(page)).rows, 0);
  });
});

test('Another pair is shown without what was marked before', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    await page.focus('#pair .plot-picture .plot-stage');
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('Enter');
    await page.evaluate(() => (location.hash = '#pair=1'));
    await settled(page);
    assert.equal(await markedPlots(page), 0);
  });
});

test('A mouse that rests on a dot is told its id and both pixels', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const stage = await page.$('#pair .plot-picture .plot-stage');
    await stage.scrollIntoView();
    const box = await stage.boundingBox();
    await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2, { steps: 3 });
    await settled(page);
    const tip = await page.$eval('.tooltip', (node) => (node.checkVisibility() ? node.textContent : ''));
    assert.match(tip, /left/i);
    assert.match(tip, /right/i);
  });
});
