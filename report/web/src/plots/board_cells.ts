import { framed } from './base';
import { classesFor, classOf, colourOf, roundOf, scaleOf } from './classes';
import { classLegend, legendHeight } from './legend';
import { placesOf } from './nearest';
import { unitText, type Numbers } from './numbers';
import type { PlotContext } from './plot';
import { DotStage, stageKeys } from './stage';
import { batched, circlePath, squarePath } from './svg';

/** A value of each dot at its place on the board, whatever the picture shows of it. */
export interface BoardCellsView {
  name: string;
  unit: string;
  ids: readonly number[];
  column: readonly number[];
  row: readonly number[];
  /** Dots of the whole board, so that missing ones leave their gap. */
  columns: number;
  rows: number;
  values: Numbers;
  signed: boolean;
  /** Largest value of the scale, the same for maps that are to be compared; from the values where it is null. */
  largest: number | null;
}

export function boardCells(view: BoardCellsView, context: PlotContext): HTMLElement {
  const ratio = Math.min(view.rows / view.columns, 1.1);
  const height = Math.round((context.width - 60) * ratio) + 66 + legendHeight;
  const plot = framed({
    width: context.width,
    height,
    below: legendHeight,
    grid: 'none',
    x: { from: -0.5, to: view.columns - 0.5, label: 'Column of the board', whole: true },
    y: { from: view.rows - 0.5, to: -0.5, label: 'Row of the board', whole: true },
    marks: [],
  });
  const classes = classesFor(view.largest ?? scaleOf(view.values), view.signed);
  const places = placesOf(view.column, view.row, plot.x, plot.y);
  const cell = Math.min(plot.box.width / view.columns, plot.box.height / view.rows);
  const base = document.createElementNS('http://www.w3.org/2000/svg', 'g');
  const all = view.ids.map((_, i) => i);
  for (let place = 0; place <= classes.edges.length; place++) {
    const some = all.filter(
      (i) => Number.isFinite(view.values[i] ?? NaN) && classOf(view.values[i] ?? 0, classes) === place,
    );
    const shape = roundOf(place, classes) ? circlePath : squarePath;
    const at = (i: number) => shape(places.x[i] ?? 0, places.y[i] ?? 0, cell * 0.48);
    base.append(batched(some, at, { fill: colourOf(place, classes) }));
  }
  const none = all.filter((i) => !Number.isFinite(view.values[i] ?? NaN));
  base.append(batched(none, (i) => `M${(places.x[i] ?? 0) - 2} ${places.y[i] ?? 0}h4`, { stroke: 'var(--faint)' }));
  plot.svg.append(base, classLegend(classes, unitText(view.unit), plot.box.x, height - legendHeight, plot.box.width));
  const label = `${view.name} over the board. ${stageKeys}`;
  const stage = new DotStage({ ids: view.ids, label }, context);
  stage.show({ svg: plot.svg, places, box: plot.box, base });
  return stage.element;
}
