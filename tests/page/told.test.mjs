// What the document tells beside its figures is on the page, in the same numbers.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { checkDocument, checkDocumentFile, pageFile } from './support/pages.mjs';

const textOf = (page, selector) => page.$eval(selector, (node) => node.innerText);

test('Fisheye lenses are told in the verdict and under each plot of the raw pair', async () => {
  const sentence = /Fisheye lenses: residuals, distances .* judge by dy_means and dy_max\./;
  await within(pageFile('fisheye'), { hash: '#pair=0' }, async (page) => {
    assert.match(await textOf(page, '#verdict'), sentence);
    const told = await page.$$eval('#pair figure.plot', (nodes) =>
      nodes
        .filter((node) => node.querySelector('figcaption').textContent.includes('Fisheye lenses'))
        .map((node) => node.querySelector('h3').textContent),
    );
    assert.deepEqual(told, [
      'Residual over the board',
      'Residual over the picture',
      'Measured board against the true one',
      'Distance errors',
      'Depth error over the picture',
    ]);
  });
  await within(pageFile('fisheye'), { script: false }, async (page) =>
    assert.match(await textOf(page, 'body'), sentence),
  );
  await within(pageFile('misaligned'), {}, async (page) =>
    assert.doesNotMatch(await textOf(page, 'body'), /[Ff]isheye/),
  );
});

test('The causes are those of the document, with their errors and shares', async () => {
  const { causes } = checkDocument('misaligned').diagnosis;
  await within(pageFile('misaligned'), {}, async (page) => {
    const shown = await page.$$eval('[data-cause]', (nodes) => nodes.map((node) => ({ ...node.dataset })));
    assert.deepEqual(
      shown.map(({ cause, value, sd }) => [cause, Number(value), Number(sd)]),
      causes.map(({ name, value, sd }) => [name, value, sd]),
    );
    const shares = await page.$$eval('[data-share]', (nodes) => nodes.map((node) => Number(node.dataset.value)));
    assert.deepEqual(
      shares,
      causes.map(({ share }) => share),
    );
    assert.match(await textOf(page, '.causes'), /refined centres in the raw pictures/);
  });
});

test('What the pictures are like is what the document says', async () => {
  const { pairs } = checkDocument('misaligned');
  await within(pageFile('misaligned'), { hash: '#pair=1' }, async (page) => {
    const shown = await page.$$eval('#pair [data-quality]', (nodes) =>
      nodes.map((node) => [node.dataset.quality, Number(node.dataset.value)]),
    );
    const { left, right } = pairs[1].quality;
    const wanted = Object.keys(left).flatMap((key) => [left[key], right[key]].map((value) => [key, value]));
    const sorted = (list) =>
      list
        .filter(([, value]) => value !== null)
        .map(String)
        .sort();
    assert.deepEqual(sorted(shown), sorted(wanted));
  });
});

test('A pair given up says what its status means and what to do', async () => {
  const document = checkDocument('unseen');
  await within(pageFile('unseen'), {}, async (page) => {
    for (const { index, reason } of document.pairs) {
      await goTo(page, `#pair=${index}`);
      const text = await textOf(page, '#pair');
      assert.match(text, new RegExp(`${reason.code} \\([a-z_]+\\)`));
      assert.ok((await textOf(page, '#pair .advice')).length > 20);
    }
    const verdict = await textOf(page, '#verdict');
    assert.doesNotMatch(verdict, /above/);
    if (/polarline detect/.test(verdict))
      assert.match(verdict, /Run it in the set\u2019s folder|Run it in the set's folder/);
  });
});

test('A pair that an evaluation failed at is shown, although it has no entry', async () => {
  const document = checkDocument('colour');
  assert.deepEqual([document.verdict, document.pairs.length], ['error', 0]);
  await within(pageFile('colour'), {}, async (page) => {
    assert.match(await textOf(page, '#pairs'), /The run ended with its first pair.*left_0\.png/);
    const shown = await page.$$eval('#pairs img', (images) =>
      images.map(({ alt, src }) => [alt, src.startsWith('data:image/jpeg')]),
    );
    assert.deepEqual(shown.slice(-2), [
      ['The left picture', true],
      ['The right picture', true],
    ]);
    assert.equal(shown.length, 3);
  });
});

test('A run that ended early says behind which pair, and judges no count', async () => {
  const document = checkDocument('broken');
  assert.deepEqual([document.verdict, document.pairs.length], ['error', 1]);
  await within(pageFile('broken'), {}, async (page) => {
    assert.match(await textOf(page, '#verdict'), /1 of 1 finished, then the run ended/);
    assert.match(await textOf(page, '#pairs'), /Behind pair 0 the run ended: .*right_1\.png/);
    const limits = await page.$$eval('.limits tbody tr', (rows) => rows.map((row) => row.innerText));
    const counted = limits.find((text) => text.includes('given_up<=0'));
    assert.match(counted, /not measured/);
    assert.match(counted, /the run ended before its last pair/);
    assert.equal(await page.$$eval('#pair .tile', (nodes) => nodes.length > 3), true);
  });
});

test('The headline leaves the names of files as they are', async () => {
  await within(pageFile('broken'), {}, async (page) => {
    const headline = await textOf(page, '#verdict .headline');
    assert.ok(checkDocument('broken').status.text.includes('right_1.png'));
    assert.ok(!headline.includes('Right_1.png'), headline);
  });
});

test('A set with no refined figure offers none', async () => {
  await within(pageFile('unseen'), {}, async (page) => {
    const words = await page.$$eval('button', (nodes) => nodes.map((node) => node.textContent));
    assert.ok(!words.includes('Refined'));
  });
});

test('A trend with one finished pair tells its value once', async () => {
  const told = (page) => page.$$eval('#run figure.plot figcaption', (nodes) => nodes.map((node) => node.textContent));
  await within(pageFile('one_finished'), {}, async (page) => {
    const sentences = await told(page);
    assert.ok(sentences.length > 0);
    for (const text of sentences) assert.match(text, /^\u2212?[\d.]+ \(pair 0\)\. .*1 given up\.$/);
  });
  await within(pageFile('misaligned'), {}, async (page) => {
    for (const text of await told(page))
      assert.match(text, /^From \u2212?[\d.]+ \(pair \d\) to \u2212?[\d.]+ \(pair \d\)\./);
  });
});

test('The command line that asked for the page stands at its end, with paths only where they were asked for', async () => {
  const commandOf = (name) =>
    within(pageFile(name), {}, (page) =>
      page.$$eval(
        '#measured dt',
        (nodes) => nodes.find((node) => node.textContent === 'Command line')?.nextElementSibling.textContent,
      ),
    );
  assert.equal(await commandOf('good'), 'polarline report good.json -o good.html --quiet');
  const [document, page] = [checkDocumentFile('good'), pageFile('with_paths')];
  assert.equal(await commandOf('with_paths'), `polarline report ${document} -o ${page} --quiet --paths`);
});
