import { el } from '../dom/el';
import { icon } from '../dom/icon';
import type { Statistics } from '../page_data';
import { shown } from '../text/number';
import type { PairScope } from './scope';

/** What the causes of the run make of this pair's rows. */
function rows({ check }: PairScope, { dy, remains }: Statistics): HTMLElement | null {
  const before = dy?.mean_abs ?? null;
  const after = remains?.dy?.mean_abs ?? null;
  if (!check.document.diagnosis?.causes.length || before === null || after === null) return null;
  const exact = { class: 'diagnosis', 'data-before': String(before), 'data-after': String(after) };
  return el(
    'p',
    exact,
    `In this pair the rows differ by ${shown(before)} px in the mean; without what the causes make of them, by ${shown(after)} px.`,
  );
}

/** Between the figures of a pair and its plots: why they are as they are, as far as is known of this pair. */
export function ofThisPair(scope: PairScope, statistics: Statistics): HTMLElement[] {
  const { warnings } = scope.check.document;
  const own = warnings.filter(({ pair }) => pair === scope.pair.index);
  const told = own.map(({ code, text }) =>
    el(
      'p',
      { class: 'pair-warning' },
      icon('error'),
      ' ',
      el('strong', {}, scope.explanations.title(code)),
      ` ${text}`,
    ),
  );
  return [rows(scope, statistics), ...told].filter((part) => part !== null);
}
