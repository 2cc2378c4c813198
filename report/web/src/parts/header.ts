import { el } from '../dom/el';
import type { PageData } from '../page_data';
import { hashOf } from '../state/route';
import { verdictChip } from './chip';
import { tools } from './tools';

/** The bar that stays: what it is, the verdict, the checks to choose from. */
export function header(data: PageData, check: number): HTMLElement {
  const view = data.checks[check];
  const several = data.checks.length > 1;
  const links = data.checks.map((other, index) =>
    el(
      'a',
      { href: hashOf({ check: index, pair: null }), 'aria-current': index === check ? 'true' : null },
      `${index + 1} `,
      el('bdi', {}, other.title),
    ),
  );
  return el(
    'header',
    { class: 'bar' },
    el('strong', {}, 'PolarLinePrecision'),
    several
      ? el('nav', { 'aria-label': 'Checks', class: 'checks' }, ...links)
      : el('bdi', { class: 'name' }, view?.title),
    view && verdictChip(view.document),
    tools(),
  );
}
