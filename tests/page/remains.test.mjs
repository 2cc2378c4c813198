// What remains without the causes: in the map, its sentence and the plots beside it.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { settled, within } from './support/browser.mjs';
import { pageFile } from './support/pages.mjs';

const data = (page) =>
  page.evaluate(() => JSON.parse(document.getElementById('polarline-data').textContent).checks[0].details[0]);

const rowPlots = (page) =>
  page.$$eval('#pair figure.plot', (nodes) =>
    Object.fromEntries(
      nodes
        .map((node) => [node.querySelector('h3').textContent, node])
        .filter(([title]) => /Row differences|Distribution|Along|Across/.test(title))
        .map(([title, node]) => [
          title,
          {
            sentence: node.querySelector('figcaption').textContent,
            texts: [...node.querySelectorAll('svg text')].map((text) => text.textContent).join('|'),
            bars: node.querySelectorAll('svg rect').length,
          },
        ]),
    ),
  );

const means = (list) => {
  const there = list.filter((value) => value !== null);
  const sum = (values) => values.reduce((total, value) => total + value, 0);
  return { mean: sum(there) / there.length, mean_abs: sum(there.map(Math.abs)) / there.length };
};

test('Its statistics are those of the dots', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const { points, statistics, refined_points, refined_statistics } = await data(page);
    for (const [dots, found] of [
      [points, statistics],
      [refined_points, refined_statistics],
    ]) {
      const remains = dots.dy.map((value, index) => (value === null ? null : value - dots.dy_pattern[index]));
      const wanted = means(remains);
      assert.ok(Math.abs(found.remains.dy.mean - wanted.mean) < 1e-6);
      assert.ok(Math.abs(found.remains.dy.mean_abs - wanted.mean_abs) < 1e-6);
    }
    // The set was rendered with two turns of a camera and noise: without them little is left.
    assert.ok(refined_statistics.remains.dy.mean_abs < 0.02, String(refined_statistics.remains.dy.mean_abs));
    assert.ok(refined_statistics.dy.mean_abs > 0.2);
    const told = await page.$eval('#pair .diagnosis', (node) => ({ ...node.dataset }));
    assert.deepEqual(
      [Number(told.before), Number(told.after)],
      [statistics.dy.mean_abs, statistics.remains.dy.mean_abs],
    );
  });
});

test('The box changes sentence, distribution and both courses, and back', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    const press = async () => {
      await page.evaluate(() => document.querySelector('#pair .plot-toggle input').click());
      await settled(page);
    };
    const { remains } = (await data(page)).statistics;
    const before = await rowPlots(page);
    await press();
    const after = await rowPlots(page);
    const typographic = (text) => text.replace(/(^|[\s(])-(?=\d)/g, '$1\u2212');
    assert.ok(after['Row differences over the picture'].sentence.startsWith(typographic(remains.sentences.map)));
    assert.equal(after['Distribution'].sentence, typographic(remains.sentences.histogram));
    assert.equal(after['Along the picture'].sentence, typographic(remains.sentences.along));
    assert.equal(after['Across the picture'].sentence, typographic(remains.sentences.across));
    for (const title of ['Distribution', 'Along the picture', 'Across the picture']) {
      assert.match(after[title].texts, /What remains/, title);
      assert.doesNotMatch(before[title].texts, /What remains/, title);
    }
    assert.equal(await page.evaluate(() => document.activeElement?.matches('body') ?? true), true);
    await press();
    assert.deepEqual(await rowPlots(page), before);
  });
});
