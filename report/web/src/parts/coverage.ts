import { el } from '../dom/el';
import { plotFigure } from '../dom/plot_figure';
import { coverageMap } from '../plots/coverage';
import { SelectionStore } from '../state/selection';
import { section } from './chip';
import { pictureSize } from './pair_views';
import type { Scope } from './scope';

/** Where dots of any pair have been. */
export function coverage(scope: Scope): HTMLElement | null {
  const found = scope.check.coverage;
  if (!found || !(found.left.dots.some(Boolean) || found.right.dots.some(Boolean))) return null;
  const most = Math.max(...found.left.dots, ...found.right.dots);
  const figures = (['left', 'right'] as const).map(
    (side) =>
      plotFigure(
        {
          title: `The ${side} picture`,
          sentence: found.sentence,
          help: 'How many dots of all finished pairs lie in each cell of the picture. What a camera does in an empty cell was not judged: take pictures with the board there.',
          plot: coverageMap,
          view: { grid: found[side], most, ...pictureSize(scope, found[side]) },
          selection: new SelectionStore(),
        },
        scope.end,
      ).element,
  );
  const made = section('coverage', 'All pairs together', el('div', { class: 'grid' }, ...figures));
  made.dataset['set'] = scope.check.title;
  return made;
}
