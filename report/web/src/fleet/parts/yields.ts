import { el } from '../../dom/el';
import { plotFigure } from '../../dom/plot_figure';
import { tableElement, type Cell } from '../../dom/table';
import { chip, section } from '../../parts/chip';
import { SelectionStore } from '../../state/selection';
import { cell, countText, percentText, rangeText, toldCount, toldShare } from '../dom';
import { yieldCoursePlot } from '../plots/yield_course';
import { counted } from '../view/counts';
import type { Stream } from '../view/view';
import { yieldCourse, type PeriodYield } from '../view/yields';
import { keyOf, lastingDrifts } from './findings';
import type { Scope } from './scope';

const help =
  'Passed sets of those that were judged, by the day of the set (UTC), with 95 % intervals (Wilson): few sets leave a wide one. Two neighbours whose bars overlap widely do not differ. Sets that ended with an error, or were checked without limits, are not judged and not counted.';

function courseSentence(scope: Scope, periods: readonly PeriodYield[]): string {
  const there = periods.filter((period) => period.yield !== null);
  const shares = there.map((period) => period.yield!.share);
  const last = there.at(-1);
  if (!last?.yield) return 'No set was judged: 0 sets.';
  const lowest = there[shares.indexOf(Math.min(...shares))]!;
  const { calendar } = scope.view;
  const words = `${there.length} ${there.length === 1 ? calendar.period : calendar.words(2).replace('2 ', '')} with judged sets`;
  return `${words}. Last: ${percentText(last.yield.share)} (${rangeText(last.yield)}) of ${countText(last.yield.of)}; lowest ${percentText(Math.min(...shares))}, ${calendar.long(lowest.day)}.`;
}

function state(scope: Scope, stream: Stream): Cell {
  const drifting = lastingDrifts(scope.view, stream).length > 0;
  const words = [stream.yieldFell ? 'yield fell' : '', drifting ? 'drifts' : ''].filter((word) => word !== '');
  if (words.length === 0) return { content: chip('pass', 'steady'), value: 'steady' };
  return { content: chip('fail', words.join(', ')), value: words.join(', ') };
}

function line(scope: Scope, stream: Stream): Cell[] {
  const all = counted(scope.view.fleet.cells, stream.rows);
  const of = keyOf(stream);
  const { nowYield, beforeYield, difference } = stream.late;
  return [
    cell(
      el('a', { href: scope.link({ course: [stream.station, stream.model] }) }, el('bdi', {}, stream.name)),
      stream.name,
    ),
    cell(toldCount('sets', of, all.sets), all.sets),
    cell(toldShare('late.yield', of, nowYield), nowYield?.share ?? null),
    cell(toldShare('before.yield', of, beforeYield), beforeYield?.share ?? null),
    cell(
      difference ? `${percentText(difference.value).replace('\u00a0%', '')} points` : '–',
      difference?.value ?? null,
    ),
    cell(toldCount('errors', of, all.errors), all.errors),
    state(scope, stream),
  ];
}

function streamTable(scope: Scope): HTMLElement {
  const { calendar, streams } = scope.view;
  const sorted = [...streams].sort((a, b) => b.weight - a.weight);
  return tableElement({
    caption: 'Stations and models',
    columns: [
      { title: 'Station and model' },
      { title: 'Sets', numbers: true },
      { title: 'Yield', below: `last ${calendar.words(calendar.lateCount)}`, numbers: true },
      { title: 'Yield', below: `${calendar.words(calendar.beforeCount)} before`, numbers: true },
      { title: 'Change', numbers: true },
      { title: 'Errors', numbers: true },
      { title: 'State' },
    ],
    rows: sorted.map((stream) => line(scope, stream)),
    sortable: true,
    headed: true,
  });
}

export function yields(scope: Scope): HTMLElement {
  const { fleet, rows, calendar } = scope.view;
  const periods = yieldCourse(fleet, rows);
  const figure = plotFigure(
    {
      title: 'Yield over time',
      sentence: courseSentence(scope, periods),
      help,
      plot: yieldCoursePlot,
      view: { periods, calendar },
      selection: new SelectionStore(),
      size: 'full',
    },
    scope.end,
  );
  return section('yield', 'Yield', figure.element, el('div', { class: 'card' }, streamTable(scope)));
}
