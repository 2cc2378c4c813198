// The tests themselves: faults put into a page on purpose are found.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, within } from './support/browser.mjs';
import { shownFigures, textShows, wrongFigures } from './support/figures.mjs';
import { checkDocument, withCopy } from './support/pages.mjs';

const withFault = (change, work) => withCopy('good', change, (file) => within(file, {}, work));

/** The number with its seventh digit changed, which no shown text tells. */
function seventhDigitOff(value) {
  return Number((value * (1 + 2e-7)).toPrecision(9));
}

test('A figure that is off in the seventh digit is found', async () => {
  const document = checkDocument('good');
  const value = document.pairs[0].figures.dy_max;
  const wrong = await withFault(
    (text) => text.replaceAll(`"dy_max":${value}`, `"dy_max":${seventhDigitOff(value)}`),
    async (page) => wrongFigures(document, await shownFigures(page)),
  );
  assert.ok(
    wrong.some((line) => line.startsWith('dy_max of pair 0 is ')),
    wrong.join('\n'),
  );
});

test('A picture from the network is found', async () => {
  const seen = await withFault(
    (text) => text.replace('</body>', '<img alt="" src="http://127.0.0.1:9/a.png"></body>'),
    async (_, watched) => complaints(watched),
  );
  assert.match(seen.join('\n'), /127\.0\.0\.1:9/);
});

test('A picture of the data that is replaced by one from the network is found', async () => {
  const seen = await withFault(
    (text) => text.replace(/data:image\/jpeg;base64,[^"]+/g, 'http://127.0.0.1:9/a.jpg'),
    async (_, watched) => complaints(watched),
  );
  assert.match(seen.join('\n'), /127\.0\.0\.1:9/);
});

test('A script that was put in is found', async () => {
  const seen = await withFault(
    (text) => text.replace('</body>', '<script>document.title = "taken"</script></body>'),
    async (_, watched) => complaints(watched),
  );
  assert.match(seen.join('\n'), /Content Security Policy/);
});

test('Texts are compared as numbers that were rounded', () => {
  const right = [
    ['0.01308', 0.013084098],
    ['\u22120.0201', -0.02010718],
    ['1.308e\u22122 px', 0.013084098],
    ['543.9', 543.90344],
    ['0.0131 \u00b1 0.0004', 0.013084098],
    ['0.0000', 2.1e-5],
    ['0', 0],
  ];
  const wrong = [
    ['0.01309', 0.013084098],
    ['0.0201', -0.02010718],
    ['0', 0.4],
    ['0.01', 0.013084098],
    ['\u2013', 0.013],
    ['544.0', 543.90344],
  ];
  for (const [text, value] of right) assert.ok(textShows(text, value), `${text} is ${value}`);
  for (const [text, value] of wrong) assert.ok(!textShows(text, value), `${text} is not ${value}`);
});
