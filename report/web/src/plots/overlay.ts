import type { Selection } from '../state/selection';
import type { DotDrawing, Place } from './stage';
import { batched, circlePath, svg } from './svg';

/** What of the selection is drawn above the dots. */
export interface Overlay {
  element: SVGGElement;
  update(selection: Selection): void;
  rectangle(corners: [Place, Place] | null): void;
}

const hovered = 7;
const marked = 6;
const brushed = 3.2;

function ring(r: number, width: number, colour: string): SVGCircleElement {
  return svg('circle', { r, fill: 'none', stroke: colour, 'stroke-width': width });
}

/** A ring that is seen on dark and on light. */
function ringAt(x: number, y: number, r: number): SVGGElement {
  const group = svg('g', { transform: `translate(${x} ${y})` });
  group.append(ring(r, 4, 'var(--card)'), ring(r, 2, 'var(--mark)'));
  return group;
}

export function overlayOf(drawing: DotDrawing, ids: readonly number[]): Overlay {
  const index = new Map(ids.map((id, i) => [id, i]));
  const element = svg('g', { class: 'plot-overlay', 'pointer-events': 'none' });
  const layers = { brush: svg('g', {}), marks: svg('g', {}), hover: svg('g', {}), drag: svg('g', {}) };
  element.append(layers.brush, layers.marks, layers.hover, layers.drag);
  const shown: { marked?: unknown; brushed?: unknown } = {};
  const { x, y } = drawing.places;
  const drawn = (list: Iterable<number>) =>
    Array.from(list, (id) => index.get(id) ?? -1).filter((i) => i >= 0 && !Number.isNaN((x[i] ?? NaN) + (y[i] ?? NaN)));

  function showBrush(list: ReadonlySet<number> | null): void {
    if (drawing.base) drawing.base.style.opacity = list ? '0.3' : '';
    const shape = (i: number) => circlePath(x[i] ?? 0, y[i] ?? 0, brushed);
    const style = { fill: 'none', stroke: 'var(--mark)', 'stroke-width': 1.3 };
    layers.brush.replaceChildren(...(list ? [batched(drawn(list), shape, style)] : []));
  }

  function update(selection: Selection): void {
    if (shown.brushed !== selection.brushed) showBrush((shown.brushed = selection.brushed));
    if (shown.marked !== selection.marked) {
      shown.marked = selection.marked;
      layers.marks.replaceChildren(...drawn(selection.marked).map((i) => ringAt(x[i] ?? 0, y[i] ?? 0, marked)));
    }
    const at = selection.hovered === null ? [] : drawn([selection.hovered]);
    layers.hover.replaceChildren(...at.map((i) => ringAt(x[i] ?? 0, y[i] ?? 0, hovered)));
  }

  function rectangle(corners: [Place, Place] | null): void {
    if (!corners) return layers.drag.replaceChildren();
    const [a, b] = corners;
    const box = {
      x: Math.min(a.x, b.x),
      y: Math.min(a.y, b.y),
      width: Math.abs(a.x - b.x),
      height: Math.abs(a.y - b.y),
    };
    const style = { fill: 'var(--mark)', 'fill-opacity': 0.12, stroke: 'var(--mark)', 'stroke-dasharray': '4 3' };
    layers.drag.replaceChildren(svg('rect', { ...box, ...style }));
  }

  return { element, update, rectangle };
}
