import { el } from '../../dom/el';
import { icon, type IconName } from '../../dom/icon';
import { terms } from '../../parts/chip';
import { countText, percentText, told, toldCount, toldRange, toldShare } from '../dom';
import { counted } from '../view/counts';
import { against, type Against } from '../view/yields';
import { wilson } from '../statistics/proportion';
import { changeWords, findings } from './findings';
import type { Scope } from './scope';

function shapeOf({ nowYield, difference }: Against): IconName {
  if (!nowYield) return 'none';
  return difference && difference.high < 0 ? 'fail' : 'pass';
}

function sentence(scope: Scope, day: string, latest: Against): HTMLElement {
  const { calendar } = scope.view;
  const { nowYield, beforeYield, difference, now } = latest;
  if (!nowYield) return el('p', { class: 'headline' }, `No set of ${day} was judged (${countText(now.sets)} sets).`);
  const before = `the ${calendar.words(calendar.beforeCount)} before`;
  return el(
    'p',
    { class: 'headline' },
    `On ${day} `.replace('On the week', 'In the week'),
    toldCount('latest.passed', '', nowYield.count),
    ' of ',
    toldCount('latest.judged', '', nowYield.of),
    ' judged sets passed (95 % interval ',
    toldRange('latest.yield', '', nowYield),
    '). ',
    ...(beforeYield && difference
      ? [
          `In ${before}: `,
          told('previous.yield', '', beforeYield.share, percentText(beforeYield.share)),
          `; ${changeWords(difference)}.`,
        ]
      : [`In ${before} no set was judged.`]),
  );
}

function facts(scope: Scope): HTMLElement {
  const { fleet, rows, calendar } = scope.view;
  const all = counted(fleet.cells, rows);
  const days = rows.map((row) => fleet.cells.day[row]!);
  const range = days.length === 0 ? '–' : `${calendar.long(Math.min(...days))} to ${calendar.long(Math.max(...days))}`;
  return terms([
    ['Sets', toldCount('sets', '', all.sets)],
    ['Passed', toldCount('passed', '', all.passed)],
    ['Failed', toldCount('failed', '', all.failed)],
    ['Not judged', el('span', {}, toldCount('unjudged', '', all.unjudged), el('small', {}, ' no limits'))],
    ['Errors', el('span', {}, toldCount('errors', '', all.errors), el('small', {}, ' nothing to judge'))],
    ['Yield', toldShare('yield', '', wilson(all.passed, all.judged))],
    ['From', range],
    ['Stations and models', String(scope.view.streams.length)],
  ]);
}

export function verdict(scope: Scope): HTMLElement {
  const { view } = scope;
  if (view.last === null) {
    const words = view.fleet.sets === 0 ? 'The store is empty' : 'No set is like that';
    return el(
      'section',
      { id: 'verdict', class: 'verdict' },
      el('div', { class: 'card' }, el('h1', { class: 'none' }, icon('none'), words)),
    );
  }
  const latest = against(view.fleet, view.rows, view.calendar, view.last, 1);
  const day = view.calendar.long(view.last);
  const shape = shapeOf(latest);
  const share = latest.nowYield;
  const title = share ? told('latest.yield', '', share.share, `Yield ${percentText(share.share)}`) : 'Nothing judged';
  return el(
    'section',
    { id: 'verdict', class: 'verdict', 'aria-labelledby': 'verdict-title' },
    el(
      'div',
      { class: 'card' },
      el(
        'h1',
        { id: 'verdict-title', class: shape },
        icon(shape),
        el('span', {}, title, el('small', { class: 'beside' }, day)),
      ),
      sentence(scope, day, latest),
      findings(scope),
    ),
    el('div', { class: 'aside' }, el('div', { class: 'card' }, facts(scope))),
  );
}
