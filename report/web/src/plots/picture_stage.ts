import { el } from '../dom/el';
import type { Picture } from '../page_data';
import { framed, type FramedPlot } from './base';
import { button, choice, controls, slider } from './controls';
import { placesOf, type Places } from './nearest';
import type { Numbers } from './numbers';
import type { PlotContext } from './plot';
import { redrawer } from './redraw';
import { DotStage, stageKeys, type Place } from './stage';
import { svg, window, type Box } from './svg';
import { moved, shownPart, zoomedAt, type Zoom } from './zoom';

/** One of the pair's pictures with the places of the dots in it, pixels of the original. */
export interface PictureSide {
  /** "Left picture". */
  title: string;
  picture: Picture | null;
  width: number;
  height: number;
  x: Numbers;
  y: Numbers;
}

/** What a reader has set; it outlives the drawing. */
export interface PictureState {
  side: number;
  zoom: Zoom;
  /** How much of the picture is seen, place in `fades`. */
  fade: number;
  /** What a drag does. */
  tool: 'select' | 'move';
}

export function freshPictureState(): PictureState {
  return { side: 0, zoom: { factor: 1, x: 0.5, y: 0.5 }, fade: 2, tool: 'select' };
}

/** Draws the dots; `scale` is CSS pixels per picture pixel. */
export interface DotPainter {
  glyphs(places: Places, indices: number[], scale: number): SVGElement;
  legend(scale: number, x: number, y: number, width: number): SVGElement;
  /** Room to keep for the legend. */
  legendHeight: number;
}

const fades = [0, 0.25, 0.45, 0.7, 1];
const sizeLimit = 1.15;

/** About what the numbered axis takes of a picture plot's width, CSS pixels. */
export const axesRoom = 64;

/** A picture with dots over it: choice of the side, zoom by wheel, buttons and keys, drag to select or to move. */
export class PictureStage {
  readonly element: HTMLElement;
  private readonly stage: DotStage;
  private readonly images = new Map<Picture, SVGImageElement>();
  private shown: FramedPlot | null = null;
  private readonly redraw: () => void;

  constructor(
    private readonly sides: readonly PictureSide[],
    ids: readonly number[],
    private readonly painter: DotPainter,
    private readonly state: PictureState,
    private readonly context: PlotContext,
    label: string,
    extra: (Node | null)[] = [],
  ) {
    this.redraw = redrawer(() => this.draw(), context.signal);
    const keys = `${stageKeys}, plus and minus zoom, Shift with arrows moves the picture.`;
    const own = { drag: this.drag.bind(this), key: this.key.bind(this) };
    this.stage = new DotStage({ ids, label: `${label}. ${keys}`, ...own }, context);
    const bar = context.printing ? null : controls(...extra, ...this.ownControls());
    this.element = el('div', { class: 'plot-picture' }, bar, this.stage.element);
    const wheel = { signal: context.signal, passive: false };
    this.stage.element.addEventListener('wheel', (event) => this.wheel(event), wheel);
    this.draw();
  }

  private side(): PictureSide {
    const side = this.sides[this.state.side] ?? this.sides[0];
    if (!side) throw new Error('a picture plot needs a side');
    return side;
  }

  private ownControls(): (Node | null)[] {
    const { state } = this;
    const sides = this.sides.map((side, i) => [String(i), side.title] as const);
    const pick = (i: string) => this.change(() => (state.side = Number(i)));
    const fade = (place: number) => this.change(() => (state.fade = place));
    const drags = [['select', 'Select'] as const, ['move', 'Move'] as const];
    return [
      this.sides.length > 1 ? choice('Picture', sides, String(state.side), pick) : null,
      this.side().picture
        ? slider('Picture', fades, state.fade, (f) => `${Math.round(100 * f)} %`, fade).element
        : null,
      choice('A drag', drags, state.tool, (tool) => this.change(() => (state.tool = tool))),
      el(
        'span',
        { class: 'plot-choice' },
        button('+', 'Zoom in', () => this.zoomBy(1.5)),
        button('\u2212', 'Zoom out', () => this.zoomBy(1 / 1.5)),
        button('All', 'All of the picture', () => this.zoomBy(0)),
      ),
    ];
  }

  change(set: () => void): void {
    set();
    this.redraw();
  }

  private zoomBy(factor: number, at: Place | null = null): void {
    const { box } = this.shown ?? {};
    const place = at && box ? { x: (at.x - box.x) / box.width, y: (at.y - box.y) / box.height } : { x: 0.5, y: 0.5 };
    this.change(() => (this.state.zoom = zoomedAt(this.state.zoom, factor, place)));
  }

