import type { Course } from '../page_data';
import { boundColour, boundText, type Bound } from './bounds';
import { framed, type FramedPlot } from './base';
import { keyLegend, keyLegendHeight, type Key } from './legend';
import { placesOf } from './nearest';
import { decimalsOf, fixed, niceStep, present, quantile, rangeOf, unitText, withUnit, type Numbers } from './numbers';
import type { PlotContext } from './plot';
import { DotStage, stageKeys } from './stage';
import { batched, circlePath, halo, svg, window, type Box } from './svg';

/** How a value goes along the picture or across it: stripes with their scatter, the line through all, single dots. */
export interface CourseView {
  name: string;
  unit: string;
  /** "Column in the rectified picture". */
  along: string;
  ids: readonly number[];
  /** Place of each dot along the way, pixels, and its value. */
  at: Numbers;
  values: Numbers;
  course: Course;
  /** Marked on both sides of zero. */
  bounds: readonly Bound[];
}

export function courseAlong(view: CourseView, context: PlotContext): HTMLElement {
  const keys = keysOf(view);
  const below = keyLegendHeight(keys, context.width - 76);
  const height = Math.round(Math.min(300, Math.max(200, context.width * 0.5))) + below;
  const plot = framed({
    width: context.width,
    height,
    below,
    x: axisOf(view),
    y: { ...heightOf(view), label: withUnit(view.name, view.unit), plus: true },
    marks: [],
  });
  const places = placesOf(view.at, view.values, plot.x, plot.y);
  const indices = view.ids.map((_, i) => i);
  const shape = (i: number) => circlePath(places.x[i] ?? 0, places.y[i] ?? 0, 1.3);
  const drawn = indices.filter((i) => !Number.isNaN((places.x[i] ?? NaN) + (places.y[i] ?? NaN)));
  const dots = batched(drawn, shape, { fill: 'var(--dot)', 'fill-opacity': 0.5 });
  plot.svg.append(window(plot.box, dots, ...stripes(view.course, plot), ...guides(view, plot)));
  plot.svg.append(keyLegend(keys, plot.box.x, height - below, plot.box.width));
  const stage = new DotStage({ ids: view.ids, label: `${view.name} by ${view.along}. ${stageKeys}` }, context);
  stage.show({ svg: plot.svg, places, box: plot.box, base: dots });
  return stage.element;
}

function keysOf(view: CourseView): Key[] {
  return [
    { sign: svg('path', { d: 'M-8 0h16', stroke: 'var(--within)', 'stroke-width': 2.5 }), text: 'mean of a stripe' },
    { sign: svg('rect', { x: -8, y: -6, width: 16, height: 12, fill: 'var(--band)' }), text: '\u00b1 its scatter' },
    { sign: lineSign(), text: slopeText(view) },
  ];
}

/** As fine as can be seen in the drawing; the exact slope is told beside it. */
function slopeText(view: CourseView): string {
  const { from, to } = heightOf(view);
  const decimals = decimalsOf(niceStep((to - from) / 100)) + 1;
  return `${fixed(view.course.slope * 1000, decimals, true)} ${unitText(view.unit)} per 1000 px`;
}

function lineSign(): SVGElement {
  return svg('path', { d: 'M-8 0h16', stroke: 'var(--text)', 'stroke-width': 1.5, 'stroke-dasharray': '4 3' });
}

function axisOf(view: CourseView): { from: number; to: number; label: string } {
  const [from, to] = rangeOf(present(view.at), 0.03);
  return { from, to, label: `${view.along} (px)` };
}

/** Nearly all dots; a few far ones must not press the course flat. */
function heightOf({ values, course }: CourseView): { from: number; to: number } {
  const all = present(values);
  const ends = [quantile(all, 0.005), quantile(all, 0.995), ...course.mean, 0];
  const [from, to] = rangeOf(ends, 0.08);
  return { from, to };
}

function stripes(course: Course, plot: FramedPlot): SVGElement[] {
  if (course.at.length === 0) return [];
  const point = (i: number, shift: number) =>
    `${plot.x(course.at[i] ?? 0).toFixed(1)} ${plot.y((course.mean[i] ?? 0) + shift * (course.sd[i] ?? 0)).toFixed(1)}`;
  const order = course.at.map((_, i) => i);
  const edge = (shift: number) => order.map((i) => point(i, shift));
  const band = `M${[...edge(1), ...edge(-1).reverse()].join('L')}Z`;
  const look = { fill: 'none', stroke: 'var(--within)', 'stroke-width': 2.5 };
  return [
    svg('path', { d: band, fill: 'var(--band)', 'fill-opacity': 0.6 }),
    svg('path', { d: `M${edge(0).join('L')}`, ...look }),
  ];
}

/** Above the upper line or below the lower one, else inside of one that is seen; null where neither is, or no place is
 * free of the names before. */
function namePlace(upper: number, lower: number, box: Box, taken: readonly number[]): number | null {
  const seen = (line: number) => line >= box.y && line <= box.y + box.height;
  const free = (name: number) => taken.every((other) => Math.abs(other - name) >= 14);
  const places = [
    [upper, upper - 4],
    [lower, lower + 13],
    [upper, upper + 13],
    [lower, lower - 4],
  ] as const;
  return places.find(([line, name]) => seen(line) && seen(name - 12) && seen(name + 3) && free(name))?.[1] ?? null;
}

function guides({ course, bounds, unit }: CourseView, plot: FramedPlot): SVGElement[] {
  const { box } = plot;
  const ends = [course.at[0] ?? 0, course.at[course.at.length - 1] ?? 0];
  const line = ends.map((at) => `${plot.x(at)} ${plot.y(course.intercept + course.slope * at)}`).join('L');
  const level = (value: number) => `M${box.x} ${plot.y(value)}h${box.width}`;
  const dashed = { 'stroke-dasharray': '5 4', 'stroke-width': 1.5 };
  const parts: SVGElement[] = [
    svg('path', { d: level(0), stroke: 'var(--faint)' }),
    svg('path', { d: `M${line}`, stroke: 'var(--text)', fill: 'none', ...dashed }),
  ];
  const names: SVGElement[] = []; // Behind all lines, so that none goes through a name.
  const taken: number[] = [];
  for (const bound of bounds) {
    const colour = boundColour(bound);
    for (const value of [-bound.value, bound.value])
      parts.push(svg('path', { d: level(value), stroke: colour, ...dashed }));
    const up = namePlace(plot.y(bound.value), plot.y(-bound.value), box, taken);
    if (up === null) continue;
    taken.push(up);
    const place = { x: box.x + box.width - 4, y: up, 'text-anchor': 'end', fill: colour, ...halo };
    names.push(svg('text', place, boundText(bound, unit)));
  }
  return [...parts, ...names];
}
