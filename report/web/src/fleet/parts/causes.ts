import { el } from '../../dom/el';
import { tableElement } from '../../dom/table';
import { chip, section } from '../../parts/chip';
import { cell, told, toldCount } from '../dom';
import { causeSize, causeWords, capital } from '../view/cause_words';
import type { Stream, StreamCause } from '../view/view';
import { keyOf } from './findings';
import type { Scope } from './scope';

interface Line {
  stream: Stream;
  cause: StreamCause;
}

function words({ view }: Scope, { cause }: Line): string {
  const { names, units } = view.fleet.causes;
  const said = causeWords(names[cause.cause]!, units[cause.cause]!, cause.mean, cause.error);
  return capital(said.replace(` ${causeSize(names[cause.cause]!, units[cause.cause]!, cause.mean, cause.error)}`, ''));
}

/** Causes that come back, those that last first. */
export function causes(scope: Scope): HTMLElement {
  const { view } = scope;
  const { names, units } = view.fleet.causes;
  const lines = view.streams
    .flatMap((stream) => stream.causes.map((cause): Line => ({ stream, cause })))
    .sort((a, b) => Number(b.cause.lasts) - Number(a.cause.lasts) || b.cause.from - a.cause.from);
  const explained =
    'A cause recurs where at least half of the sets of a station and model tell it, day after day, at least five in all, with a mean beyond three standard errors. It counts from where its value changed the last time.';
  if (lines.length === 0) {
    return section(
      'causes',
      'Causes that recur',
      el('div', { class: 'card' }, el('p', {}, 'None does. '), el('p', { class: 'faint' }, explained)),
    );
  }
  const table = tableElement({
    caption: 'Recurring causes',
    columns: [
      { title: 'Station and model' },
      { title: 'Cause' },
      { title: 'By', below: 'mean ± its error', numbers: true },
      { title: 'Sets that tell it', numbers: true },
      { title: 'Of', numbers: true },
      { title: 'Since' },
      { title: 'Until' },
    ],
    rows: lines.map((line) => {
      const { stream, cause } = line;
      const name = names[cause.cause]!;
      const of = `${keyOf(stream)} ${name} ${cause.from}`;
      return [
        cell(el('bdi', {}, stream.name), stream.name),
        cell(el('span', {}, words(scope, line), el('small', {}, name)), name),
        cell(
          told('cause.mean', of, cause.mean, causeSize(name, units[cause.cause]!, cause.mean, cause.error)),
          cause.mean,
        ),
        cell(toldCount('cause.sets', of, cause.told), cause.told),
        cell(toldCount('cause.diagnosed', of, cause.diagnosed), cause.diagnosed),
        cell(view.calendar.long(cause.from), cause.from),
        cause.lasts ? cell(chip('fail', 'now'), Number.MAX_SAFE_INTEGER) : cell(view.calendar.long(cause.to), cause.to),
      ];
    }),
    sortable: true,
    headed: true,
  });
  return section(
    'causes',
    'Causes that recur',
    el('div', { class: 'card' }, table, el('p', { class: 'faint' }, explained)),
  );
}
