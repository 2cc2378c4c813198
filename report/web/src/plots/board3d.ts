import * as Plot from '@observablehq/plot';
import { el } from '../dom/el';
import { plotted } from './base';
import { classesFor, classOf, colourOf, scaleOf, type Classes } from './classes';
import { choice, controls, kept, slider } from './controls';
import { classLegend, legendHeight } from './legend';
import { gridLines, type Link } from './grid_lines';
import { unitText, type Numbers } from './numbers';
import type { PlotContext } from './plot';
import { DotStage, type Place } from './stage';
import { turned, type Turn } from './turn';

/** The measured board against the true one, its errors drawn larger than they are. */
export interface Board3dView {
  unit: string;
  ids: readonly number[];
  column: readonly number[];
  row: readonly number[];
  boardX: Numbers;
  boardY: Numbers;
  offX: Numbers;
  offY: Numbers;
  offZ: Numbers;
}

interface BoardState {
  turn: Turn;
  /** Place in `factors`; null: chosen from the errors. */
  factor: number | null;
}

const factors = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000];
const views: Record<string, Turn> = {
  Oblique: { yaw: 32, pitch: 58 },
  Front: { yaw: 0, pitch: 0 },
  'From above': { yaw: 0, pitch: 90 },
  'From the side': { yaw: 90, pitch: 0 },
};
const stateOf = kept<Board3dView, BoardState>(() => ({ turn: { yaw: 32, pitch: 58 }, factor: null }));

export function board3d(view: Board3dView, context: PlotContext): HTMLElement {
  return new Board3d(view, context).element;
}

class Board3d {
  readonly element: HTMLElement;
  private readonly stage: DotStage;
  private readonly state: BoardState;
  private readonly off: number[];
  private readonly links: Link[];
  private readonly classes: Classes;
  private last: Place | null = null;
  private waiting = false;

  constructor(
    private readonly view: Board3dView,
    private readonly context: PlotContext,
  ) {
    this.state = stateOf(view);
    this.off = view.ids.map((_, i) => Math.hypot(view.offX[i] ?? NaN, view.offY[i] ?? NaN, view.offZ[i] ?? NaN));
    this.links = gridLines(view.column, view.row);
    this.classes = classesFor(scaleOf(this.off), false);
    const label = 'Measured board against the true one. Arrow keys turn it, Home turns it back';
    const own = { drag: this.drag.bind(this), key: this.key.bind(this) };
    this.stage = new DotStage({ ids: view.ids, label, ...own }, context);
    this.element = el('div', {}, context.printing ? null : this.controls(), this.stage.element);
    this.draw();
  }

  private controls(): HTMLElement {
    const names = Object.keys(views).map((name) => [name, name] as const);
    const look = (name: string) => this.change(() => (this.state.turn = { ...(views[name] ?? this.state.turn) }));
    const chosen = names.find(([name]) => sameTurn(views[name], this.state.turn))?.[0] ?? '';
    const enlarge = (place: number) => this.change(() => (this.state.factor = place));
    return controls(
      choice('Seen', names, chosen, look),
      slider('Errors enlarged', factors, this.factorPlace(), (f) => `${f} \u00d7`, enlarge),
    );
  }

  private factorPlace(): number {
    if (this.state.factor !== null) return this.state.factor;
    const wanted = (0.12 * this.extent()) / (scaleOf(this.off) || 1);
    return Math.max(0, factors.filter((factor) => factor <= wanted).length - 1);
  }

  private extent(): number {
    const { boardX, boardY } = this.view;
    const largest = (values: Numbers) => values.reduce<number>((most, v) => Math.max(most, Math.abs(v ?? 0)), 0);
    return Math.max(largest(boardX), largest(boardY), 1e-9);
  }

  private change(set: () => void): void {
    set();
    if (this.waiting || this.context.signal.aborted) return;
    this.waiting = true;
    requestAnimationFrame(() => {
      this.waiting = false;
      if (!this.context.signal.aborted) this.draw();
    });
  }

  private turnBy(yaw: number, pitch: number): void {
    const { turn } = this.state;
    const tipped = Math.min(90, Math.max(-90, turn.pitch + pitch));
    this.change(() => (this.state.turn = { yaw: turn.yaw + yaw, pitch: tipped }));
  }

  private drag(from: Place, to: Place, done: boolean): boolean {
    const before = this.last ?? from;
    this.last = done ? null : to;
    this.turnBy((before.x - to.x) * 0.5, (to.y - before.y) * 0.5);
    return true;
  }

