import { el } from '../dom/el';
import { plotFigure, type DrawnFigure } from '../dom/plot_figure';
import type { ComparedFigure, PageData } from '../page_data';
import { comparedFigure, type ComparisonView } from '../plots/comparison';
import { scaleOf } from '../plots/classes';
import { pictureMap, sharedControls, type SharedScale } from '../plots/picture_map';
import { SelectionStore } from '../state/selection';
import { rulesOn } from '../text/limits';
import { shown } from '../text/number';
import { help } from './help';
import { sides, some } from './pair_views';
import type { PairScope, Scope } from './scope';

function means(data: PageData, figures: ComparedFigure[], scope: Scope): HTMLElement[] {
  const limits = data.checks.flatMap(({ document }) => document.limits);
  return figures.map((figure) => {
    const view: ComparisonView = {
      unit: figure.unit,
      limits: [...new Set(rulesOn(limits, figure.figure, 'library').map(({ bound }) => bound))],
      checks: data.checks.map(({ title }, index) => ({
        title,
        mean: figure.mean[index] ?? null,
        low: figure.low95[index] ?? null,
        high: figure.high95[index] ?? null,
        judged: index === 0 ? 'first' : (figure.difference[index]?.judged ?? 'unknown'),
      })),
    };
    const told = view.checks.map(({ mean, title }) => `${title}: ${mean === null ? 'not measured' : shown(mean)}`);
    return plotFigure(
      {
        // Below, the figure of one check alone bears its name.
        title: `${scope.explanations.title(figure.figure)}, compared`,
        sentence: `${told.join('; ')}.`,
        help: 'Mean over the finished pairs of each check with its 95 % interval. A hollow mark does not differ from the first check by more than chance; where a check has fewer than five pairs, chance is that of the dots within them alone.',
        plot: comparedFigure,
        view,
        selection: new SelectionStore(),
      },
      scope.end,
    ).element;
  });
}

interface First {
  scope: PairScope;
  title: string;
}

/** The pair of each check to begin with, where its dots are in the page. */
function firstPairs(data: PageData, scope: Scope): First[] {
  return data.checks.flatMap((check, number) => {
    const position = check.first_pair ?? -1;
    const pair = check.document.pairs[position];
    const details = check.details[position];
    if (!pair || !details?.points || !some(details.points.dy)) return [];
    return [
      { scope: { ...scope, check, number, pair, details }, title: `${number + 1} ${check.title}, pair ${pair.index}` },
    ];
  });
}

/** Of all these pairs together, so that the same arrow or colour is the same difference in each map. */
function scaleOfAll(found: readonly First[]): SharedScale {
  const points = found.map(({ scope: { details } }) => details!.points!);
  const left = points.flatMap(({ dy, dy_pattern }) =>
    dy.map((value, i) => (value === null ? null : value - (dy_pattern[i] ?? 0))),
  );
  return {
    whole: scaleOf(points.flatMap(({ dy }) => dy)),
    left: scaleOf(left),
    width: Math.max(...found.map(({ scope: own }) => sides(own, own.details!.points!)[0]?.width ?? 1000)),
    form: { as: 'arrows', remains: false, enlarged: null },
  };
}

function mapFigures(found: readonly First[], shared: SharedScale, end: AbortSignal): DrawnMap[] {
  return found.map(({ scope: own, title }) => {
    const points = own.details!.points!;
    const view = {
      name: 'Row difference',
      unit: 'pixels',
      ids: points.id,
      sides: sides(own, points),
      values: points.dy,
      pattern: points.dy_pattern,
      signed: true,
      arrows: true,
      bounds: [],
      shared,
    };
    const statistics = own.details?.statistics;
    const sentence = (): string => ((shared.form.remains && statistics?.remains) || statistics)?.sentences.map ?? '';
    const selection = new SelectionStore();
    return {
      view,
      sentence,
      figure: plotFigure({ title, sentence: sentence(), help: help.map, plot: pictureMap, view, selection }, end),
    };
  });
}

interface DrawnMap {
  view: object;
  sentence: () => string;
  figure: DrawnFigure;
}

function maps(data: PageData, scope: Scope): HTMLElement[] {
  const found = firstPairs(data, scope);
  const missing = data.comparison?.maps_text ?? '';
  const without = missing === '' ? [] : [el('p', { class: 'faint' }, missing)];
  if (found.length === 0) return without;
  const shared = scaleOfAll(found);
  const drawn = mapFigures(found, shared, scope.end);
  const hasPattern = found.some(({ scope: { details } }) => (details?.points?.dy_pattern.length ?? 0) > 0);
  const redraw = (): void => drawn.forEach(({ view, figure, sentence }) => figure.show(view, sentence()));
  return [
    el('h3', {}, 'Row differences of the worst pairs, on one scale'),
    sharedControls(shared, hasPattern, redraw),
    el('div', { class: 'grid' }, ...drawn.map(({ figure }) => figure.element)),
    ...without,
  ];
}

/** Means beside each other, and the row differences of the worst pairs on one scale. */
export function comparisonPlots(data: PageData, figures: ComparedFigure[], scope: Scope): HTMLElement {
  return el('div', {}, el('div', { class: 'grid' }, ...means(data, figures, scope)), ...maps(data, scope));
}