  private wheel(event: WheelEvent): void {
    // A page that stops scrolling under the pointer is a nuisance: the wheel zooms only where that is clearly meant.
    if (!event.ctrlKey && document.activeElement !== this.stage.element) return;
    event.preventDefault();
    this.zoomBy(Math.exp(-event.deltaY / 400), this.stage.local(event));
  }

  private key(event: KeyboardEvent): boolean {
    const steps: Record<string, [number, number]> = {
      ArrowLeft: [0.1, 0],
      ArrowRight: [-0.1, 0],
      ArrowUp: [0, 0.1],
      ArrowDown: [0, -0.1],
    };
    const step = steps[event.key];
    if (event.shiftKey && step) this.change(() => (this.state.zoom = moved(this.state.zoom, step[0], step[1])));
    else if (event.key === '+' || event.key === '=') this.zoomBy(1.5);
    else if (event.key === '-') this.zoomBy(1 / 1.5);
    else if (event.key === '0') this.zoomBy(0);
    else return false;
    return true;
  }

  private last: Place | null = null;

  private drag(from: Place, to: Place, done: boolean): boolean {
    if (this.state.tool !== 'move' || !this.shown) return false;
    const { width, height } = this.shown.box;
    const before = this.last ?? from;
    this.last = done ? null : to;
    const [dx, dy] = [(to.x - before.x) / width, (to.y - before.y) / height];
    this.change(() => (this.state.zoom = moved(this.state.zoom, dx, dy)));
    return true;
  }

  private draw(): void {
    const side = this.side();
    const { printing, width } = this.context;
    const ratio = Math.min(side.height / side.width, sizeLimit);
    const below = this.painter.legendHeight;
    const height = Math.round((width - axesRoom) * (printing ? Math.min(ratio, 0.9) : ratio)) + 50 + below;
    const part = shownPart(side, ratioOf(width, height, below), this.state.zoom);
    const x = { from: part.x - 0.5, to: part.x + part.width - 0.5, label: 'Column in the picture (px)' };
    const y = { from: part.y + part.height - 0.5, to: part.y - 0.5, label: 'Row (px)' };
    const glyphs = svg('g', {});
    const plot = framed({ width, height, x, y, below, grid: 'none', marks: [] });
    this.shown = plot;
    plot.svg.insertBefore(window(plot.box, ...this.backdrop(side, plot), glyphs), plot.svg.firstChild);
    const places = placesOf(side.x, side.y, plot.x, plot.y);
    const scale = plot.box.width / part.width;
    glyphs.append(this.painter.glyphs(places, visible(places, plot.box), scale));
    plot.svg.append(this.painter.legend(scale, plot.box.x, height - below + 2, plot.box.width));
    hideOutside(places, plot.box);
    this.stage.element.style.cursor = this.state.tool === 'move' ? 'grab' : '';
    this.stage.show({ svg: plot.svg, places, box: plot.box, base: glyphs });
  }

  /** One node a picture for all drawings: a new one would be decoded again, and flicker while the picture is moved. */
  private imageOf(picture: Picture): SVGImageElement {
    const image = this.images.get(picture) ?? svg('image', { href: picture.source, preserveAspectRatio: 'none' });
    this.images.set(picture, image);
    return image;
  }

  private backdrop(side: PictureSide, plot: FramedPlot): SVGElement[] {
    const box = { x: plot.x(-0.5), y: plot.y(-0.5) };
    const width = plot.x(side.width - 0.5) - box.x;
    const height = plot.y(side.height - 0.5) - box.y;
    const frame = svg('rect', { ...box, width, height, fill: 'none', stroke: 'var(--line)' });
    if (!side.picture) return [frame];
    const image = this.imageOf(side.picture);
    const place = { ...box, width, height, opacity: fades[this.state.fade] ?? 1 };
    for (const [name, value] of Object.entries(place)) image.setAttribute(name, String(value));
    return [image, frame];
  }
}

/** Height by width of the part for the data, as `framed` will leave it. */
function ratioOf(width: number, height: number, below: number): number {
  return (height - 66 - below) / (width - axesRoom);
}

function visible({ x, y }: Places, box: Box): number[] {
  const list: number[] = [];
  x.forEach((at, i) => {
    const down = y[i] ?? NaN;
    const seen = at > box.x - 20 && at < box.x + box.width + 20 && down > box.y - 60 && down < box.y + box.height + 60;
    if (seen) list.push(i);
  });
  return list;
}

/** Dots outside the part that is shown take no pointer and no mark. */
function hideOutside({ x, y }: Places, box: Box): void {
  x.forEach((at, i) => {
    const down = y[i] ?? NaN;
    if (at < box.x || at > box.x + box.width || down < box.y || down > box.y + box.height) x[i] = NaN;
  });
}
