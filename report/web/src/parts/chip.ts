import { icon, type IconName } from '../dom/icon';
import { el } from '../dom/el';
import type { CheckDocument } from '../page_data';

const verdicts = { pass: 'Pass', fail: 'Fail', error: 'Error' } as const;

/** The verdict in a word with its shape. Where no limit was given none is exceeded, which says nothing of the cameras. */
export function verdictOf({ verdict, limits }: CheckDocument): { words: string; shape: IconName } {
  if (verdict === 'pass' && limits.length === 0) return { words: 'Pass, no limits', shape: 'none' };
  return { words: verdicts[verdict] ?? verdict, shape: verdict };
}

export function verdictChip(document: CheckDocument): HTMLElement {
  const { words, shape } = verdictOf(document);
  return chip(shape, words.toUpperCase());
}

/** A state in a word with its shape. */
export function chip(shape: IconName, words: string): HTMLElement {
  return el('span', { class: `chip ${shape}` }, icon(shape), words);
}

export function section(id: string, title: string, ...children: (Node | string | null | false)[]): HTMLElement {
  return el('section', { id, 'aria-labelledby': `${id}-title` }, el('h2', { id: `${id}-title` }, title), ...children);
}

/** Names and what belongs to them, side by side. */
export function terms(entries: readonly (readonly [string, Node | string])[]): HTMLElement {
  return el('dl', { class: 'terms' }, ...entries.flatMap(([name, value]) => [el('dt', {}, name), el('dd', {}, value)]));
}
