import { el } from '../dom/el';
import type { FramedPlot } from './base';
import type { Bins } from './bins';
import type { PlotContext } from './plot';
import { svg } from './svg';

/** Brush along the bars of a histogram: by dragging, or by keys from bar to bar. It takes whole bars, as a range that
 * cuts a bar could not be seen. */
export class RangeBrush {
  readonly element: HTMLElement;
  private readonly frame = svg('g', { 'pointer-events': 'none' });
  private anchor: number | null = null;
  private cursor: number | null = null;

  constructor(
    private readonly plot: FramedPlot,
    private readonly bins: Bins,
    private readonly ids: readonly number[],
    label: string,
    private readonly context: PlotContext,
  ) {
    const { printing, signal, selection } = context;
    const focus = { tabindex: 0, role: 'application', 'aria-label': label };
    this.element = el('div', { class: 'plot-stage', ...(printing ? {} : focus) }, plot.svg);
    plot.svg.append(this.frame);
    selection.subscribe(() => {
      if (!selection.brushed) this.show(null);
    }, signal);
    if (printing) return;
    const listen = <E extends Event>(name: string, listener: (event: E) => void) =>
      this.element.addEventListener(name, listener as EventListener, { signal });
    listen('pointerdown', (event: PointerEvent) => this.down(event));
    listen('pointermove', (event: PointerEvent) => this.move(event));
    listen('pointerup', () => (this.anchor = null));
    listen('pointercancel', () => (this.anchor = null));
    listen('keydown', (event: KeyboardEvent) => this.key(event));
  }

  private barAt(event: PointerEvent): number {
    const rect = this.plot.svg.getBoundingClientRect();
    const scale = this.plot.svg.width.baseVal.value / (rect.width || 1);
    const { x, width } = this.plot.box;
    const part = ((event.clientX - rect.left) * scale - x) / width;
    const bars = this.bins.dots.length;
    return Math.min(bars - 1, Math.max(0, Math.floor(part * bars)));
  }

  private down(event: PointerEvent): void {
    if (event.button !== 0) return;
    if (this.context.selection.brushed) this.context.selection.brush(null);
    this.anchor = this.cursor = this.barAt(event);
    this.element.setPointerCapture(event.pointerId);
  }

  private move(event: PointerEvent): void {
    if (this.anchor === null || event.buttons === 0) return;
    const bar = this.barAt(event);
    if (bar === this.cursor && bar !== this.anchor) return;
    this.cursor = bar;
    this.select(this.anchor, bar);
  }

  private key(event: KeyboardEvent): void {
    const way = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (way === undefined || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    const last = this.bins.dots.length - 1;
    const from = this.cursor ?? (way > 0 ? -1 : last + 1);
    const to = Math.min(last, Math.max(0, from + way));
    if (!event.shiftKey || this.anchor === null) this.anchor = to;
    this.cursor = to;
    this.select(this.anchor, to);
  }

  private select(a: number, b: number): void {
    const range: [number, number] = [Math.min(a, b), Math.max(a, b)];
    const dots = this.bins.dots.slice(range[0], range[1] + 1).flat();
    this.context.selection.brush(dots.map((i) => this.ids[i] ?? -1));
    this.show(range);
  }

  private show(range: [number, number] | null): void {
    if (!range) return this.frame.replaceChildren();
    const { box } = this.plot;
    const wide = box.width / this.bins.dots.length;
    const place = { x: box.x + range[0] * wide, y: box.y, width: (range[1] - range[0] + 1) * wide, height: box.height };
    const look = { fill: 'var(--mark)', 'fill-opacity': 0.08, stroke: 'var(--mark)', 'stroke-dasharray': '4 3' };
    this.frame.replaceChildren(svg('rect', { ...place, ...look }));
  }
}
