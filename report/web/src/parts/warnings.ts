import { el } from '../dom/el';
import { icon } from '../dom/icon';
import { section } from './chip';
import { pairLink, positionOf, type Scope } from './scope';

/** A run that ended early has warnings of pairs that it does not list. */
function pairWord(scope: Scope, pair: number): HTMLElement {
  const words = `pair ${pair}`;
  if (positionOf(scope.check, pair) < 0) return el('span', { class: 'faint' }, ` ${words}`);
  return el('a', { href: pairLink(scope, pair) }, words);
}

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
        typeof pair === 'number' && pairWord(scope, pair),
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
