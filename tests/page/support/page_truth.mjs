// What a page has to be given, worked out from the documents that it was made of.
import { any, near, numbersOf, roundedNumbers, said } from './expected.mjs';
import { dotsOf } from './dot_truth.mjs';

const base = (name) => name.replace(/.*\//, '');

/** A text with or without the folders of files. */
const withoutFolders = (wanted) => (found) => {
  const bare = (text) => text.replace(/[^\s:']*\//g, '');
  return found === wanted || (wanted.includes('/') && bare(`${found}`) === bare(wanted))
    ? ''
    : `is '${wanted}', the page says '${found}'`;
};

function withTexts(value) {
  if (typeof value === 'string') return withoutFolders(value);
  if (value === null || typeof value !== 'object') return value;
  if (Array.isArray(value)) return value.map(withTexts);
  return Object.fromEntries(Object.entries(value).map(([name, each]) => [name, withTexts(each)]));
}

/** The document without dots and folders. */
function bare(document) {
  const made = withTexts({ ...document, pairs: [] });
  made.set.folder = said(base(document.set.folder));
  made.set.inputs.forEach((input, k) => (input.path = said(base(document.set.inputs[k].path))));
  made.pairs = document.pairs.map(({ points: _, refined, ...pair }) => {
    const { points: __, ...rest } = refined ?? {};
    return withTexts(refined ? { ...pair, refined: rest } : pair);
  });
  return made;
}

const summaryOf = (document, source) =>
  (source === 'refined' ? document.summary.refined?.figures : document.summary.figures) ?? {};

/** The worst pair with its figure and, of several, the mean, each with its error where it has one. */
function worstText(document, name, source) {
  const found = summaryOf(document, source)[name];
  if (!found || found.mean === null) return any;
  const pair = document.pairs.find(({ index }) => index === found.worst_pair);
  const value = Math.abs(found.min) > Math.abs(found.max) ? found.min : found.max;
  const { sd = null } = (source === 'refined' ? pair.refined : pair).uncertainty?.[name] ?? {};
  const { finished } = document.summary;
  const mean = finished > 1 ? [found.mean, found.sd_mean] : [];
  const order =
    source === 'refined'
      ? [value, sd, pair.index, ...mean]
      : [pair.index, value, sd, ...(finished > 1 ? [finished] : []), ...mean];
  return (text) => (text === '' ? '' : roundedNumbers(order.filter((each) => each !== null))(text));
}

const cells = 16;

function gridOf(document, side) {
  const { cameras, settings } = document;
  const cropped = settings.crop && settings.cropped_cols >= 1 && settings.cropped_rows >= 1;
  const [width, height] = cropped ? [settings.cropped_cols, settings.cropped_rows] : [cameras.width, cameras.height];
  const size = Math.max(width, height) / cells;
  const [columns, rows] = [width, height].map((each) => Math.max(1, Math.round(each / size)));
  const dots = new Array(columns * rows).fill(0);
  for (const { state, points } of document.pairs) {
    if (state !== 'finished') continue;
    points.id.forEach((_, k) => {
      const [x, y] = [points[`${side}_x`]?.[k], points[`${side}_y`]?.[k]];
      if (typeof x !== 'number' || typeof y !== 'number') return;
      const [column, row] = [Math.floor(((x + 0.5) / width) * columns), Math.floor(((y + 0.5) / height) * rows)];
      if (column >= 0 && column < columns && row >= 0 && row < rows) dots[row * columns + column] += 1;
    });
  }
  return { columns, rows, dots };
}

function coverageOf(document) {
  const pairs = document.pairs.filter(({ state, points }) => state === 'finished' && points?.id.length > 0).length;
  if (pairs === 0) return null;
  const [left, right] = [gridOf(document, 'left'), gridOf(document, 'right')];
  const share = ({ dots }) => Math.round((100 * dots.filter(Boolean).length) / dots.length);
  return { left, right, sentence: numbersOf([...(pairs === 1 ? [1] : [pairs]), share(left), share(right)], 3) };
}

function detailsOf(document, pair, shown) {
  if (!shown) return null;
  const none = { points: null, refined_points: null, statistics: null, refined_statistics: null };
  const pictures = { pictures: any, failed_step: any };
  if (pair.state !== 'finished' || !shown.points) return { ...pictures, ...none };
  const own = dotsOf(document, pair.points, shown.points);
  const refined =
    pair.refined?.points?.id && shown.refined_points
      ? dotsOf(document, pair.refined.points, shown.refined_points)
      : null;
  return {
    ...pictures,
    points: own.points,
    statistics: own.statistics,
    refined_points: refined?.points ?? null,
    refined_statistics: refined?.statistics ?? null,
  };
}

/** The pair to begin with: the worst by the first of the main figures, else the first that was finished, else the first. */
function firstPair(document, main) {
  if (document.pairs.length === 0) return null;
  const worst = document.pairs.findIndex(({ index }) => index === document.summary.figures[main[0]]?.worst_pair);
  if (main.length > 0 && worst >= 0) return worst;
  return Math.max(
    0,
    document.pairs.findIndex(({ state }) => state === 'finished'),
  );
}

function headlineOf({ limits, verdict }) {
  const broken = limits.filter(({ holds }) => !holds).length;
  return (text) => {
    if (limits.length === 0 && text.startsWith('No limits were given')) return '';
    const told = /^(?:FAIL: (\d+) of (\d+) limits|PASS: all (\d+) limits)/.exec(text);
    if (!text.startsWith(verdict.toUpperCase())) return `is ${verdict}, the page says '${text}'`;
    const right =
      !told ||
      (told[3] ? Number(told[3]) === limits.length : Number(told[1]) === broken && Number(told[2]) === limits.length);
    return right ? '' : `has ${broken} of ${limits.length} limits broken, the page says '${text}'`;
  };
}

function checkOf(document, shown) {
  const main = shown.main_figures;
  return {
    title: any,
    headline: headlineOf(document),
    worst_pair_text: worstText(document, main[0], 'library'),
    refined_text: worstText(document, main[0], 'refined'),
    fisheye_text: any,
    finished_text: any,
    given_up: any,
    ended_at: any,
    pattern_unknown: any,
    left_out: any,
    main_figures: any,
    first_pair: firstPair(document, main),
    document: bare(document),
    details: document.pairs.map((pair, k) => detailsOf(document, pair, shown.details[k])),
    coverage: coverageOf(document),
  };
}

/** Of a mean: of the scatter of the pairs, else of that of the dots within them. */
function errorOf(document, source, name) {
  const figure = summaryOf(document, source)[name];
  if (typeof figure?.sd_mean === 'number') return { sd: figure.sd_mean, basis: 'pairs' };
  const own = document.pairs.flatMap((pair) => {
    const known = (source === 'refined' ? pair.refined?.uncertainty : pair.uncertainty)?.[name];
    return known ? [known.sd] : [];
  });
  if (own.length === 0 || own.some((sd) => sd === null)) return { sd: null, basis: 'pairs' };
  return { sd: Math.hypot(...own) / own.length, basis: 'dots' };
}

function differenceOf(documents, k, source, name) {
  const [first, other] = [documents[0], documents[k]].map((each) => summaryOf(each, source)[name]?.mean ?? null);
  if (first === null || other === null) return { value: null, sd: any, judged: 'unknown', basis: any };
  const errors = [documents[0], documents[k]].map((each) => errorOf(each, source, name));
  const known = errors.every(({ sd }) => sd !== null);
  const sd = known ? Math.hypot(...errors.map((each) => each.sd)) : null;
  const value = other - first;
  const more = value > 0 ? 'more' : 'less';
  const judged = value === 0 ? 'none' : !known ? 'unknown' : Math.abs(value) <= 2 * sd ? 'none' : more;
  const basis = errors.some((each) => each.basis === 'dots') ? 'dots' : 'pairs';
  return { value: near(value, 1e-14), sd: known ? near(sd, 1e-14) : any, judged, basis: known ? basis : any };
}

function comparisonOf(documents, shown) {
  const texts = [...new Set(documents.flatMap(({ limits }) => limits.map(({ text }) => text)))];
  const names = [
    ...new Set(
      ['library', 'refined'].flatMap((source) =>
        documents.flatMap((each) =>
          Object.keys(summaryOf(each, source)).map((name) => (source === 'refined' ? `refined.${name}` : name)),
        ),
      ),
    ),
  ];
  const limit = (text, key) => documents.map(({ limits }) => limits.find((each) => each.text === text)?.[key] ?? null);
  return {
    text: (text) => comparedText(text, shown.figures),
    maps_text: any,
    limits: texts.map((text) => ({ text, values: limit(text, 'value'), holds: limit(text, 'holds') })),
    figures: names.map((figure) => {
      const source = figure.startsWith('refined.') ? 'refined' : 'library';
      const name = figure.replace(/^refined\./, '');
      const column = (key) => documents.map((each) => summaryOf(each, source)[name]?.[key] ?? null);
      return {
        figure,
        unit: any,
        mean: column('mean'),
        low95: column('low95'),
        high95: column('high95'),
        difference: documents.map((_, k) => differenceOf(documents, k, source, name)),
      };
    }),
  };
}

/** "dy_means (by 0.2726 ± 0.0013 pixels)" is the difference of some check that was found to be so. */
function comparedText(text, figures) {
  for (const [all, name, by, sd] of text.matchAll(/([a-z_.0-9[\]]+) \(by ([\d.e-]+)(?: \u00b1 ([\d.e-]+))?/g)) {
    const differences = figures.find(({ figure }) => figure === name)?.difference ?? [];
    const shows = (word, value) => word === undefined || roundedNumbers([value])(word) === '';
    if (!differences.some((each) => shows(by, Math.abs(each.value)) && shows(sd, each.sd))) return `says '${all}'`;
  }
  return '';
}

/** The data of a page of these checks; what is made of no number of them is left open. */
export function pageOf(documents, shown) {
  return {
    schema: 'polarline-page/1',
    made: any,
    command: any,
    tool: any,
    explanations: any,
    checks: documents.map((document, k) => checkOf(document, shown.checks[k])),
    comparison: documents.length > 1 ? comparisonOf(documents, shown.comparison) : null,
  };
}
