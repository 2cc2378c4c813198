// Whatever limit a pair breaks marks it everywhere, and a limit is drawn only where one was given.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, settled, within } from './support/browser.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

/** Worked out from the figures by hand: what each finished pair of 'limits' breaks. */
function brokenOf({ figures, refined }) {
  const over = [
    Math.abs(figures.tri_dis[0]) > 0.2 && 'tri_dis[0]',
    figures.allpoint_max > 263.5 && 'allpoint_max',
    refined.figures.dy_means > 0.286 && 'refined.dy_means',
    figures.dy_means > 0.285 && 'dy_means',
    figures.dy_max > 0.41 && 'dy_max',
  ].filter(Boolean);
  const below = figures.tri_rms < 0.1435 ? ['tri_rms'] : [];
  return { over, below };
}

const finished = (document) => document.pairs.filter(({ state }) => state === 'finished');
const chipOf = (page) => page.$eval('#pair .pair-state .chip', (node) => node.textContent.trim());
const textsOf = (page, selector) =>
  page.$$eval(selector, (nodes) => nodes.map((node) => node.textContent.replace(/\s+/g, ' ').trim()));

async function chooseRefined(page) {
  await page.evaluate(() =>
    [...document.querySelectorAll('#pair button')].find((node) => node.textContent === 'Refined').click(),
  );
  await settled(page);
}

test('The chip of a pair names every limit that it breaks, and on which side', async () => {
  const document = checkDocument('limits');
  await within(pageFile('limits'), {}, async (page) => {
    for (const pair of finished(document)) {
      await goTo(page, `#pair=${pair.index}`);
      const { over, below } = brokenOf(pair);
      const words = [over.length && `over: ${over.join(', ')}`, below.length && `below: ${below.join(', ')}`];
      assert.equal(await chipOf(page), words.filter(Boolean).join('; ') || 'finished', `pair ${pair.index}`);
    }
  });
});

test('A tile is marked for each figure that breaks a limit, main, of a list or refined', async () => {
  const document = checkDocument('limits');
  await within(pageFile('limits'), { hash: '#pair=0' }, async (page) => {
    const named = (nodes) => nodes.map((node) => node.querySelector('dt small').textContent).sort();
    const library = await page.$$eval('#pair .tile.over', named);
    assert.deepEqual(library, ['allpoint_max', 'dy_max', 'dy_means', 'tri_dis[0]']);
    assert.deepEqual(await page.$$eval('#pair .tile.refined-over', named), ['dy_means']);
    assert.ok(brokenOf(document.pairs[0]).over.includes('refined.dy_means'));
  });
});

test('The table of all pairs tells broken limits of both sources', async () => {
  const document = checkDocument('limits_refined');
  await within(pageFile('limits_refined'), { hash: '#pair=5' }, async (page) => {
    for (const source of ['library', 'refined']) {
      if (source === 'refined') await chooseRefined(page);
      const states = await textsOf(page, '#pairs tbody tr td:nth-child(2)');
      const wanted = document.pairs.map(({ state, refined }) => {
        if (state !== 'finished') return 'given up';
        return refined.figures.dy_means > 0.2845 ? 'overrefined.dy_means' : 'finished';
      });
      assert.deepEqual(states, wanted, source);
    }
    assert.equal(await chipOf(page), 'finished');
  });
});

const trend = (page, title) =>
  page.evaluate((wanted) => {
    const figure = [...document.querySelectorAll('#run figure.plot')].find(
      (node) => node.querySelector('h3').textContent === wanted,
    );
    return {
      sentence: figure.querySelector('figcaption').textContent,
      labels: [...figure.querySelectorAll('svg text[fill="var(--over)"]')].map((node) => node.textContent),
      crosses: figure.querySelectorAll('svg path[stroke="var(--over)"]:not([stroke-dasharray])').length,
    };
  }, title);

test('A trend has a line for each limit, and says how many pairs are beyond each', async () => {
  const document = checkDocument('limits');
  const pairs = finished(document);
  await within(pageFile('limits'), {}, async (page) => {
    await page.$$eval('#run details', (nodes) => nodes.forEach((node) => (node.open = true)));
    await new Promise((done) => setTimeout(done, 300));
    const dy = await trend(page, 'Mean row difference');
    const over = pairs.filter(({ figures }) => figures.dy_means > 0.285).length;
    assert.deepEqual(dy.labels, ['limit 5 px', 'limit 0.285 px']);
    assert.equal(dy.crosses, over);
    assert.match(dy.sentence, new RegExp(`No pair is over the limit 5\\. ${over} pairs are over the limit 0\\.285\\.`));
    const residual = await trend(page, 'Residual, rms');
    const below = pairs.filter(({ figures }) => figures.tri_rms < 0.1435).length;
    assert.deepEqual(residual.labels, ['limit, at least 0.1435 px']);
    assert.match(residual.sentence, new RegExp(`${below} pairs are below the limit 0\\.1435\\.`));
    assert.equal(residual.crosses, below);
    const distance = await trend(page, 'Distance error, chosen dots, 1 to 2');
    assert.equal(distance.crosses, pairs.filter(({ figures }) => Math.abs(figures.tri_dis[0]) > 0.2).length);
  });
});

test('A limit that no finished pair measured draws no course', async () => {
  await within(pageFile('unseen'), {}, async (page) => assert.equal(await page.$('#run'), null));
});

/** What the plots of the row differences draw as a limit, and what they call it. */
const drawnBounds = (page) =>
  page.evaluate(() => {
    const plots = ['Distribution', 'Along the picture', 'Across the picture', 'Row differences over the picture'];
    const found = [...document.querySelectorAll('#pair figure.plot')].filter((figure) =>
      plots.includes(figure.querySelector('h3').textContent),
    );
    const texts = found.flatMap((figure) => [...figure.querySelectorAll('svg text')].map((node) => node.textContent));
    return {
      orange: found.flatMap((figure) => [
        ...figure.querySelectorAll('svg [stroke="var(--over)"], svg [fill="var(--over)"]'),
      ]).length,
      limits: texts.filter((text) => /\blimit\b/.test(text)),
      bounds: texts.filter((text) => /bound of/.test(text)),
    };
  });

test('Without a limit none is drawn, and the bound of dy_ratio has a word of its own, refined or not', async () => {
  await within(pageFile('unlimited'), { hash: '#pair=0' }, async (page) => {
    const drawn = await drawnBounds(page);
    assert.deepEqual({ orange: drawn.orange, limits: drawn.limits }, { orange: 0, limits: [] });
    // The histogram of this pair does not reach down to the bound.
    assert.deepEqual(new Set(drawn.bounds), new Set(['bound of dy_ratio \u00b10.1 px']));
    await chooseRefined(page);
    assert.deepEqual(await drawnBounds(page), drawn);
  });
});

test('A limit on the largest row difference is drawn for the centres that it judges', async () => {
  await within(pageFile('limits'), { hash: '#pair=0' }, async (page) => {
    const drawn = await drawnBounds(page);
    assert.ok(drawn.limits.includes('limit \u00b10.41 px'));
    assert.ok(drawn.orange > 0);
    await chooseRefined(page);
    const refined = await drawnBounds(page);
    assert.deepEqual({ orange: refined.orange, limits: refined.limits }, { orange: 0, limits: [] });
    assert.deepEqual(refined.bounds, drawn.bounds);
  });
});