  private key(event: KeyboardEvent): boolean {
    const steps: Record<string, [number, number]> = {
      ArrowLeft: [8, 0],
      ArrowRight: [-8, 0],
      ArrowUp: [0, -8],
      ArrowDown: [0, 8],
    };
    const step = steps[event.key];
    if (step && !event.shiftKey) this.turnBy(step[0], step[1]);
    else if (event.key === 'Home') this.change(() => (this.state.turn = { yaw: 32, pitch: 58 }));
    else return false;
    return true;
  }

  private draw(): void {
    const { width } = this.context;
    const height = Math.round(Math.min(520, width * 0.8)) + legendHeight + 20;
    const box = { x: 8, y: 22, width: width - 16, height: height - legendHeight - 44 };
    const factor = factors[this.factorPlace()] ?? 1;
    const measured = this.points(factor, box);
    const truth = this.points(0, box);
    const svg = plotted({
      width,
      height,
      margin: 0,
      x: { type: 'identity' },
      y: { type: 'identity' },
      marks: [
        Plot.geo(lines(this.links, truth), { stroke: 'var(--line)', strokeWidth: 1 }),
        ...this.meshes(measured),
        Plot.text([`Errors drawn ${factor} times as large`], {
          frameAnchor: 'top-left',
          dx: 8,
          dy: 8,
          fontSize: 12,
          fill: 'var(--faint)',
        }),
      ],
    });
    svg.append(classLegend(this.classes, `${unitText(this.view.unit)} off`, 12, height - legendHeight, width - 24));
    this.stage.show({ svg, places: measured, box, base: null });
  }

  /** Screen places of the dots with their errors enlarged, the true board in the middle. */
  private points(factor: number, box: { x: number; y: number; width: number; height: number }) {
    const { boardX, boardY, offX, offY, offZ } = this.view;
    const [midX, midY] = [middle(boardX), middle(boardY)];
    const half = Math.hypot(reach(boardX, midX), reach(boardY, midY));
    const scale = Math.min(box.width, box.height * 1.25) / (2.15 * half || 1);
    const x = new Float64Array(boardX.length);
    const y = new Float64Array(boardX.length);
    boardX.forEach((at, i) => {
      const point = {
        x: (at ?? NaN) - midX + factor * (offX[i] ?? NaN),
        y: (boardY[i] ?? NaN) - midY + factor * (offY[i] ?? NaN),
        z: factor * (offZ[i] ?? NaN),
      };
      const flat = turned(point, this.state.turn);
      x[i] = box.x + box.width / 2 + scale * flat.x;
      y[i] = box.y + box.height / 2 + scale * flat.y;
    });
    return { x, y };
  }

  /** One line work a class of error: seven nodes, whatever the number of dots. */
  private meshes(places: { x: Float64Array; y: Float64Array }): Plot.Markish[] {
    const byClass: Link[][] = [];
    for (const link of this.links) {
      const error = ((this.off[link[0]] ?? NaN) + (this.off[link[1]] ?? NaN)) / 2;
      if (!Number.isFinite(error)) continue;
      (byClass[classOf(error, this.classes)] ??= []).push(link);
    }
    return Array.from(byClass, (list, place) =>
      list
        ? Plot.geo(lines(list, places), { stroke: colourOf(place, this.classes), strokeWidth: 1 + place * 0.2 })
        : null,
    );
  }
}

function lines(links: readonly Link[], { x, y }: { x: Float64Array; y: Float64Array }) {
  const at = (i: number): [number, number] => [Math.round((x[i] ?? 0) * 10) / 10, Math.round((y[i] ?? 0) * 10) / 10];
  const there = links.filter(([i, j]) => !Number.isNaN((x[i] ?? NaN) + (x[j] ?? NaN) + (y[i] ?? NaN) + (y[j] ?? NaN)));
  return [{ type: 'MultiLineString' as const, coordinates: there.map(([i, j]) => [at(i), at(j)]) }];
}

const middle = (values: Numbers) => {
  const there = values.filter((value): value is number => value !== null);
  return there.length ? (Math.min(...there) + Math.max(...there)) / 2 : 0;
};
const reach = (values: Numbers, from: number) =>
  values.reduce<number>((most, v) => Math.max(most, Math.abs((v ?? from) - from)), 0);
const sameTurn = (a: Turn | undefined, b: Turn) => a?.yaw === b.yaw && a.pitch === b.pitch;
