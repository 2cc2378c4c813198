import { el } from '../dom/el';
import type { PairDetails, Picture } from '../page_data';
import { terms } from './chip';
import type { PairScope } from './scope';

export function picture(source: Picture, words: string): HTMLElement {
  return el('img', { src: source.source, width: source.width, height: source.height, alt: words, loading: 'lazy' });
}

type Shown = Pick<PairDetails, 'pictures' | 'failed_step'>;

/** What the step that failed saw, or what `seen` says, and both pictures. */
export function shots(
  { pictures, failed_step: step }: Shown,
  names: { left: string; right: string },
  seen = 'What the step that failed saw: the',
): HTMLElement[] {
  const both = (['left', 'right'] as const).flatMap((side): HTMLElement[] => {
    const shown = pictures[side];
    if (!shown) return [];
    const words = `The ${side} picture${names[side] && `, ${names[side]}`}`;
    return [el('figure', { class: 'card shot' }, el('h3', {}, `The ${side} picture`), picture(shown, words))];
  });
  if (!step) return both;
  const found = el(
    'figure',
    { class: 'card tall shot' },
    el('h3', {}, `${seen} ${step.seen}`),
    picture(step, step.text || 'Picture of the step that failed'),
    el('figcaption', { class: 'sentence' }, step.text),
  );
  return [found, ...both];
}

/** Why the library gave the pair up, and what the step that failed saw. */
export function givenUp(scope: PairScope): HTMLElement {
  const { pair, details } = scope;
  const { reason } = pair;
  const known = scope.check.given_up[scope.check.document.pairs.indexOf(pair)];
  const facts: [string, string][] = [
    ['Step', reason?.step ?? ''],
    ['Side', reason?.side ?? ''],
    ['Status', [reason?.code ?? '', known ? `(${known.name})` : ''].filter((part) => part !== '').join(' ')],
    ['Dots found', pair.found ? `${pair.found.left} left, ${pair.found.right} right` : ''],
  ];
  const step = details?.failed_step;
  return el(
    'div',
    { class: 'grid' },
    el(
      'div',
      { class: `card ${step ? '' : 'full'}` },
      el('h3', {}, 'Given up'),
      el('p', { class: 'headline' }, reason?.text ?? 'The library said no reason.'),
      known && el('p', {}, known.meaning),
      known && known.advice !== '' && el('p', { class: 'advice' }, known.advice),
      terms(facts.filter(([, value]) => value !== '')),
    ),
    ...(details ? shots(details, pair) : []),
  );
}
