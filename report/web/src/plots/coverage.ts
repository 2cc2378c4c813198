import type { CoverageGrid } from '../page_data';
import { framed } from './base';
import { classesFor, classOf, colourOf, strengthOf, type Classes } from './classes';
import { classLegend, legendHeight } from './legend';
import type { PlotContext } from './plot';
import { niceStep } from './numbers';
import { svg, type Box } from './svg';

/** Where in the picture dots have been, all pairs together: what lies elsewhere was not judged. */
export interface CoverageView {
  grid: CoverageGrid;
  /** Dots in the fullest cell of all grids that are compared: one scale for both pictures. */
  most: number;
  /** Of the pictures, pixels. */
  width: number;
  height: number;
}

export function coverageMap(view: CoverageView, context: PlotContext): SVGSVGElement {
  const { grid, most } = view;
  const height = Math.round((context.width - 60) * Math.min(view.height / view.width, 1.1)) + 66 + legendHeight;
  const plot = framed({
    width: context.width,
    height,
    below: legendHeight,
    grid: 'none',
    x: { from: 0, to: view.width, label: 'Column in the picture (px)' },
    y: { from: view.height, to: 0, label: 'Row (px)' },
    marks: [],
  });
  const classes = countClasses(most);
  const wide = plot.box.width / grid.columns;
  const high = plot.box.height / grid.rows;
  const legible = wide > 8 * String(most).length + 4 && high > 15;
  const cells = grid.dots.map((dots, i) => {
    const x = plot.box.x + (i % grid.columns) * wide;
    const y = plot.box.y + Math.floor(i / grid.columns) * high;
    const box = { x: x + 0.5, y: y + 0.5, width: wide - 1, height: high - 1 };
    return dots > 0 ? cell(box, dots, classes, legible) : emptyCell(box);
  });
  plot.svg.append(
    svg('g', {}, ...cells),
    classLegend(classes, 'dots', plot.box.x, height - legendHeight, plot.box.width),
  );
  return plot.svg;
}

/** There are no half dots, so no border lies at one. */
function countClasses(most: number): Classes {
  const step = niceStep(most / 6.5);
  return classesFor(6.5 * Math.max(1, Number.isInteger(step) ? step : niceStep(Math.ceil(step))), false);
}

function cell(box: Box, dots: number, classes: Classes, legible: boolean): SVGElement {
  const place = classOf(dots, classes);
  const group = svg('g', {}, svg('rect', { ...box, fill: colourOf(place, classes) }));
  group.append(svg('title', {}, `${dots} dots`));
  if (!legible) return group;
  const fill = strengthOf(place, classes) > 0.5 ? 'var(--card)' : 'var(--text)';
  const middle = { x: box.x + box.width / 2, y: box.y + box.height / 2 + 4, 'text-anchor': 'middle', fill };
  group.append(svg('text', middle, String(dots)));
  return group;
}

/** Crossed out, as the palest colour is not far from none. */
function emptyCell(box: Box): SVGElement {
  const r = Math.min(5, box.width / 4, box.height / 4);
  const [x, y] = [box.x + box.width / 2 - r, box.y + box.height / 2 - r];
  const cross = `M${x} ${y}l${2 * r} ${2 * r}m0 ${-2 * r}l${-2 * r} ${2 * r}`;
  const rim = svg('rect', { ...box, fill: 'none', stroke: 'var(--line)' });
  return svg('g', {}, rim, svg('path', { d: cross, stroke: 'var(--faint)' }));
}
