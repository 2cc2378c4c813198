import { el } from '../dom/el';
import { plotFigure, type DrawnFigure } from '../dom/plot_figure';
import { trendOverPairs, type TrendPair, type TrendView } from '../plots/trend';
import { SelectionStore } from '../state/selection';
import { bareName, uncertaintyOf, valueOf } from '../text/figures';
import { exceeds, isUpper, limitedFigures, rulesOn, type LimitRule } from '../text/limits';
import { shown, typographic } from '../text/number';
import { section } from './chip';
import { names } from './pairs_table';
import type { Scope } from './scope';

export interface Trends {
  element: HTMLElement;
  /** Shows which pair is seen below. */
  mark(pair: number): void;
}

function viewOf(scope: Scope, name: string, rules: LimitRule[]): TrendView {
  const { source, explanations } = scope;
  return {
    name: explanations.title(name),
    unit: explanations.unit(name),
    pairs: scope.check.document.pairs.map((pair) => {
      // A pair that was given up may have got as far as some figures; the run's statistics do not count them.
      const value = pair.state === 'finished' ? valueOf(pair, source, name) : null;
      const known = uncertaintyOf(pair, source, name);
      return {
        index: pair.index,
        value,
        low: known?.low95 ?? null,
        high: known?.high95 ?? null,
        givenUp: pair.state !== 'finished',
        over: value !== null && rules.some((rule) => exceeds(rule, value)),
      };
    }),
    limits: rules.map((rule) => ({
      value: rule.bound,
      sense: isUpper(rule) ? 'at most' : 'at least',
      absolute: rule.absolute,
    })),
    chosen: null,
    choose: scope.go,
  };
}

const countedPairs = (count: number): string =>
  count === 0 ? 'No pair is' : count === 1 ? 'One pair is' : `${count} pairs are`;

/** One for each limit: how many pairs break it, and on which side of it they are. */
function limitSentences(values: readonly number[], rules: readonly LimitRule[]): string {
  return rules
    .map((rule) => {
      const beyond = values.filter((value) => exceeds(rule, value)).length;
      return ` ${countedPairs(beyond)} ${isUpper(rule) ? 'over' : 'below'} the limit ${typographic(String(rule.bound))}.`;
    })
    .join('');
}

/** The least and the most with their pairs; once where there is but one value. */
function extremes(pairs: readonly TrendPair[]): string {
  const values = pairs.map((pair) => pair.value as number);
  const [least, most] = [Math.min(...values), Math.max(...values)];
  const told = (value: number) => `${shown(value)} (pair ${pairs.find((pair) => pair.value === value)?.index})`;
  if (pairs.length === 1) return `${told(least)}.`;
  return least === most ? `${shown(least)} in each pair.` : `From ${told(least)} to ${told(most)}.`;
}

function sentenceOf(view: TrendView, rules: readonly LimitRule[]): string {
  const there = view.pairs.filter((pair) => pair.value !== null);
  const values = there.map((pair) => pair.value as number);
  if (values.length === 0) return `${view.name}: no pair measured it.`;
  const limited = limitSentences(values, rules);
  const givenUp = view.pairs.filter((pair) => pair.givenUp).length;
  return `${extremes(there)}${limited}${givenUp > 0 ? ` ${givenUp} given up.` : ''}`;
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

/** The main ones, and what else a limit judges in each pair; of a list its entries. */
function figureNames(scope: Scope): string[] {
  const { document, main_figures } = scope.check;
  const finished = document.pairs.filter(({ state }) => state === 'finished');
  const measured = names(scope, scope.source).filter((name) =>
    finished.some((pair) => valueOf(pair, scope.source, name) !== null),
  );
  const limited = limitedFigures(document.limits, scope.source).flatMap((figure) =>
    measured.filter((name) => name === figure || bareName(name) === figure),
  );
  return [...new Set([...main_figures, ...limited])];
}

/** The main figures over the pairs, small. One pair makes no trend. */
export function trends(scope: Scope): Trends | null {
  const { pairs, limits } = scope.check.document;
  if (pairs.length < 2) return null;
  const selection = new SelectionStore();
  const figures = figureNames(scope);
  if (figures.length === 0) return null;
  const drawn = figures.map((name): [TrendView, DrawnFigure] => {
    const rules = rulesOn(limits, name, scope.source);
    const view = viewOf(scope, name, rules);
    const figure = plotFigure(
      {
        title: view.name,
        sentence: sentenceOf(view, rules),
        help: 'One point a pair, in the order in which they were taken, with the band in which the figure lies with 95 % where that is known. Crosses break a limit, ticks on the axis are pairs that were given up. Choose a point, or one with the arrow keys and Enter, to see that pair below.',
        plot: trendOverPairs,
        view,
        selection,
      },
      scope.end,
    );
    return [view, figure];
  });
  const element = section('run', 'Over the run', ...folded(drawn.map(([, figure]) => figure.element)));
  element.dataset['set'] = scope.check.title;
  return {
    element,
    mark(pair) {
      for (const [view, figure] of drawn) {
        if (view.chosen !== pair) figure.show(Object.assign(view, { chosen: pair }));
      }
    },
  };
}
