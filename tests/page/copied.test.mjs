// What is copied or saved keeps its numbers apart, exact, and says of what it is.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { within } from './support/browser.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

/** The table with that caption or heading, as lines of fields. */
async function copied(page, selector) {
  const text = await page.evaluate(async (wanted) => {
    let taken = '';
    Object.defineProperty(navigator, 'clipboard', {
      value: { writeText: async (given) => (taken = given) },
      configurable: true,
    });
    const button = [...document.querySelectorAll(`${wanted} button`)].find((node) => /CSV/.test(node.textContent));
    button.click();
    await new Promise((done) => setTimeout(done, 50));
    return taken;
  }, selector);
  const fields = (line) => [...line.matchAll(/("(?:[^"]|"")*"|[^,]*)(?:,|$)/g)].map(([, field]) => field).slice(0, -1);
  return text
    .trim()
    .split('\n')
    .map((line) => fields(line));
}

const exact = (value) => (value === null ? '' : String(value));

test('Causes have error and unit in fields of their own', async () => {
  const { causes } = checkDocument('misaligned').diagnosis;
  await within(pageFile('misaligned'), {}, async (page) => {
    const [heads, ...lines] = await copied(page, '.causes');
    assert.ok(
      heads.some((head) => head.endsWith('\u00b1"') || head.endsWith('\u00b1')),
      heads.join('|'),
    );
    for (const [index, { value, sd, unit, share }] of causes.entries()) {
      assert.deepEqual(lines[index].slice(1), [exact(value), exact(sd), unit, exact(share)]);
    }
  });
});

test('An interval is two exact numbers', async () => {
  const pair = checkDocument('misaligned').pairs[0];
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const lines = await copied(page, '#pair details.card:last-of-type');
    const line = lines.find(([name]) => name === 'dy_means');
    const known = pair.uncertainty.dy_means;
    assert.deepEqual(line.slice(1, 5), [pair.figures.dy_means, known.sd, known.low95, known.high95].map(exact));
    const refined = pair.refined.uncertainty.dy_means;
    assert.deepEqual(
      line.slice(5, 9),
      [pair.refined.figures.dy_means, refined.sd, refined.low95, refined.high95].map(exact),
    );
  });
});

test('The worst dots have each pixel in a field of its own', async () => {
  const { points } = checkDocument('misaligned').pairs[0];
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const [heads, first] = await copied(page, '#pair .card.full:not([hidden])');
    const index = points.id.indexOf(Number(first[0]));
    const { left_x: lx, left_y: ly, right_x: rx, right_y: ry, dy, residual } = points;
    assert.deepEqual(
      first.slice(3, 9),
      [lx, ly, rx, ry, dy, residual].map((column) => exact(column[index])),
    );
    assert.equal(heads.length, first.length);
  });
});

test('What the pictures are like has units', async () => {
  const { left } = checkDocument('misaligned').pairs[0].quality;
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const lines = await page.evaluateHandle(() =>
      [...document.querySelectorAll('#pair .card')].find((card) =>
        /pictures are like/.test(card.querySelector('h3')?.textContent),
      ),
    );
    await lines.evaluate((card) => card.setAttribute('id', 'quality'));
    const rows = await copied(page, '#quality');
    const radius = rows.find(([title]) => title === 'Radius of a dot');
    assert.deepEqual(radius.slice(1, 3), ['px', exact(left.dot_radius)]);
    assert.equal(rows.find(([title]) => title === 'Direction of the blur')[1], '\u00b0');
  });
});

test('A saved drawing is named by set, pair and plot', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=3' }, async (page) => {
    const names = await page.evaluate(() => {
      const saved = [];
      HTMLAnchorElement.prototype.click = function () {
        saved.push(this.download);
      };
      for (const button of document.querySelectorAll('#run .plot-head button, #pair figure.plot .plot-head button'))
        if (button.textContent === 'SVG') button.click();
      return saved;
    });
    assert.ok(names.includes('misaligned_pair_3_Distribution.svg'), names.join());
    assert.ok(names.includes('misaligned_Mean_row_difference.svg'), names.join());
    assert.equal(new Set(names).size, names.length);
  });
});
