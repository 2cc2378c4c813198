// Two and eight checks side by side.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { missingFigures, shownFigures, wrongFigures } from './support/figures.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

const sides = {
  two: ['misaligned', 'good'],
  eight: ['good', 'misaligned', 'after_1', 'after_2', 'after_3', 'after_4', 'after_5', 'after_6'],
};

for (const [name, documents] of Object.entries(sides)) {
  test(`The means of '${name}' are those of the documents`, async () => {
    await within(pageFile(name), {}, async (page) => {
      const shown = await page.$$eval('[data-compared]', (nodes) => nodes.map((node) => ({ ...node.dataset })));
      assert.ok(shown.length >= documents.length * 5);
      for (const { compared, check, value } of shown) {
        const { figures, refined } = checkDocument(documents[check - 1]).summary;
        const mean = compared.startsWith('refined.') ? refined.figures[compared.slice(8)].mean : figures[compared].mean;
        assert.ok(
          Math.abs(Number(value) - mean) <= 1e-6 * Math.abs(mean),
          `${compared} of check ${check}: ${value}, ${mean}`,
        );
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

test('The limits stand side by side', async () => {
  await within(pageFile('two'), {}, async (page) => {
    const text = await page.$eval('#comparison', (node) => node.innerText);
    for (const name of sides.two) {
      for (const limit of checkDocument(name).limits) assert.ok(text.includes(limit.text), limit.text);
    }
  });
});
