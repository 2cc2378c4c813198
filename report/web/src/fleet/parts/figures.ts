import { el } from '../../dom/el';
import { plotFigure } from '../../dom/plot_figure';
import { tableElement, type Cell } from '../../dom/table';
import { section } from '../../parts/chip';
import { SelectionStore } from '../../state/selection';
import { shortUnit } from '../../text/figures';
import { cell, countText, numberText, told, toldCount } from '../dom';
import { spreadBars } from '../plots/spread_bars';
import type { Index } from '../statistics/capability';
import { spreadOf, type MeasureSpread } from '../view/spread';
import { measureTitle } from '../view/view';
import type { Scope } from './scope';

const help =
  'How many sets have which value; the outer bars hold what lies farther out. Bars beyond the limit are of the colour of the limit. The line is the normal distribution of the same mean and standard deviation: where the bars do not follow it, Cp and Cpk promise too much or too little. Cpk is the way from the mean to the nearer limit in units of three standard deviations of all sets (what others call Ppk); 1.33 is often asked for. Cp is that of a centred mean and needs limits on both sides.';

function indexText(index: Index): string {
  return `${index.value.toFixed(2)} (${index.low.toFixed(2)} to ${index.high.toFixed(2)})`;
}

function sentence({ moments, capability, mixed, upper, lower }: MeasureSpread, unit: string): string {
  const behind = unit === '' ? '' : ` ${shortUnit(unit)}`;
  if (moments.n === 0) return '0 sets have this number.';
  const mean = `${countText(moments.n)} sets: mean ${numberText(moments.mean)}${behind}, standard deviation ${numberText(moments.sd)}${behind}.`;
  if (mixed) return `${mean} The limits differ between what is shown: choose one station or model to see Cpk.`;
  if (upper === null && lower === null) return `${mean} There is no limit on it.`;
  const cp = capability.cp ? ` Cp ${indexText(capability.cp)},` : '';
  return capability.cpk ? `${mean}${cp} Cpk ${indexText(capability.cpk)}.` : mean;
}

function toldIndex(name: string, measure: string, index: Index | null): Cell {
  if (!index) return '–';
  const two = (value: number) => value.toFixed(2).replace('-', '\u2212');
  const content = el(
    'span',
    {},
    told(name, measure, index.value, two(index.value)),
    el(
      'small',
      {},
      told(`${name}.low`, measure, index.low, two(index.low)),
      ' to ',
      told(`${name}.high`, measure, index.high, two(index.high)),
    ),
  );
  return { content, value: index.value };
}

function line(scope: Scope, spread: MeasureSpread, index: number): Cell[] {
  const measure = scope.view.fleet.measures[index]!;
  const of = `${measure.name}.${measure.value}`;
  const { moments, capability, lower, upper, mixed } = spread;
  const limit = [lower === null ? '' : `≥ ${numberText(lower)}`, upper === null ? '' : `≤ ${numberText(upper)}`];
  const words = limit.filter((text) => text !== '').join(', ') || '–';
  return [
    cell(el('span', {}, measureTitle(scope.view, measure), el('small', {}, of)), of),
    shortUnit(measure.unit),
    cell(mixed ? 'differ' : words, upper ?? lower),
    cell(toldCount('n', of, moments.n), moments.n),
    cell(told('mean', of, moments.n > 0 ? moments.mean : null), moments.mean),
    cell(told('sd', of, moments.n > 1 ? moments.sd : null), moments.sd),
    toldIndex('cp', of, capability.cp),
    toldIndex('cpk', of, capability.cpk),
  ];
}

/** Each measure's distribution against its limit. */
export function figures(scope: Scope): HTMLElement | null {
  const { fleet } = scope.view;
  if (fleet.measures.length === 0) return null;
  const spreads = fleet.measures.map((_, index) => spreadOf(scope.view, index));
  const plots = fleet.measures.map((measure, index) => {
    const spread = spreads[index]!;
    const title = measureTitle(scope.view, measure);
    const { from, step, unit } = measure;
    const view = { unit, from, step, ...spread };
    return plotFigure(
      { title, sentence: sentence(spread, unit), help, plot: spreadBars, view, selection: new SelectionStore() },
      scope.end,
    ).element;
  });
  const table = tableElement({
    caption: 'All figures',
    columns: [
      { title: 'Figure' },
      { title: 'Unit' },
      { title: 'Limit', numbers: true },
      { title: 'Sets', numbers: true },
      { title: 'Mean', numbers: true },
      { title: 'Standard deviation', numbers: true },
      { title: 'Cp', numbers: true },
      { title: 'Cpk', numbers: true },
    ],
    rows: spreads.map((spread, index) => line(scope, spread, index)),
    sortable: true,
    headed: true,
  });
  return section(
    'figures',
    'Figures against their limits',
    el('div', { class: 'grid' }, ...plots),
    el('div', { class: 'card' }, table),
  );
}
