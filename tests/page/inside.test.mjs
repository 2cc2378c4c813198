// Nothing of a drawing lies beyond its edge, and nothing that tells of it beyond the window.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { settled, within } from './support/browser.mjs';
import { pageFile } from './support/pages.mjs';

/** How far anything drawn of the board lies beyond the edge of its drawing, CSS pixels. */
const beyond = (page) =>
  page.evaluate(() => {
    const figure = [...document.querySelectorAll('#pair figure.plot')].find((node) =>
      node.querySelector('h3').textContent.startsWith('Measured board'),
    );
    const drawing = figure.querySelector('.plot-area svg');
    const { width, height } = drawing.viewBox.baseVal;
    return Math.max(
      ...[...drawing.querySelectorAll('path, circle')].map((node) => {
        const box = node.getBBox();
        return Math.max(-box.x, -box.y, box.x + box.width - width, box.y + box.height - height);
      }),
    );
  });

const seen = ['Oblique', 'Front', 'Edge', 'Side'];

test('The measured board stays inside its drawing, however it is seen and enlarged', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    for (const look of seen) {
      for (const enlarged of ['0', '8', '13']) {
        await page.evaluate(
          (name, place) => {
            const figure = [...document.querySelectorAll('#pair figure.plot')].find((node) =>
              node.querySelector('h3').textContent.startsWith('Measured board'),
            );
            [...figure.querySelectorAll('button')].find((node) => node.textContent === name).click();
            const slider = figure.querySelector('input[type=range]');
            slider.value = place;
            slider.dispatchEvent(new Event('input'));
          },
          look,
          enlarged,
        );
        await settled(page);
        assert.ok((await beyond(page)) <= 1, `${look}, ${enlarged}: ${await beyond(page)}`);
      }
    }
  });
});

test('On paper, too', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    await page.evaluate(() => dispatchEvent(new Event('beforeprint')));
    await settled(page);
    assert.ok((await beyond(page)) <= 1);
  });
});

test('The normal curve has its top, refined or not', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    for (const source of ['Library', 'Refined']) {
      await page.evaluate((name) => {
        [...document.querySelectorAll('#pair button')].find((node) => node.textContent === name).click();
      }, source);
      await settled(page);
      const heights = await page.evaluate(() => {
        const figure = [...document.querySelectorAll('#pair figure.plot')].find(
          (node) => node.querySelector('h3').textContent === 'Distribution',
        );
        const curve = figure.querySelector('svg path[stroke="var(--text)"][fill="none"]').getAttribute('d');
        return curve
          .slice(1)
          .split('L')
          .map((place) => Number(place.split(' ')[1]));
      });
      const top = Math.min(...heights);
      assert.ok(heights.filter((height) => height === top).length <= 3, `${source}: ${top}`);
      assert.ok(top >= 26, `${source}: above the box, ${top}`);
    }
  });
});

/** Moves the pointer over dots of the map and says how far the tooltip sticks out of the window. */
async function sticksOut(page) {
  const stage = await page.$('#pair .plot-picture .plot-stage');
  await stage.scrollIntoView();
  await settled(page);
  const { x, y, width, height } = await stage.boundingBox();
  const out = [];
  for (const [right, down] of [
    [0.3, 0.3],
    [0.5, 0.5],
    [0.6, 0.7],
  ]) {
    await page.mouse.move(x + right * width, y + down * Math.min(height, 400));
    out.push(
      await page.$eval('.tooltip', (box) => {
        const { left, top, right: end, bottom, height: tall } = box.getBoundingClientRect();
        return box.hidden || tall === 0 ? null : Math.max(-left, -top, end - innerWidth, bottom - innerHeight);
      }),
    );
  }
  return out.filter((value) => value !== null);
}

for (const [words, width, height] of [
  ['at 200 % zoom', 640, 450],
  ['on a telephone', 360, 640],
]) {
  test(`All of the tooltip is in the window ${words}`, async () => {
    await within(pageFile('misaligned'), { hash: '#pair=0', width, height, calm: true }, async (page) => {
      await page.evaluate(() =>
        [...document.querySelectorAll('#pair button')].find((node) => node.textContent === 'Refined').click(),
      );
      await settled(page);
      const out = await sticksOut(page);
      assert.ok(out.length > 0, 'no dot was met');
      for (const far of out) assert.ok(far <= 0, `${far} px outside`);
    });
  });
}

test('On a telephone every limit is seen with its worst value, gauge and place', async () => {
  await within(pageFile('limits'), { width: 360, height: 740 }, async (page) => {
    const out = await page.$$eval('.limits tbody :is(td, th) > *', (nodes) =>
      nodes.map((node) => [node.textContent, node.getBoundingClientRect().right]).filter(([, right]) => right > 360),
    );
    assert.deepEqual(out, []);
    const head = await page.$eval('#pairs thead', (node) => node.getBoundingClientRect().height);
    assert.ok(head < 135, `the head of all pairs is ${head} px tall`);
  });
});
