import { tableElement } from '../../dom/table';
import { cell, told } from '../dom';
import type { FleetView, Stream } from '../view/view';

/** What the charts show, in numbers. */
export function pointsTable(view: FleetView, { courses }: Stream, measure: number): HTMLElement {
  const { values, minutes, chart, sums, breaks } = courses[measure]!;
  const rules = (point: number) => [
    ...new Set(breaks.filter(({ from, to }) => point >= from && point <= to).map(({ rule }) => rule)),
  ];
  return tableElement({
    caption: 'Points of the charts',
    columns: [
      { title: 'Point', numbers: true },
      { title: 'Last set at' },
      { title: 'Value', numbers: true },
      { title: 'Moving range', numbers: true },
      { title: 'Sum up', below: 'sigma', numbers: true },
      { title: 'Sum down', below: 'sigma', numbers: true },
      { title: 'Rules broken' },
    ],
    rows: values.map((value, point) => {
      const of = String(point);
      const range = point === 0 ? null : (chart?.ranges[point - 1] ?? null);
      const [up, down] = [sums?.up[point] ?? null, sums?.down[point] ?? null];
      return [
        cell(String(point + 1), point + 1),
        cell(view.calendar.moment(minutes[point]!), minutes[point]!),
        cell(told('point', of, value), value),
        cell(told('range', of, range), range),
        cell(told('sum.up', of, up), up),
        cell(told('sum.down', of, down), down),
        rules(point).join(', '),
      ];
    }),
    sortable: true,
    headed: true,
  });
}
