// What one does with a page: brush, switch, save, copy.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, settled, within } from './support/browser.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

/** Plots that show brushed dots. */
const brushedPlots = (page) =>
  page.$$eval('#pair .plot-overlay > g:nth-child(1)', (nodes) => nodes.filter((node) => node.childElementCount).length);

const figureOf = async (page, title) =>
  page.evaluateHandle(
    (wanted) => [...document.querySelectorAll('#pair figure.plot')].find((node) => node.innerText.startsWith(wanted)),
    title,
  );

async function drag(page, element, from, to) {
  await element.scrollIntoView();
  await settled(page);
  const box = await element.boundingBox();
  await page.mouse.move(box.x + from[0] * box.width, box.y + from[1] * box.height);
  await page.mouse.down();
  await page.mouse.move(box.x + to[0] * box.width, box.y + to[1] * box.height, { steps: 8 });
  await page.mouse.up();
  await settled(page);
}

test('A brush on the histogram shows its dots in the other plots', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page, seen) => {
    const histogram = await (await figureOf(page, 'Distribution')).$('.plot-stage');
    await drag(page, histogram, [0.4, 0.4], [0.7, 0.4]);
    assert.ok((await brushedPlots(page)) >= 2);
    await page.keyboard.press('Escape');
    assert.equal(await brushedPlots(page), 0);
    assert.deepEqual(complaints(seen), []);
  });
});

test('A brush with the keys does the same', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    await (await (await figureOf(page, 'Distribution')).$('.plot-stage')).focus();
    await page.keyboard.press('ArrowRight');
    await page.keyboard.down('Shift');
    for (let count = 0; count < 4; count += 1) await page.keyboard.press('ArrowRight');
    await page.keyboard.up('Shift');
    assert.ok((await brushedPlots(page)) >= 2);
  });
});

test('A brush on the map does the same', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    const map = await page.$('#pair .plot-picture .plot-stage');
    await drag(page, map, [0.3, 0.3], [0.7, 0.7]);
    assert.ok((await brushedPlots(page)) >= 2);
  });
});

test('The refined figures stand in place of the library\u2019s where one asks for them', async () => {
  const document = checkDocument('misaligned');
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page, seen) => {
    const refined = await page.evaluateHandle(() =>
      [...globalThis.document.querySelectorAll('#pair button')].find((node) => node.textContent === 'Refined'),
    );
    await refined.click();
    await settled(page);
    const shown = await page.$$eval('#pairs td[data-figure="dy_means"][data-pair="0"]', (nodes) =>
      nodes.map((node) => [node.dataset.source, Number(node.dataset.value)]),
    );
    assert.deepEqual(shown, [['refined', document.pairs[0].refined.figures.dy_means]]);
    assert.deepEqual(complaints(seen), []);
  });
});

test('A saved plot stands alone', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page, seen) => {
    await page.evaluate(() => {
      globalThis.saved = [];
      const made = URL.createObjectURL.bind(URL);
      URL.createObjectURL = (blob) => {
        globalThis.saved.push(blob.text());
        return made(blob);
      };
      HTMLAnchorElement.prototype.click = () => {};
      for (const button of document.querySelectorAll(
        '#pair figure.plot .plot-head > button, #pair figure.plot .controls > button',
      ))
        if (button.textContent.includes('SVG')) button.click();
    });
    const files = await page.evaluate(async () => Promise.all(globalThis.saved));
    assert.ok(files.length >= 8, `${files.length} files`);
    for (const file of files) {
      const faults = await page.evaluate((text) => {
        const parsed = new DOMParser().parseFromString(text, 'image/svg+xml');
        const wrong = parsed.querySelector('parsererror') ? ['no XML'] : [];
        if (/var\(--/.test(text)) wrong.push('a colour that only the page knows');
        if (parsed.querySelector('script, foreignObject')) wrong.push('more than a drawing');
        if (!(Number(parsed.documentElement.getAttribute('width')) > 100)) wrong.push('no width');
        return wrong;
      }, file);
      assert.deepEqual(faults, [], file.slice(0, 300));
    }
    assert.deepEqual(complaints(seen), []);
  });
});

test('A copied table has the exact figures', async () => {
  const document = checkDocument('misaligned');
  await within(pageFile('misaligned'), {}, async (page) => {
    const text = await page.evaluate(async () => {
      let copied = '';
      const clipboard = { writeText: async (given) => (copied = given) };
      Object.defineProperty(navigator, 'clipboard', { value: clipboard });
      [...globalThis.document.querySelectorAll('#pairs button')].find((node) => /CSV/.test(node.textContent)).click();
      await new Promise((done) => setTimeout(done, 50));
      return copied;
    });
    const lines = text.trim().split('\n');
    const heads = lines[0].split(',');
    assert.ok(lines.length > document.pairs.length);
    const row = lines[1].split(',').map(Number);
    const { figures } = document.pairs[0];
    const place = heads.findIndex((head) => head.includes('dy_max'));
    assert.ok(row.includes(figures.dy_max), `${figures.dy_max} at ${place} in ${lines[1]}`);
    assert.ok(row.includes(figures.space_rms));
  });
});

test('The theme is chosen by hand, too', async () => {
  await within(pageFile('good'), { theme: 'light' }, async (page) => {
    const background = () => page.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
    const light = await background();
    await page.evaluate(() =>
      [...document.querySelectorAll('button')].find((node) => node.textContent === 'Dark').click(),
    );
    assert.notEqual(await background(), light);
  });
});
