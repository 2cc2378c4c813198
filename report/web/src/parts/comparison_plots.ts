import { el } from '../dom/el';
import { plotFigure } from '../dom/plot_figure';
import type { ComparedFigure, PageData } from '../page_data';
import { comparedFigure, type ComparisonView } from '../plots/comparison';
import { quantile } from '../plots/numbers';
import { pictureMap } from '../plots/picture_map';
import { SelectionStore } from '../state/selection';
import { rulesOn } from '../text/limits';
import { shown } from '../text/number';
import { help } from './help';
import { sides, some } from './pair_views';
import type { PairScope, Scope } from './scope';

function means(data: PageData, figures: ComparedFigure[], scope: Scope): HTMLElement[] {
  const limits = data.checks[0]?.document.limits ?? [];
  return figures.map((figure) => {
    const view: ComparisonView = {
      figure: scope.explanations.title(figure.figure),
      unit: figure.unit,
      limit: rulesOn(limits, figure.figure, 'library')[0]?.bound ?? null,
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
        title: view.figure,
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

function maps(data: PageData, scope: Scope): HTMLElement[] {
  const found = firstPairs(data, scope);
  const all = found.flatMap(({ scope: { details } }) => details?.points?.dy ?? []);
  const largest = quantile(all.filter((v): v is number => v !== null).map(Math.abs), 0.98);
  return found.map(({ scope: own, title }) => {
    const points = own.details!.points!;
    return plotFigure(
      {
        title,
        sentence: own.details?.statistics?.sentences.map ?? '',
        help: help.map,
        plot: pictureMap,
        view: {
          name: 'Row difference',
          unit: 'pixels',
          ids: points.id,
          sides: sides(own, points),
          values: points.dy,
          pattern: points.dy_pattern,
          signed: true,
          arrows: true,
          limit: null,
          largest,
        },
        selection: new SelectionStore(),
      },
      scope.end,
    ).element;
  });
}

/** Means beside each other, and the row differences of the worst pairs on one scale. */
export function comparisonPlots(data: PageData, figures: ComparedFigure[], scope: Scope): HTMLElement {
  const drawn = maps(data, scope);
  return el(
    'div',
    {},
    el('div', { class: 'grid' }, ...means(data, figures, scope)),
    drawn.length > 0 && el('h3', {}, 'Row differences of the worst pairs, on one scale'),
    el('div', { class: 'grid' }, ...drawn),
  );
}
