import { el } from '../dom/el';
import { plotFigure, type DrawnFigure } from '../dom/plot_figure';
import { trendOverPairs, type TrendView } from '../plots/trend';
import { SelectionStore } from '../state/selection';
import { valueOf } from '../text/figures';
import { exceeds, rulesOn, type LimitRule } from '../text/limits';
import { shown } from '../text/number';
import { section } from './chip';
import type { Scope } from './scope';

export interface Trends {
  element: HTMLElement;
  /** Shows which pair is seen below. */
  mark(pair: number): void;
}

function viewOf(scope: Scope, name: string, rule: LimitRule | undefined): TrendView {
  const { source, explanations } = scope;
  return {
    name: explanations.title(name),
    unit: explanations.unit(name),
    pairs: scope.check.document.pairs.map((pair) => {
      // A pair that was given up may have got as far as some figures; the run's statistics do not count them.
      const value = pair.state === 'finished' ? valueOf(pair, source, name) : null;
      const known = source === 'library' ? pair.uncertainty?.[name] : undefined;
      return {
        index: pair.index,
        value,
        low: known?.low95 ?? null,
        high: known?.high95 ?? null,
        givenUp: pair.state !== 'finished',
        over: value !== null && rule !== undefined && exceeds(rule, value),
      };
    }),
    limit: rule ? { value: rule.bound, sense: rule.operator.startsWith('<') ? 'at most' : 'at least' } : null,
    chosen: null,
    choose: scope.go,
  };
}

function sentenceOf(view: TrendView): string {
  const there = view.pairs.filter((pair) => pair.value !== null);
  const values = there.map((pair) => pair.value as number);
  if (values.length === 0) return `${view.name}: no pair measured it.`;
  const [least, most] = [Math.min(...values), Math.max(...values)];
  const at = (value: number) => there.find((pair) => pair.value === value)?.index;
  const over = there.filter((pair) => pair.over).length;
  const limited = view.limit
    ? ` ${over === 0 ? 'No pair is' : over === 1 ? 'One pair is' : `${over} pairs are`} over the limit ${view.limit.value}.`
    : '';
  const givenUp = view.pairs.filter((pair) => pair.givenUp).length;
  return `From ${shown(least)} (pair ${at(least)}) to ${shown(most)} (pair ${at(most)}).${limited}${givenUp > 0 ? ` ${givenUp} given up.` : ''}`;
}

const shownFirst = 3;

/** What is looked at first, and the rest behind a word: the pair below must not be far away. */
function folded(figures: HTMLElement[]): HTMLElement[] {
  const rest = figures.slice(shownFirst);
  const first = el('div', { class: 'grid' }, ...figures.slice(0, shownFirst));
  if (rest.length === 0) return [first];
  const summary = el('summary', {}, rest.length === 1 ? 'One more figure' : `${rest.length} more figures`);
  return [first, el('details', { class: 'on-paper' }, summary, el('div', { class: 'grid' }, ...rest))];
}

/** The main figures over the pairs, small. One pair makes no trend. */
export function trends(scope: Scope): Trends | null {
  const { pairs, limits } = scope.check.document;
  if (pairs.length < 2) return null;
  const selection = new SelectionStore();
  if (scope.check.main_figures.length === 0) return null;
  const drawn = scope.check.main_figures.map((name): [TrendView, DrawnFigure] => {
    const view = viewOf(scope, name, rulesOn(limits, name, scope.source)[0]);
    const figure = plotFigure(
      {
        title: view.name,
        sentence: sentenceOf(view),
        help: 'One point a pair, in the order in which they were taken, with the band in which the figure lies with 95 % where that is known. Crosses are over the limit, ticks on the axis are pairs that were given up. Choose a point, or one with the arrow keys and Enter, to see that pair below.',
        plot: trendOverPairs,
        view,
        selection,
      },
      scope.end,
    );
    return [view, figure];
  });
  return {
    element: section('run', 'Over the run', ...folded(drawn.map(([, { element }]) => element))),
    mark(pair) {
      for (const [view, figure] of drawn) {
        if (view.chosen !== pair) figure.show(Object.assign(view, { chosen: pair }));
      }
    },
  };
}
