import { el } from '../dom/el';
import { icon } from '../dom/icon';
import { section } from './chip';
import { pairLink, type Scope } from './scope';

/** What a user should look at although the work went on; many of a kind fold. */
export function warnings(scope: Scope): HTMLElement | null {
  const found = scope.check.document.warnings;
  if (found.length === 0) return null;
  const items = found.map(({ code, pair, text, advice }) =>
    el(
      'li',
      {},
      icon('error'),
      el(
        'div',
        {},
        el('strong', {}, scope.explanations.title(code)),
        typeof pair === 'number' && el('a', { href: pairLink(scope, pair) }, `pair ${pair}`),
        el('p', {}, text),
        advice && el('p', { class: 'faint' }, advice),
      ),
    ),
  );
  const shownFirst = 4;
  const rest = items.slice(shownFirst);
  return section(
    'warnings',
    found.length === 1 ? 'A warning' : `${found.length} warnings`,
    el('ul', { class: 'warnings' }, ...items.slice(0, shownFirst)),
    rest.length > 0 &&
      el('details', {}, el('summary', {}, `${rest.length} more`), el('ul', { class: 'warnings' }, ...rest)),
  );
}
