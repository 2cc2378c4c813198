import { el } from '../../dom/el';
import { tableElement } from '../../dom/table';
import { chip, section } from '../../parts/chip';
import { cell, told } from '../dom';
import type { Fleet } from '../fleet_data';
import { streamName } from '../view/view';
import type { Scope } from './scope';

const most = 50;

/** A page by its way from this one; no other address is linked to. */
export function safePage(page: string | null): string | null {
  return page !== null && /^(?:[\w.~%-]+\/)*[\w.~%-]+\.html$/.test(page) ? page : null;
}

function moment(iso: string): string {
  return iso.replace('T', ' ').replace(/:\d\d(\.\d+)?Z$/, ' UTC');
}

function groupName(fleet: Fleet, group: number): string {
  const [station = 0, model = 0] = fleet.groups[group] ?? [];
  return streamName(fleet, station, model);
}

/** The worst sets of what is seen. */
export function worst(scope: Scope): HTMLElement | null {
  const { fleet, seen } = scope.view;
  const sets = fleet.worst.flatMap((set, index) => (seen[set.group] ? [{ set, index }] : [])).slice(0, most);
  if (sets.length === 0) return null;
  const table = tableElement({
    caption: 'Sets, the worst first',
    columns: [
      { title: 'Set' },
      { title: 'Serial' },
      { title: 'Station and model' },
      { title: 'Time' },
      { title: 'Verdict' },
      { title: 'Limit' },
      { title: 'Measured', numbers: true },
      { title: 'Times the limit', numbers: true },
    ],
    rows: sets.map(({ set, index }) => {
      const page = safePage(set.page);
      const name = el('bdi', {}, set.set || set.document);
      const over = set.verdict === 'fail';
      return [
        cell(page ? el('a', { href: page }, name) : name, set.set || set.document),
        cell(el('bdi', {}, set.serial ?? '–'), set.serial),
        cell(el('bdi', {}, groupName(fleet, set.group)), groupName(fleet, set.group)),
        cell(moment(set.time), set.time),
        cell(chip(over ? 'fail' : 'pass', over ? 'fail' : 'pass'), set.verdict),
        cell(el('bdi', {}, set.limit || '–'), set.limit),
        cell(told('worst.measured', String(index), set.measured), set.measured),
        cell(told('worst.times', String(index), set.times), set.times),
      ];
    }),
    sortable: true,
    headed: true,
  });
  const linked = sets.some(({ set }) => safePage(set.page) !== null);
  const hint = 'polarline report … --pages FOLDER makes a page of each of them, linked from here.';
  return section(
    'worst',
    'Worst sets',
    el('div', { class: 'card' }, table, !linked && el('p', { class: 'faint' }, hint)),
  );
}
