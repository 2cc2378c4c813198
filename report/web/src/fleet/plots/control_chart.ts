import { framed, letterWidth, type FramedPlot } from '../../plots/base';
import { rangeOf } from '../../plots/numbers';
import type { PlotContext } from '../../plots/plot';
import { halo, svg } from '../../plots/svg';

/** Points in their order with level lines. */
export interface ControlChartView {
  label: string;
  /** One or two courses; the second is drawn thinner. */
  courses: readonly (readonly (number | null)[])[];
  lines: readonly { at: number; text: string; kind: 'centre' | 'limit' | 'faint' }[];
  /** Points that are marked, with a word above them. */
  crosses: ReadonlyMap<number, string>;
  /** Stretches that are shaded, from point to point. */
  shaded: readonly { from: number; to: number }[];
  /** What a point is called at the axis and where it is pointed at. */
  day(point: number): string;
  told(point: number): string;
}

export function controlChart(view: ControlChartView, context: PlotContext): SVGSVGElement {
  const { courses, lines } = view;
  const count = courses[0]?.length ?? 0;
  const values = courses.flat().filter((value): value is number => value !== null);
  const [from, to] = rangeOf([...values, ...lines.map(({ at }) => at)], 0.1);
  const plot = framed({
    width: context.width,
    height: 230,
    x: {
      from: -0.7,
      to: count - 0.3,
      label: 'Points in the order of time',
      ticks: pointTicks(count, context.width),
      write: (point) => view.day(point),
    },
    y: { from, to, label: view.label },
    grid: 'none',
    marks: [],
  });
  drawShaded(view, plot);
  for (const line of lines) drawLine(line, plot);
  courses.forEach((course, number) => drawCourse(course, number, view, plot));
  drawCrosses(view, plot);
  return plot.svg;
}

function pointTicks(count: number, width: number): number[] {
  const room = Math.max(1, Math.floor((width - 60) / 62));
  const step = Math.max(1, Math.ceil(count / room));
  const ticks: number[] = [];
  for (let at = 0; at < count; at += step) ticks.push(at);
  return ticks;
}

function drawShaded({ shaded }: ControlChartView, { svg: drawing, box, x }: FramedPlot): void {
  for (const { from, to } of shaded) {
    const left = x(from - 0.5);
    const place = { x: left, y: box.y, width: Math.max(2, x(to + 0.5) - left), height: box.height };
    drawing.append(svg('rect', { ...place, fill: 'var(--band)', 'fill-opacity': 0.55 }));
  }
}

function drawLine(line: ControlChartView['lines'][number], { svg: drawing, box, y }: FramedPlot): void {
  const looks = {
    centre: { stroke: 'var(--faint)', 'stroke-width': 1.2 },
    limit: { stroke: 'var(--over)', 'stroke-width': 1.5, 'stroke-dasharray': '5 4' },
    faint: { stroke: 'var(--grid)', 'stroke-width': 1 },
  };
  const at = y(line.at);
  drawing.append(svg('path', { d: `M${box.x} ${at.toFixed(1)}h${box.width}`, ...looks[line.kind] }));
  if (line.text === '') return;
  const colour = line.kind === 'limit' ? 'var(--over)' : 'var(--faint)';
  drawing.append(
    svg('text', { x: box.x + box.width - 3, y: at - 4, 'text-anchor': 'end', fill: colour, ...halo }, line.text),
  );
}

function drawCourse(
  course: readonly (number | null)[],
  number: number,
  view: ControlChartView,
  { svg: drawing, x, y }: FramedPlot,
): void {
  const places = course.flatMap((value, k) => (value === null ? [] : [`${x(k).toFixed(1)} ${y(value).toFixed(1)}`]));
  const look = { fill: 'none', stroke: 'var(--within)', 'stroke-width': number === 0 ? 1.2 : 1 };
  if (places.length > 1) drawing.append(svg('path', { d: `M${places.join('L')}`, ...look }));
  course.forEach((value, k) => {
    if (value === null || view.crosses.has(k)) return;
    const sign = svg('circle', { cx: x(k).toFixed(1), cy: y(value).toFixed(1), r: 2.4, fill: 'var(--within)' });
    sign.append(svg('title', {}, view.told(k)));
    drawing.append(sign);
  });
}

function drawCrosses(view: ControlChartView, { svg: drawing, box, x, y }: FramedPlot): void {
  for (const [point, word] of view.crosses) {
    const value = view.courses[0]?.[point];
    if (value === null || value === undefined) continue;
    const [at, up] = [x(point), y(value)];
    const cross = svg('path', { d: `M${at - 4} ${up - 4}l8 8m0 -8l-8 8`, stroke: 'var(--over)', 'stroke-width': 2.2 });
    cross.append(svg('title', {}, view.told(point)));
    drawing.append(cross);
    if (word === '') continue;
    // At the right edge it ends where the plot does.
    const place = { x: Math.min(at, box.x + box.width + 14 - (letterWidth * word.length) / 2), y: up - 8 };
    drawing.append(svg('text', { ...place, 'text-anchor': 'middle', fill: 'var(--over)', ...halo }, word));
  }
}
