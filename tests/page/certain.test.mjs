// How certain a figure is stands beside it, of the library's centres and of the refined ones.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { settled, within } from './support/browser.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

async function chooseRefined(page) {
  await page.evaluate(() =>
    [...document.querySelectorAll('#pair button')].find((node) => node.textContent === 'Refined').click(),
  );
  await settled(page);
}

const two = (sd) => Number(Number(sd).toPrecision(2));

test('Tiles have the errors of both sources', async () => {
  const pair = checkDocument('misaligned').pairs[0];
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const shown = await page.$$eval('#pair .tile .value[data-figure]', (nodes) =>
      nodes.map((node) => [node.dataset.source, node.dataset.figure, / \u00b1 ([\d.]+)/.exec(node.textContent)?.[1]]),
    );
    const known = { library: pair.uncertainty, refined: pair.refined.uncertainty };
    let counted = 0;
    for (const [source, figure, error] of shown) {
      const sd = known[source][figure]?.sd;
      if (typeof sd !== 'number') continue;
      assert.equal(Number(error), two(sd), `${source} ${figure}`);
      counted += 1;
    }
    assert.ok(counted >= 8, `${counted} errors`);
    assert.ok(shown.some(([source, , error]) => source === 'refined' && error !== undefined));
  });
});

test('The trends keep their bands when one looks at refined centres', async () => {
  const bands = (page) =>
    page.$$eval('#run figure.plot', (nodes) =>
      nodes
        .filter((node) => node.querySelector('svg path[fill="var(--band)"], svg path[stroke="var(--band)"]'))
        .map((node) => node.querySelector('h3').textContent),
    );
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const library = await bands(page);
    assert.ok(library.includes('Mean row difference'));
    await chooseRefined(page);
    assert.deepEqual(await bands(page), library);
  });
});

test('All figures have both errors and both ends of their intervals', async () => {
  const pair = checkDocument('misaligned').pairs[0];
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const cells = await page.$$eval('#pair details table tr', (rows) => {
      const row = rows.find(({ cells }) => cells[0].textContent === 'dy_means');
      return [...row.cells].map((cell) => cell.textContent);
    });
    assert.equal(Number(cells[2]), two(pair.uncertainty.dy_means.sd));
    assert.equal(Number(cells[5]), two(pair.refined.uncertainty.dy_means.sd));
    assert.match(cells[6], / to /);
  });
});

/** Puts the pointer on a dot and reads what is told of it. */
async function told(page, title, id) {
  const place = await page.evaluate(
    (wanted, dot) => {
      const data = JSON.parse(document.getElementById('polarline-data').textContent);
      const points = data.checks[0].details[0].refined_points;
      const figure = [...document.querySelectorAll('#pair figure.plot')].find(
        (node) => node.querySelector('h3').textContent === wanted,
      );
      const stage = figure.querySelector('.plot-stage');
      stage.scrollIntoView({ block: 'center', behavior: 'instant' });
      const image = stage.querySelector('image').getBoundingClientRect();
      const picture = data.checks[0].details[0].pictures.left;
      const index = points.id.indexOf(dot);
      return {
        x: image.left + ((points.left_x[index] + 0.5) / picture.width) * image.width,
        y: image.top + ((points.left_y[index] + 0.5) / picture.height) * image.height,
      };
    },
    title,
    id,
  );
  await page.mouse.move(place.x, place.y);
  const lines = await page.$eval('.tooltip', (box) => [box.hidden, box.innerText]);
  return { place, hidden: lines[0], text: lines[1] };
}

test('The pointer on a dot tells all its figures, a click marks it in every plot', async () => {
  const { points } = checkDocument('misaligned').pairs[0].refined;
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    await chooseRefined(page);
    const id = points.id[40];
    const { text, hidden, place } = await told(page, 'Row differences over the picture', id);
    assert.equal(hidden, false);
    const number = (value) => String(Math.abs(Number(value.toPrecision(4))));
    const lines = new Map(
      text.split('\n').reduce((pairs, line, at, all) => (at % 2 ? pairs : [...pairs, [line, all[at + 1]]]), []),
    );
    assert.equal(lines.get('Dot'), String(id));
    for (const [line, column] of [
      ['Row difference', 'dy'],
      ['Residual', 'residual'],
    ])
      assert.ok(lines.get(line)?.includes(number(points[column][40]).slice(0, 5)), `${line}: ${lines.get(line)}`);
    assert.match(lines.get('Left centre'), new RegExp(`^refined, \u00b1 ${two(points.left_sd_x[40])}`));
    for (const line of [
      'Row, column',
      'Left pixel',
      'Right pixel',
      'Rectified left',
      'Rectified right',
      'Disparity',
      '… of the causes',
      '… what remains',
      'Place x, y, z',
      'Off the board x, y, z',
      'Depth error',
    ])
      assert.ok(lines.has(line), line);
    await page.mouse.click(place.x, place.y);
    await settled(page);
    const marked = await page.$$eval('#pair [data-dot][aria-pressed="true"]', (nodes) =>
      nodes.map((node) => node.textContent),
    );
    assert.ok(marked.includes(String(id)), marked.join());
  });
});

test('A click on a trend shows that pair', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0', calm: true }, async (page) => {
    const stage = await page.$('#run .plot-stage');
    await stage.scrollIntoView();
    const box = await stage.boundingBox();
    await page.mouse.click(box.x + box.width - 40, box.y + box.height / 2);
    await settled(page);
    assert.equal(await page.$eval('#pair-title', (node) => node.textContent), 'Pair 5');
    assert.equal(await page.evaluate(() => location.hash), '#pair=5');
  });
});
