import { el } from '../dom/el';
import { typographic } from '../text/number';
import { icon } from '../dom/icon';
import type { CheckDocument } from '../page_data';
import { causes } from './causes';
import { terms, verdictOf } from './chip';
import { limits } from './limits';
import type { Scope } from './scope';

/** "2026-11-22T11:52:42Z" for who reads it. */
export function moment(iso: string): string {
  return iso.replace('T', ' ').replace(/(:\d\d)(\.\d+)?Z$/, '$1 UTC');
}

/** The verdict's word stands above it already. A sentence of words begins large, the name of a file as it is. */
export function sentence(headline: string): string {
  const rest = headline.replace(/^(PASS|FAIL|ERROR):\s*/, '');
  return /^[a-z]+[ ,]/.test(rest) ? rest.charAt(0).toUpperCase() + rest.slice(1) : rest;
}

/** How the run ended, where it did not end well; what the headline has said is not said again. */
function status({ status }: CheckDocument, headline: string): HTMLElement | null {
  if (status.code === 0) return null;
  const told = headline.includes(status.text) ? '' : status.text;
  if (told === '' && status.advice === '' && !status.retry) return null;
  return el(
    'p',
    { class: 'note error' },
    el('strong', {}, `${status.name}${status.code === null ? '' : ` (${status.code})`}: `),
    told && `${told} `,
    status.advice,
    status.retry ? ' It may succeed when it is tried again.' : '',
  );
}

/** Of a run that ended with its first pair, "0 of 0" would look as if the list were empty. */
function pairsFinished({ check }: Scope): string {
  if (check.document.pairs.length === 0) return 'none finished';
  return check.finished_text.replace(/ pairs? /, ' ').replace(/\.$/, '');
}

function facts(scope: Scope): HTMLElement {
  const { document } = scope.check;
  const { board } = document;
  return terms([
    ['Set', document.set.name || scope.check.title],
    ['Measured', moment(document.started)],
    ['Pairs', pairsFinished(scope)],
    ['Board', board.points > 0 ? `${board.cols} × ${board.rows} dots, step ${board.step}` : 'not read'],
    ['Took', `${document.seconds.toFixed(document.seconds < 10 ? 1 : 0)} s`],
  ]);
}

export function verdict(scope: Scope): HTMLElement {
  const { check } = scope;
  const { words, shape } = verdictOf(check.document);
  return el(
    'section',
    { id: 'verdict', class: 'verdict', 'aria-labelledby': 'verdict-title' },
    el(
      'div',
      { class: 'card' },
      el('h1', { id: 'verdict-title', class: shape }, icon(shape), words),
      el('p', { class: 'headline' }, sentence(check.headline)),
      status(check.document, check.headline),
      ...[check.worst_pair_text, check.refined_text, check.fisheye_text]
        .filter((text) => text !== '')
        .map((text) => el('p', {}, typographic(text))),
      causes(scope),
    ),
    el('div', { class: 'aside' }, limits(scope), el('div', { class: 'card' }, facts(scope))),
  );
}
