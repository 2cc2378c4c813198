import { el } from '../dom/el';
import { tableElement, type Cell } from '../dom/table';
import type { ComparedFigure, Comparison, PageData } from '../page_data';
import { hashOf } from '../state/route';
import { shortUnit } from '../text/figures';
import { error, shown, signed } from '../text/number';
import { chip, section, verdictChip } from './chip';
import { comparisonPlots } from './comparison_plots';
import type { Scope } from './scope';

function limits(data: PageData, comparison: Comparison): HTMLElement | null {
  if (comparison.limits.length === 0) return null;
  return tableElement({
    caption: 'Limits of all checks',
    columns: [{ title: 'Limit' }, ...data.checks.map(({ title }, index) => ({ title, below: `check ${index + 1}` }))],
    rows: comparison.limits.map(({ text, values, holds }) => [
      text,
      ...data.checks.map((_, index): Cell => {
        const value = values[index] ?? null;
        const kept = holds[index] ?? null;
        const words = kept === null ? 'not judged' : value === null ? 'not measured' : shown(value);
        const shape = kept === null ? 'none' : kept ? 'pass' : 'fail';
        return { content: chip(shape, words), value };
      }),
    ]),
    headed: true,
  });
}

function mean(figure: ComparedFigure, index: number): Cell {
  const value = figure.mean[index] ?? null;
  const low = figure.low95[index] ?? null;
  const high = figure.high95[index] ?? null;
  if (value === null) return '–';
  const interval = low === null || high === null ? null : el('small', {}, `${shown(low)} to ${shown(high)}`);
  const exact = { 'data-compared': figure.figure, 'data-check': index + 1, 'data-value': String(value) };
  return { content: el('span', exact, shown(value), interval), value };
}

function difference(figure: ComparedFigure, index: number): Cell {
  const found = figure.difference[index];
  if (!found || found.value === null) return '–';
  const by = `${signed(found.value)}${found.sd === null ? '' : ` ± ${error(found.sd)}`}`;
  const words = {
    more: ['error', 'more'],
    less: ['pass', 'less'],
    none: ['none', 'none'],
    unknown: ['none', 'uncertainty not known'],
  } as const;
  const [, said] = words[found.judged];
  const state =
    found.judged === 'more' || found.judged === 'less' ? el('strong', {}, said) : el('span', { class: 'faint' }, said);
  return { content: el('span', {}, state, el('small', {}, by)), value: found.value };
}

function figures(data: PageData, comparison: Comparison, scope: Scope): HTMLElement {
  const others = data.checks.slice(1);
  return tableElement({
    caption: 'Means of the figures over the finished pairs, and how they differ from the first check',
    columns: [
      { title: 'Figure' },
      ...data.checks.map(({ title }, index) => ({ title, below: `check ${index + 1}, mean`, numbers: true })),
      ...others.map((_, index) => ({ title: 'Difference', below: `check ${index + 2} against 1`, numbers: true })),
    ],
    rows: comparison.figures.map((figure): Cell[] => [
      {
        content: el(
          'span',
          {},
          scope.explanations.title(figure.figure),
          el('small', {}, `${figure.figure}${figure.unit && `, ${shortUnit(figure.unit)}`}`),
        ),
        value: figure.figure,
      },
      ...data.checks.map((_, index) => mean(figure, index)),
      ...others.map((_, index) => difference(figure, index + 1)),
    ]),
    headed: true,
    sortable: true,
  });
}

/** Two to eight checks side by side; one of them follows below in full. */
export function comparison(data: PageData, scope: Scope): HTMLElement | null {
  const { comparison: found } = data;
  if (!found) return null;
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
    el('p', { class: 'headline' }, found.text),
    el('div', { class: 'card' }, el('h3', {}, 'Limits'), limits(data, found) ?? el('p', {}, 'No check has a limit.')),
    el('div', { class: 'card compared-figures' }, el('h3', {}, 'Figures'), figures(data, found, scope)),
    comparisonPlots(data, found, scope),
    el('p', { class: 'faint' }, `Below: check ${scope.number + 1}, ${scope.check.title}.`),
  );
}
