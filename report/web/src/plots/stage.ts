import { el } from '../dom/el';
import { say } from '../dom/say';
import type { PlotContext } from './plot';
import { NearestDot, type Places } from './nearest';
import { overlayOf, type Overlay } from './overlay';
import type { Box } from './svg';

/** A drawing with dots in it. */
export interface DotDrawing {
  svg: SVGSVGElement;
  places: Places;
  /** Where the pointer counts. */
  box: Box;
  /** What fades while a brush is there. */
  base: SVGElement | null;
}

export interface Place {
  x: number;
  y: number;
}

export interface StageOptions {
  ids: readonly number[];
  /** What the plot shows, in a few words, and what its keys do. */
  label: string;
  /** Takes a drag instead of the brush; says whether it did. */
  drag?: (from: Place, to: Place, done: boolean) => boolean;
  /** Arrow keys do another thing than going from dot to dot, so that they can't select. */
  turned?: true;
  /** Takes a key before the stage does; says whether it did. */
  key?: (event: KeyboardEvent) => boolean;
}

/** What the keys do in every plot of dots, for those who listen. */
export const stageKeys =
  'Arrow keys go from dot to dot, Enter marks, S begins and ends a selection that the arrows widen, Escape clears';

/** How near the pointer has to come to a dot, CSS pixels. */
const reach = 20;
const arrows: Record<string, readonly [number, number]> = {
  ArrowLeft: [-1, 0],
  ArrowRight: [1, 0],
  ArrowUp: [0, -1],
  ArrowDown: [0, 1],
};

/**
 * The one element of a plot of dots that takes the pointer and the keys. Hovering, a click and a brush go to the
 * selection; what other plots put there comes back into the overlay, so the drawing below is not made again.
 */
export class DotStage {
  readonly element: HTMLElement;
  private drawing: DotDrawing | null = null;
  private overlay: Overlay | null = null;
  private search: NearestDot | null = null;
  private cursor: number | null = null;
  /** The dot from which the keys select, to the cursor. */
  private corner: number | null = null;
  private start: Place | null = null;
  private dragging = false;

  constructor(
    private readonly options: StageOptions,
    private readonly context: PlotContext,
  ) {
    const { signal, selection, printing } = context;
    const focus = { tabindex: 0, role: 'application', 'aria-label': options.label };
    this.element = el('div', { class: 'plot-stage', ...(printing ? {} : focus) });
    selection.subscribe(() => {
      if (!selection.brushed) this.endKeys();
      this.overlay?.update(selection);
    }, signal);
    if (printing) return;
    const listen = <E extends Event>(name: string, listener: (event: E) => void) =>
      this.element.addEventListener(name, listener as EventListener, { signal });
    listen('pointerdown', (event: PointerEvent) => this.down(event));
    listen('pointermove', (event: PointerEvent) => this.move(event));
    listen('pointerup', (event: PointerEvent) => this.up(event));
    listen('pointercancel', () => this.letGo());
    listen('pointerleave', (event: PointerEvent) => {
      // A finger leaves with every tap; what it tapped is to be read.
      if (event.pointerType !== 'touch') selection.hover(null);
    });
    listen('keydown', (event: KeyboardEvent) => this.key(event));
    listen('blur', () => {
      this.endKeys();
      selection.hover(null);
    });
  }

  /** Puts a drawing in the place of the one before. */
  show(drawing: DotDrawing): void {
    this.drawing = drawing;
    this.search = null;
    this.overlay = overlayOf(drawing, this.options.ids);
    drawing.svg.append(this.overlay.element);
    this.element.replaceChildren(drawing.svg);
    this.overlay.update(this.context.selection);
  }

  /** The middle of what is drawn, or a place of the screen, in the drawing's coordinates. */
  local(event: { clientX: number; clientY: number }): Place {
    const rect = this.drawing?.svg.getBoundingClientRect();
    if (!rect) return { x: 0, y: 0 };
    const scale = this.scale(rect);
    return { x: (event.clientX - rect.left) * scale, y: (event.clientY - rect.top) * scale };
  }

  private scale(rect: DOMRect): number {
    return (this.drawing?.svg.width.baseVal.value ?? rect.width) / (rect.width || 1);
  }

  private dots(): NearestDot | null {
    if (this.drawing && !this.search) this.search = new NearestDot(this.drawing.places);
    return this.search;
  }

  private inside({ x, y }: Place): boolean {
    const box = this.drawing?.box;
    return !!box && x >= box.x && x <= box.x + box.width && y >= box.y && y <= box.y + box.height;
  }

