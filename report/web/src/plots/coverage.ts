import type { CoverageGrid } from '../page_data';
import { framed } from './base';
import { classesFor, classOf, colourOf, strengthOf } from './classes';
import { classLegend, legendHeight } from './legend';
import type { PlotContext } from './plot';
import { svg } from './svg';

/** Where in the picture dots have been, all pairs together: what lies elsewhere was not judged. */
export interface CoverageView {
  grid: CoverageGrid;
  /** Of the pictures, pixels. */
  width: number;
  height: number;
}

export function coverageMap(view: CoverageView, context: PlotContext): SVGSVGElement {
  const { grid } = view;
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
  const classes = classesFor(Math.max(6.5, ...grid.dots), false);
  const wide = plot.box.width / grid.columns;
  const high = plot.box.height / grid.rows;
  const digits = String(Math.max(...grid.dots)).length;
  const legible = wide > 8 * digits + 4 && high > 15;
  const cells = svg('g', {});
  grid.dots.forEach((dots, i) => {
    const x = plot.box.x + (i % grid.columns) * wide;
    const y = plot.box.y + Math.floor(i / grid.columns) * high;
    cells.append(dots > 0 ? cell(x, y, dots) : emptyCell(x, y));
  });

  function cell(x: number, y: number, dots: number): SVGElement {
    const place = classOf(dots, classes);
    const box = { x: x + 0.5, y: y + 0.5, width: wide - 1, height: high - 1, fill: colourOf(place, classes) };
    const group = svg('g', {}, svg('rect', box));
    if (legible) {
      const fill = strengthOf(place, classes) > 0.5 ? 'var(--card)' : 'var(--text)';
      const middle = { x: x + wide / 2, y: y + high / 2 + 4, 'text-anchor': 'middle', fill };
      group.append(svg('text', middle, String(dots)));
    }
    return group;
  }

  function emptyCell(x: number, y: number): SVGElement {
    const box = { x: x + 1, y: y + 1, width: wide - 2, height: high - 2, fill: 'none', stroke: 'var(--line)' };
    const r = Math.min(5, wide / 4, high / 4);
    const d = `M${x + wide / 2 - r} ${y + high / 2 - r}l${2 * r} ${2 * r}m0 ${-2 * r}l${-2 * r} ${2 * r}`;
    return svg('g', {}, svg('rect', box), svg('path', { d, stroke: 'var(--faint)' }));
  }

  plot.svg.append(cells, classLegend(classes, 'dots', plot.box.x, height - legendHeight, plot.box.width));
  return plot.svg;
}
