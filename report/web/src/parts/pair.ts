import { el } from '../dom/el';
import { choice } from '../plots/controls';
import type { CheckPair } from '../page_data';
import type { SelectionStore } from '../state/selection';
import { followDots } from '../dom/tooltip';
import type { Source } from '../text/figures';
import { chip, section } from './chip';
import { chosenDots, worstDots } from './dots';
import { givenUp } from './given_up';
import { allFigures, tiles } from './pair_figures';
import { pairPlots, seenPlot } from './pair_plots';
import { ofThisPair } from './pair_diagnosis';
import { quality } from './pair_quality';
import { hasRefined, pairLink, type PairScope } from './scope';
import { brokenBy, brokenWords } from '../text/limits';

function step(scope: PairScope, by: number, words: string): HTMLElement {
  const { pairs } = scope.check.document;
  const other = pairs[pairs.indexOf(scope.pair) + by];
  if (!other) return el('span', { class: 'button off', 'aria-hidden': 'true' }, words);
  return el('a', { class: 'button', 'data-focus': words, href: pairLink(scope, other.index) }, words);
}

function stateWords({ check }: PairScope, pair: CheckPair): string {
  if (pair.state !== 'finished') return ', given up';
  return brokenBy(check.document.limits, pair).length > 0 ? ', breaks a limit' : '';
}

function chooser(scope: PairScope): HTMLElement {
  const select = el(
    'select',
    { 'aria-label': 'Pair', 'data-focus': 'pair' },
    ...scope.check.document.pairs.map((pair) =>
      el(
        'option',
        { value: pair.index, selected: pair === scope.pair },
        `Pair ${pair.index}${stateWords(scope, pair)}`,
      ),
    ),
  );
  select.addEventListener('change', () => scope.go(Number(select.value)));
  return select;
}

export const sources = [
  ['library', 'Library'],
  ['refined', 'Refined'],
] as const;

function navigation(scope: PairScope, chooseSource: (source: Source) => void): HTMLElement {
  return el(
    'div',
    { class: 'pair-navigation no-print' },
    hasRefined(scope.check) && choice('Centres', sources, scope.source, chooseSource),
    el('nav', { 'aria-label': 'Pairs' }, step(scope, -1, '← Previous'), chooser(scope), step(scope, 1, 'Next →')),
  );
}

function state(scope: PairScope): HTMLElement {
  const { pair, check } = scope;
  const broken = brokenBy(check.document.limits, pair);
  const position = check.document.pairs.indexOf(pair);
  return el(
    'p',
    { class: 'pair-state' },
    pair.state !== 'finished'
      ? chip('given_up', 'given up')
      : broken.length > 0
        ? chip('fail', brokenWords(broken))
        : chip('pass', 'finished'),
    position === check.first_pair && check.worst_pair_text !== '' && chip('none', 'worst pair'),
    el('span', { class: 'faint' }, el('bdi', {}, pair.left), ' and ', el('bdi', {}, pair.right)),
    scope.source === 'refined' && el('span', {}, 'seen from refined centres'),
    pair.carried.length > 0 &&
      el(
        'span',
        { class: 'note' },
        `Not of this pair, but carried from the one before, and so left out: ${pair.carried.join(', ')}.`,
      ),
  );
}

function finished(scope: PairScope, selection: SelectionStore): Node[] {
  const { details, source } = scope;
  const refined = source === 'refined' && details?.refined_points;
  const points = refined ? details.refined_points : details?.points;
  const statistics = refined ? details?.refined_statistics : details?.statistics;
  const shownTiles = [tiles(scope)];
  if (!points || !statistics) {
    const why = scope.check.left_out || 'The dots of this pair are not in this page.';
    return [
      ...shownTiles,
      el('p', { class: 'note' }, why),
      ...[quality(scope), allFigures(scope)].filter((x) => x !== null),
    ];
  }
  followDots(selection, points, 'board units', scope.end);
  return [
    ...shownTiles,
    ...ofThisPair(scope, statistics),
    el(
      'div',
      { class: 'grid' },
      ...pairPlots(scope, points, statistics, selection),
      chosenDots(scope, points, selection),
      statistics.worst.length > 0 ? worstDots(scope, points, statistics, selection) : '',
      ...seenPlot(scope, points, statistics, selection),
      quality(scope) ?? '',
    ),
    allFigures(scope),
  ];
}

/** Everything of the pair that is shown. */
export function pairSection(
  scope: PairScope,
  selection: SelectionStore,
  chooseSource: (source: Source) => void,
): HTMLElement {
  const made = section(
    'pair',
    `Pair ${scope.pair.index}`,
    navigation(scope, chooseSource),
    state(scope),
    ...(scope.pair.state === 'finished' ? finished(scope, selection) : [givenUp(scope)]),
  );
  made.dataset['set'] = scope.check.title;
  made.dataset['pair'] = String(scope.pair.index);
  return made;
}
