import { el } from '../dom/el';
import { tableElement } from '../dom/table';
import { plotFigure } from '../dom/plot_figure';
import { coverageMap } from '../plots/coverage';
import { SelectionStore } from '../state/selection';
import { section } from './chip';
import { pictureSize } from './pair_views';
import type { CoverageGrid } from '../page_data';
import type { Scope } from './scope';

/** The cells as numbers, for who cannot point at them. */
function counts(side: string, { columns, rows, dots }: CoverageGrid): HTMLElement {
  const numbers = (count: number): number[] => Array.from({ length: count }, (_, k) => k);
  return el(
    'details',
    { class: 'card full no-print', 'data-cells': side },
    el('summary', {}, `Dots in the cells of the ${side} picture`),
    tableElement({
      caption: `Dots in the cells of the ${side} picture`,
      columns: [{ title: 'Row' }, ...numbers(columns).map((k) => ({ title: `Column ${k + 1}`, numbers: true }))],
      rows: numbers(rows).map((row) => [
        String(row + 1),
        ...numbers(columns).map((k) => String(dots[row * columns + k])),
      ]),
      headed: true,
    }),
  );
}

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
  const made = section(
    'coverage',
    'All pairs together',
    el('div', { class: 'grid' }, ...figures, counts('left', found.left), counts('right', found.right)),
  );
  made.dataset['set'] = scope.check.title;
  return made;
}
