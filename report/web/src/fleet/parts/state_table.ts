import { el } from '../../dom/el';
import { tableElement, type Cell } from '../../dom/table';
import { icon } from '../../dom/icon';
import { cell } from '../dom';
import { beginMinute, lastingDrift, worsens } from '../view/courses';
import { stateWords } from '../view/few_points';
import { measureTitle, type Stream } from '../view/view';
import { keyOf } from './findings';
import type { Scope } from './scope';

/** A drift that lasts is what matters; a broken rule among hundreds of charts may be chance. */
function state(scope: Scope, stream: Stream, measure: number): Cell {
  const course = stream.courses[measure]!;
  const drift = lastingDrift(course);
  const href = scope.link({ course: [stream.station, stream.model], measure });
  const link = (words: string) =>
    el(
      'a',
      { href, 'data-state': `${keyOf(stream)} ${measure}` },
      drift && worsens(scope.view.fleet.measures[measure]!, drift) && icon('fail'),
      words,
    );
  if (course.values.length < 2) return cell('–', null);
  if (drift) {
    const since = scope.view.calendar.dayOf(beginMinute(course, drift));
    return cell(link(` ${drift.side} since ${since}`), `${drift.side} since ${since}`);
  }
  const words = stateWords(course);
  return cell(link(words), words);
}

/** Every station and model with every measure: what drifts and since when, else which rules are broken. */
export function stateTable(scope: Scope): HTMLElement {
  const { view } = scope;
  const sorted = [...view.streams].sort((a, b) => b.weight - a.weight);
  return tableElement({
    caption: 'What drifts, and which rules are broken',
    columns: [
      { title: 'Station and model' },
      ...view.fleet.measures.map((measure) => ({ title: measureTitle(view, measure), below: measure.name })),
    ],
    rows: sorted.map((stream) => [
      cell(el('bdi', {}, stream.name), stream.name),
      ...view.fleet.measures.map((_, measure) => state(scope, stream, measure)),
    ]),
    sortable: true,
    headed: true,
  });
}
