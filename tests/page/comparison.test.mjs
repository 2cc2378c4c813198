// Two and eight checks side by side.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, settled, within } from './support/browser.mjs';
import { missingFigures, shownFigures, wrongFigures } from './support/figures.mjs';
import { checkDocument, compared, pageFile, withCopy } from './support/pages.mjs';

const sides = { two: compared.two, eight: compared.eight };

for (const [name, documents] of Object.entries(sides)) {
  test(`The means of '${name}' are those of the documents`, async () => {
    await within(pageFile(name), {}, async (page) => {
      const shown = await page.$$eval('[data-compared]', (nodes) => nodes.map((node) => ({ ...node.dataset })));
      assert.ok(shown.length >= documents.length * 5);
      for (const { compared: figure, check, value } of shown) {
        const { figures, refined } = checkDocument(documents[check - 1]).summary;
        const mean = figure.startsWith('refined.') ? refined.figures[figure.slice(8)].mean : figures[figure].mean;
        assert.equal(Number(value), mean, `${figure} of check ${check}`);
      }
    });
  });

  test(`Each check of '${name}' is shown with its own figures`, async () => {
    await within(pageFile(name), {}, async (page) => {
      for (const [index, other] of documents.entries()) {
        const document = checkDocument(other);
        const shown = [];
        for (const pair of document.pairs.slice(0, 2)) {
          await goTo(page, `#${index ? `check=${index + 1}&` : ''}pair=${pair.index}`);
          shown.push(...(await shownFigures(page)));
        }
        assert.deepEqual(wrongFigures(document, shown, index + 1), []);
        const own = shown.filter(({ check }) => check === String(index + 1));
        assert.deepEqual(
          missingFigures(document, own).filter((text) => !text.startsWith('refined.')),
          [],
        );
      }
    });
  });
}

/** The row of a figure in the table of figures, as the texts of its cells. */
function rowOf(page, figure) {
  return page.evaluate((wanted) => {
    const cell = document.querySelector(`[data-compared="${wanted}"]`);
    return [...cell.closest('tr').cells].map((node) => node.innerText.trim());
  }, figure);
}

test('A difference is told as more, less or none', async () => {
  await within(pageFile('two'), {}, async (page) => {
    assert.match((await rowOf(page, 'dy_means')).at(-1), /^less/);
  });
  await within(pageFile('eight'), {}, async (page) => {
    // Row differences were made larger by a tenth a check, and nothing else.
    assert.match((await rowOf(page, 'dy_means')).at(-1), /^more/);
    assert.match((await rowOf(page, 'tri_rms')).at(-1), /^none/);
  });
});

test('A difference of figures that are exact has no ±', async () => {
  const exactly = (text) => text.replace(/"sd":[\d.e-]+,"judged":"less"/g, '"sd":0,"judged":"less"');
  await withCopy('two', exactly, async (file) => {
    await within(file, {}, async (page) => {
      assert.match((await rowOf(page, 'dy_means')).at(-1), /^less\s+\u2212[\d.]+$/);
    });
  });
});

test('The limits stand side by side', async () => {
  await within(pageFile('two'), {}, async (page) => {
    const text = await page.$eval('#comparison', (node) => node.innerText);
    for (const name of sides.two) {
      for (const limit of checkDocument(name).limits) assert.ok(text.includes(limit.text), limit.text);
    }
  });
});

const mapsOf = (page) =>
  page.$$eval('#comparison .plot-picture', (nodes) =>
    nodes.map((node) => [...node.querySelectorAll('.plot-legend text')].map((text) => text.textContent).join(' ')),
  );

for (const name of ['two', 'eight']) {
  test(`The maps of '${name}' stay on one scale whatever is pressed`, async () => {
    await within(pageFile(name), {}, async (page) => {
      const press = async (label) => {
        await page.evaluate((wanted) => {
          const controls = [...document.querySelectorAll('#comparison > div > .plot-controls')];
          const [bar] = controls;
          const found = [...bar.querySelectorAll('button, label')].find((node) => node.textContent.startsWith(wanted));
          if (controls.length !== 1 || !found) throw new Error(`${controls.length} bars, ${wanted}`);
          (found.querySelector('input[type=checkbox]') ?? found).click();
        }, label);
        await settled(page);
      };
      const enlarge = async (place) => {
        await page.$eval(
          '#comparison > div > .plot-controls input[type=range]',
          (input, value) => {
            input.value = value;
            input.dispatchEvent(new Event('input'));
          },
          String(place),
        );
        await settled(page);
      };
      const seen = [];
      const one = async (what) => {
        const legends = await mapsOf(page);
        assert.equal(legends.length, sides[name].length);
        assert.deepEqual([...new Set(legends)].length, 1, `${what}: ${legends.join(' | ')}`);
        seen.push(legends[0]);
      };
      await one('arrows');
      await enlarge(3);
      await one('enlarged');
      assert.notEqual(seen[0], seen[1]);
      await press('Map');
      await one('map');
      await press('What remains');
      await one('what remains');
      await press('Arrows');
      await one('arrows of what remains');
    });
  });
}

/** CSS pixels of an arrow for each pixel of row difference: as the legend says, and as the longest arrow is drawn. */
async function arrowScales(page, documents) {
  const maps = await page.$$eval('#comparison figure:has(.plot-picture)', (figures) =>
    figures.map((figure) => ({
      title: figure.querySelector('h3').textContent,
      arrows: [...figure.querySelectorAll('.plot-picture path')].flatMap((node) =>
        [...node.getAttribute('d').matchAll(/v(-?[\d.]+)m/g)].map((found) => Math.abs(Number(found[1]))),
      ),
      length: Number(/h([\d.]+)$/.exec(figure.querySelector('.plot-legend path').getAttribute('d'))[1]),
      told: parseFloat(figure.querySelector('.plot-legend text').textContent),
    })),
  );
  return maps.flatMap(({ title, arrows, length, told }) => {
    const [, check, index] = /^(\d+) .* pair (\d+)$/.exec(title);
    const pair = checkDocument(documents[check - 1]).pairs.find((each) => each.index === Number(index));
    const largest = Math.max(...pair.points.dy.map(Math.abs));
    return [length / told, Math.max(...arrows) / largest];
  });
}

test('Arrows of cameras of different size are on one scale, zoomed or not', async () => {
  await within(pageFile('sizes'), {}, async (page) => {
    const widths = ['good', 'dense'].map((name) => checkDocument(name).cameras.width);
    assert.equal(new Set(widths).size, 2, String(widths));
    for (const zoom of [false, true]) {
      if (zoom) await page.$eval('#comparison .plot-picture [aria-label="Zoom in"]', (button) => button.click());
      await settled(page);
      const [told, drawn, ...others] = await arrowScales(page, ['good', 'dense']);
      for (const other of others) assert.ok(Math.abs(other / told - 1) < 0.02, `${other} in place of ${told}, ${zoom}`);
      // In what is zoomed the longest arrow may stand outside.
      if (!zoom) assert.ok(Math.abs(drawn / told - 1) < 0.02, `${drawn} is drawn and ${told} told`);
    }
  });
});
