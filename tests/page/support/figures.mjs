// The figures of a check's document against those that its page shows.

/** Name and value of each number among `figures`: lists by their entries, `tri_dis[0]`. */
function flat(figures, prefix = '') {
  return Object.entries(figures ?? {}).flatMap(([name, value]) =>
    Array.isArray(value)
      ? value.map((entry, index) => [`${prefix}${name}[${index}]`, entry])
      : [[`${prefix}${name}`, value]],
  );
}

function ofSummary(figures, prefix) {
  return Object.entries(figures ?? {}).flatMap(([name, numbers]) =>
    Object.entries(numbers).map(([what, value]) => [`${prefix}${name}.${what}`, value]),
  );
}

const key = (figure, pair) => (pair === null ? figure : `${figure} of pair ${pair}`);

/** Of each pair, the library's and the refined ones. */
export function figuresOfPairs(document) {
  const all = new Map();
  for (const pair of document.pairs) {
    for (const [name, value] of flat(pair.figures)) all.set(key(name, pair.index), value);
    for (const [name, value] of flat(pair.refined?.figures, 'refined.')) all.set(key(name, pair.index), value);
  }
  return all;
}

export function figuresOfRun(document) {
  return new Map([
    ...ofSummary(document.summary.figures, 'summary.'),
    ...ofSummary(document.summary.refined?.figures, 'summary.refined.'),
  ]);
}

/** Those that have to stand in the page: what was measured in each pair. */
export function requiredFigures(document) {
  return [...figuresOfPairs(document)].filter(([, value]) => value !== null).map(([name]) => name);
}

/** Every figure that the page holds at the moment. */
export function shownFigures(page) {
  return page.evaluate(() =>
    [...document.querySelectorAll('[data-figure]')].map((node) => ({
      figure: (node.getAttribute('data-source') === 'refined' ? 'refined.' : '') + node.getAttribute('data-figure'),
      pair: node.getAttribute('data-pair'),
      check: node.getAttribute('data-check'),
      value: node.getAttribute('data-value'),
      text: node.textContent.trim(),
    })),
  );
}

const leading = /^([-+\u2212]?)(\d[\d\u202f\u2009 ]*)(\.\d+)?(?:e([-+\u2212]?\d+))?/;

/** Whether a text shows the number as rounded to the digits that it has, and has enough of them. */
export function textShows(text, value) {
  const found = leading.exec(text);
  if (!found) return false;
  const [, sign, whole, fraction = '', exponent = '0'] = found;
  const power = Number(exponent.replace('\u2212', '-'));
  const shown = Number(`${whole.replace(/\D/g, '')}${fraction}e${power}`) * (/[-\u2212]/.test(sign) ? -1 : 1);
  const decimals = Math.max(0, fraction.length - 1);
  const step = 10 ** (power - decimals);
  const off = Math.abs(shown - value);
  const fineEnough = decimals >= 4 || off <= 0.01 * Math.abs(value);
  return fineEnough && off <= 0.5 * step * (1 + 1e-6);
}

const dash = /^[\u2013\u2014]/;

function fault(shown, values) {
  const name = key(shown.figure, shown.pair);
  // A list that was not measured is null as a whole.
  const list = key(shown.figure.replace(/\[\d+\]$/, ''), shown.pair);
  const value = values.has(name) ? values.get(name) : values.get(list);
  if (value === undefined) return `${name} is no figure of the document`;
  if (value === null) {
    return shown.value === 'null' && dash.test(shown.text) ? '' : `${name} is null, shown as '${shown.text}'`;
  }
  if (shown.value === null || shown.value === '' || Number(shown.value) !== value)
    return `${name} is ${value}, the page has ${shown.value}`;
  return textShows(shown.text, value) ? '' : `${name} is ${value}, shown as '${shown.text}'`;
}

/** What is wrong among the shown figures; `check` picks those of one of several documents, counted from 1. */
export function wrongFigures(document, shown, check = null) {
  const values = new Map([...figuresOfPairs(document), ...figuresOfRun(document)]);
  return shown
    .filter((entry) => check === null || entry.check === null || entry.check === String(check))
    .map((entry) => fault(entry, values))
    .filter((text) => text !== '');
}

/** Figures of the document that are not among the shown ones. */
export function missingFigures(document, shown) {
  const there = new Set(shown.map((entry) => key(entry.figure, entry.pair)));
  return requiredFigures(document).filter((name) => !there.has(name));
}