  private down(event: PointerEvent): void {
    const place = this.local(event);
    if (event.button !== 0 || !this.inside(place)) return;
    this.start = place;
    this.dragging = false;
  }

  private move(event: PointerEvent): void {
    const place = this.local(event);
    if (this.start && event.buttons === 0) this.letGo();
    if (this.start) {
      if (!this.dragging && Math.hypot(place.x - this.start.x, place.y - this.start.y) < 4) return;
      if (!this.dragging) this.element.setPointerCapture(event.pointerId);
      this.dragging = true;
      this.dragTo(this.start, place, false);
    } else {
      this.hover(this.inside(place) ? (this.dots()?.find(place.x, place.y, reach) ?? null) : null);
    }
  }

  private up(event: PointerEvent): void {
    const place = this.local(event);
    if (this.start && this.dragging) this.dragTo(this.start, place, true);
    else if (this.start) this.click(place);
    this.letGo();
  }

  private letGo(): void {
    this.start = null;
    this.dragging = false;
    this.overlay?.rectangle(null);
  }

  private click(place: Place): void {
    const { selection } = this.context;
    const i = this.dots()?.find(place.x, place.y, reach) ?? null;
    const id = i === null ? undefined : this.options.ids[i];
    if (id === undefined) selection.brush(null);
    else selection.toggle(id);
    this.cursor = i ?? this.cursor;
    this.hover(i);
  }

  private dragTo(from: Place, to: Place, done: boolean): void {
    const { selection } = this.context;
    selection.hover(null);
    if (this.options.drag?.(from, to, done)) return;
    this.overlay?.rectangle([from, to]);
    if (!done) return;
    const indices = this.dots()?.within(from.x, from.y, to.x, to.y) ?? [];
    selection.brush(indices.map((i) => this.options.ids[i] ?? -1));
  }

  private hover(i: number | null): void {
    const { selection } = this.context;
    const id = i === null ? undefined : this.options.ids[i];
    const rect = this.drawing?.svg.getBoundingClientRect();
    if (i === null || id === undefined || !rect || !this.drawing) return selection.hover(null);
    const scale = this.scale(rect);
    const { x, y } = this.drawing.places;
    selection.hover(id, { x: rect.left + (x[i] ?? 0) / scale, y: rect.top + (y[i] ?? 0) / scale });
  }

  private key(event: KeyboardEvent): void {
    if (event.target !== this.element || event.ctrlKey || event.metaKey || event.altKey) return;
    if (this.options.key?.(event) || this.cursorKey(event)) event.preventDefault();
  }

  private cursorKey(event: KeyboardEvent): boolean {
    const { selection } = this.context;
    const way = arrows[event.key];
    const at = selection.hovered === null ? -1 : this.options.ids.indexOf(selection.hovered);
    if (at >= 0) this.cursor = at;
    if (way) {
      const dots = this.dots();
      const next = this.cursor === null ? dots?.first() : dots?.towards(this.cursor, way[0], way[1]);
      this.cursor = next ?? this.cursor;
      this.hover(this.cursor);
      this.selectByKeys();
      return true;
    }
    if (event.key.toLowerCase() === 's' && !this.options.turned) {
      this.turnKeys();
      return true;
    }
    const id = this.cursor === null ? undefined : this.options.ids[this.cursor];
    if ((event.key === 'Enter' || event.key === ' ') && id !== undefined) {
      selection.toggle(id);
      return true;
    }
    return false;
  }

  /** The first press begins at the cursor, the second ends; what is selected stays. */
  private turnKeys(): void {
    if (this.corner !== null) return this.endKeys();
    this.cursor ??= this.dots()?.first() ?? null;
    this.corner = this.cursor;
    this.selectByKeys();
  }

  private endKeys(): void {
    this.corner = null;
    if (!this.start) this.overlay?.rectangle(null);
  }

  /** The dots in the rectangle from the corner to the cursor. */
  private selectByKeys(): void {
    const { places } = this.drawing ?? {};
    if (this.corner === null || this.cursor === null || !places) return;
    const [from, to] = [this.corner, this.cursor].map((i) => ({ x: places.x[i] ?? NaN, y: places.y[i] ?? NaN }));
    if (!from || !to) return;
    const indices = this.dots()?.within(from.x, from.y, to.x, to.y) ?? [];
    this.context.selection.brush(indices.map((i) => this.options.ids[i] ?? -1));
    this.overlay?.rectangle([from, to]);
    this.hover(this.cursor);
    const upTo = this.options.ids[this.cursor];
    say(indices.length === 1 ? `Dot ${upTo} selected` : `${indices.length} dots selected, up to dot ${upTo}`);
  }
}
