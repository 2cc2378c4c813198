import { el } from '../dom/el';
import { tableElement, type Cell } from '../dom/table';
import { isUpper, ruleOf, type Limit } from '../text/limits';
import { shown } from '../text/number';
import { chip } from './chip';
import { gauge } from './gauge';
import { pairLink, type Scope } from './scope';

const statistics: Record<string, string> = {
  mean: 'mean of the pairs',
  sd: 'deviation of the pairs',
  min: 'smallest of the pairs',
  max: 'largest of the pairs',
};

function name(scope: Scope, limit: Limit): Cell {
  const rule = ruleOf(limit.text);
  // Beside a limit on each pair stands often one on the mean, which must not be called the same.
  const statistic = rule?.statistic ? `, ${statistics[rule.statistic] ?? rule.statistic}` : '';
  const title = rule ? scope.explanations.title(rule.figure) + statistic : '';
  // A bound within the figure's interval is nothing to rely on, which the reason says.
  const doubt = (limit.value === null || limit.why.includes('too close to call')) && limit.why;
  return {
    content: el('span', { title: limit.why }, title, el('small', {}, limit.text), doubt && el('small', {}, doubt)),
    value: limit.text,
  };
}

function worst(limit: Limit, index: number): Cell {
  const text = limit.value === null ? '–' : shown(limit.value);
  const exact = { 'data-limit': index, 'data-value': String(limit.value) };
  return { content: el('span', { class: limit.holds ? '' : 'over-text', ...exact }, text), value: limit.value };
}

function where(scope: Scope, limit: Limit): Cell {
  if (limit.pair === null) return { content: document.createTextNode('the run'), value: null };
  return { content: el('a', { href: pairLink(scope, limit.pair) }, `pair ${limit.pair}`), value: limit.pair };
}

function held(limit: Limit): Cell {
  if (limit.holds) return { content: chip('pass', 'holds'), value: 'holds' };
  const rule = ruleOf(limit.text);
  const words = limit.value === null ? 'not measured' : rule && !isUpper(rule) ? 'not reached' : 'exceeded';
  return { content: chip('fail', words), value: words };
}

/** Every limit with its worst value, how near it comes, and where. */
export function limits(scope: Scope): HTMLElement {
  const { limits: given } = scope.check.document;
  const title = el('h2', { id: 'limits-title' }, 'Limits');
  if (given.length === 0) {
    return el('div', { class: 'card limits' }, title, el('p', {}, 'No limit was given, so nothing was judged.'));
  }
  const table = tableElement({
    caption: 'Limits',
    columns: [
      { title: 'Limit' },
      { title: 'Verdict' },
      { title: 'Worst', numbers: true },
      { title: 'Against the limit' },
      { title: 'Where' },
    ],
    rows: given.map((limit, index) => [
      name(scope, limit),
      held(limit),
      worst(limit, index),
      { content: gauge(limit), value: null },
      where(scope, limit),
    ]),
    headed: true,
  });
  return el('div', { class: 'card limits' }, title, table);
}
