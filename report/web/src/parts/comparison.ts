import { el } from '../dom/el';
import { tableElement, type Cell, type Column, type Table } from '../dom/table';
import type { CheckView, ComparedFigure, Comparison, PageData } from '../page_data';
import { hashOf } from '../state/route';
import { shortUnit } from '../text/figures';
import { between, shown, signed, typographic, withError } from '../text/number';
import { chip, section, verdictChip } from './chip';
import { comparisonPlots } from './comparison_plots';
import type { Scope } from './scope';

/** A check with its place in the list. */
type Numbered = readonly [check: CheckView, index: number];

/** A sheet of paper takes three checks beside each other; of more, two stand in each of several tables. */
const mostOnPaper = 3;
const inBlock = 2;

/** One table of all checks; a sheet does not scroll, so on paper as many checks a table as it has room for. */
function sideBySide(data: PageData, tableOf: (checks: readonly Numbered[]) => Table): HTMLElement {
  const all = data.checks.map((check, index): Numbered => [check, index]);
  const whole = tableElement(tableOf(all));
  if (all.length <= mostOnPaper) return whole;
  whole.classList.add('no-print');
  const starts = all.map(([, index]) => index).filter((index) => index % inBlock === 0);
  const blocks = starts.map((start) => tableOf(all.slice(start, start + inBlock)));
  const paper = blocks.map((table) => tableElement({ ...table, sortable: false, copyable: false }));
  return el('div', {}, whole, el('div', { class: 'print-only' }, ...paper));
}

function limits(data: PageData, comparison: Comparison): HTMLElement | null {
  if (comparison.limits.length === 0) return null;
  return sideBySide(data, (checks) => ({
    caption: 'Limits of all checks',
    columns: [{ title: 'Limit' }, ...checks.map(([{ title }, index]) => ({ title, below: `check ${index + 1}` }))],
    rows: comparison.limits.map(({ text, values, holds }) => [
      text,
      ...checks.map(([, index]): Cell => {
        const value = values[index] ?? null;
        const kept = holds[index] ?? null;
        const words = kept === null ? 'not judged' : value === null ? 'not measured' : shown(value);
        const shape = kept === null ? 'none' : kept ? 'pass' : 'fail';
        const content = chip(shape, words);
        Object.assign(content.dataset, { judged: text, check: index + 1, value, holds: kept });
        return { content, value };
      }),
    ]),
    headed: true,
  }));
}

function mean(figure: ComparedFigure, index: number): Cell {
  const value = figure.mean[index] ?? null;
  const low = figure.low95[index] ?? null;
  const high = figure.high95[index] ?? null;
  if (value === null) return '–';
  const interval = low === null || high === null ? null : el('small', {}, between(low, high));
  const exact = {
    'data-compared': figure.figure,
    'data-check': index + 1,
    'data-value': String(value),
    'data-low': String(low),
    'data-high': String(high),
  };
  return { content: el('span', exact, shown(value), interval), value };
}

function difference(figure: ComparedFigure, index: number): Cell {
  const found = figure.difference[index];
  if (!found || found.value === null) return '–';
  const of = found.basis === 'dots' ? ' (dots alone)' : '';
  // Of exact figures, and where nobody knows how certain they are, there is no ±.
  const by = found.sd ? withError(found.value, found.sd, true) + of : signed(found.value);
  const said = found.judged === 'unknown' ? 'not known' : found.judged;
  const state =
    found.judged === 'more' || found.judged === 'less' ? el('strong', {}, said) : el('span', { class: 'faint' }, said);
  const exact = {
    'data-differs': figure.figure,
    'data-check': index + 1,
    'data-value': String(found.value),
    'data-sd': String(found.sd),
  };
  return {
    content: el('span', exact, state, el('small', {}, by)),
    value: found.value,
    copied: [found.value, found.sd],
  };
}

