import { el } from '../dom/el';
import { tableElement, type Cell } from '../dom/table';
import type { Diagnosis } from '../page_data';
import { percent, shown, signed, typographic, withError } from '../text/number';
import { shortUnit } from '../text/figures';
import { hasRefined, type Scope } from './scope';

type Cause = Diagnosis['causes'][number];

function size(cause: Cause): Cell {
  const { name, value, sd } = cause;
  const text = value === null ? '–' : sd === null ? signed(value) : withError(value, sd, true);
  const exact = { 'data-cause': name, 'data-value': String(value), 'data-sd': String(sd) };
  const copied = [value, sd, cause.unit];
  return {
    content: el('span', exact, `${text}${shortUnit(cause.unit) === '°' ? '\u00a0' : ' '}${shortUnit(cause.unit)}`),
    value,
    copied,
  };
}

function share(cause: Cause): Cell {
  if (cause.share === null) return '–';
  const part = Math.min(1, Math.max(0, cause.share));
  const bar = el(
    'span',
    { class: 'meter', 'aria-hidden': 'true' },
    el('span', { style: `width:${(part * 100).toFixed(1)}%` }),
  );
  const exact = { class: 'share', 'data-share': cause.name, 'data-value': String(cause.share) };
  return { content: el('span', exact, bar, percent(cause.share)), value: cause.share };
}

/** With the others of its group, from which the pictures do not tell it apart. */
function name(scope: Scope, cause: Cause, causes: Cause[]): Cell {
  const title = scope.explanations.title(cause.name);
  const grouped = cause.group !== null && cause.group !== undefined;
  const others = causes.filter((other) => grouped && other !== cause && other.group === cause.group);
  if (others.length === 0) return title;
  const told = `not told apart from ${others.map((other) => scope.explanations.title(other.name)).join(', ')}`;
  return { content: el('span', {}, title, el('small', {}, told)), value: `${title}, ${told}` };
}

function list(scope: Scope, causes: Cause[]): HTMLElement {
  return tableElement({
    caption: 'Causes of the row differences',
    columns: [
      { title: 'Cause', hint: 'Of the right camera against the left' },
      { title: 'More than the calibration says', numbers: true, copied: ['', '±', 'unit'] },
      {
        title: 'Explains',
        below: 'of the squared row difference',
        hint: 'Below 0: it works against the others, whose parts then sum up to more than 100 %',
      },
    ],
    rows: causes.map((cause) => [name(scope, cause, causes), size(cause), share(cause)]),
    headed: true,
  });
}

function correction(diagnosis: Diagnosis): HTMLElement | null {
  const written = diagnosis.correction;
  if (!written) return null;
  const rows = (value: number | null): string => (value === null ? '–' : `${shown(value)} px`);
  return el(
    'p',
    {},
    `The calibration with these causes taken out: ${written.path}. Mean row difference predicted ${rows(written.rows_predicted)}, seen with it ${rows(written.rows_seen)}.`,
  );
}

/** These rows are not those of dy_means, which stands beside them. */
function ofWhichRows(scope: Scope): string {
  const isRectified = scope.check.document.cameras.model === 'rectified';
  const centres = hasRefined(scope.check) ? 'refined' : 'detected';
  const more = hasRefined(scope.check)
    ? ' What remains of the centres as the library detected them is more: their own error is in it.'
    : '';
  const measured = isRectified ? '' : ' in the raw pictures; dy_means is measured in the rectified ones';
  return `The rows of this diagnosis are those of the ${centres} centres${measured}.${more}`;
}

/** Why the rows differ: the sentence, then each cause with its error. */
export function causes(scope: Scope): HTMLElement | null {
  const { diagnosis } = scope.check.document;
  if (!diagnosis) return null;
  return el(
    'div',
    { class: 'causes' },
    el('p', { class: 'diagnosis' }, typographic(diagnosis.text)),
    el('p', { class: 'faint' }, ofWhichRows(scope)),
    diagnosis.pattern_left && el('p', { class: 'faint' }, 'A pattern is left that these causes do not explain.'),
    diagnosis.causes.length > 0 && list(scope, diagnosis.causes),
    diagnosis.causes.some(({ share }) => share !== null && share < 0) &&
      el(
        'p',
        { class: 'faint' },
        'A cause below 0 % works against the others, whose parts then come to more than 100 %.',
      ),
    correction(diagnosis),
  );
}