function nameCell(figure: ComparedFigure, scope: Scope): Cell {
  const below = `${figure.figure}${figure.unit && `, ${shortUnit(figure.unit)}`}`;
  return {
    content: el('span', {}, scope.explanations.title(figure.figure), el('small', {}, below)),
    value: figure.figure,
  };
}

/** Each check's mean with, beside it, how it differs from the first one's. */
function figures(data: PageData, compared: ComparedFigure[], scope: Scope, caption: string): HTMLElement {
  const columnsOf = ([{ title }, index]: Numbered): Column[] => [
    { title, below: `check ${index + 1}, mean`, numbers: true },
    ...(index > 0
      ? [{ title: 'Difference', below: `check ${index + 1} against 1`, numbers: true, copied: ['', '±'] }]
      : []),
  ];
  const cellsOf = (figure: ComparedFigure, index: number): Cell[] => [
    mean(figure, index),
    ...(index > 0 ? [difference(figure, index)] : []),
  ];
  return sideBySide(data, (checks) => ({
    caption,
    columns: [{ title: 'Figure' }, ...checks.flatMap(columnsOf)],
    rows: compared.map((figure) => [nameCell(figure, scope), ...checks.flatMap(([, index]) => cellsOf(figure, index))]),
    headed: true,
    sortable: true,
  }));
}

/** Those that matter first, in their order, and the others. */
function parted(all: ComparedFigure[], main: string[]): [ComparedFigure[], ComparedFigure[]] {
  const first = main.flatMap((name) => all.filter(({ figure }) => figure === name)).slice(0, 6);
  return [first, all.filter((figure) => !first.includes(figure))];
}

function figuresCard(data: PageData, [main, rest]: [ComparedFigure[], ComparedFigure[]], scope: Scope): HTMLElement {
  const caption = 'Means of the figures over the finished pairs';
  return el(
    'div',
    { class: 'card compared-figures' },
    el('h3', {}, 'Figures'),
    main.length > 0 && figures(data, main, scope, caption),
    rest.length > 0 &&
      el(
        'details',
        {},
        el('summary', {}, `${rest.length} more figures`),
        figures(data, rest, scope, `${caption}, the others`),
      ),
  );
}

/** Figures by what they are, with the name that a limit calls them by. */
function named(text: string, scope: Scope): string {
  return text.replace(/\b([a-z_]+) \(by /g, (whole, name: string) => {
    const title = scope.explanations.title(name);
    return title === name ? whole : `${title.charAt(0).toLowerCase()}${title.slice(1)} (${name}, by `;
  });
}

/** What is said of each check against the first, a line each. */
function told(text: string, scope: Scope): HTMLElement {
  const lines = named(text, scope).split(/(?<=\.) (?=\S[^.;]* against )/);
  if (lines.length === 1) return el('p', { class: text.length < 120 ? 'headline' : '' }, typographic(text));
  return el('ul', {}, ...lines.map((line) => el('li', {}, typographic(line))));
}

/** Two to eight checks side by side; one of them follows below in full. */
export function comparison(data: PageData, scope: Scope): HTMLElement | null {
  const { comparison: found } = data;
  if (!found) return null;
  const groups = parted(found.figures, scope.check.main_figures);
  const list = data.checks.map((check, index) =>
    el(
      'li',
      {},
      verdictChip(check.document),
      ' ',
      el(
        'a',
        { href: hashOf({ check: index, pair: null }), 'aria-current': index === scope.number ? 'true' : null },
        check.title,
      ),
      ` ${check.headline}`,
    ),
  );
  return section(
    'comparison',
    `${data.checks.length} checks side by side`,
    el('ol', { class: 'compared' }, ...list),
    told(found.text, scope),
    el('div', { class: 'card' }, el('h3', {}, 'Limits'), limits(data, found) ?? el('p', {}, 'No check has a limit.')),
    figuresCard(data, groups, scope),
    comparisonPlots(data, groups[0], scope),
    el('p', { class: 'faint' }, `Below: check ${scope.number + 1}, ${scope.check.title}.`),
  );
}
