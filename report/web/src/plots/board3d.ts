import * as Plot from '@observablehq/plot';
import { el } from '../dom/el';
import { fontSize, plotted } from './base';
import { BoardProjection, type BoardPoints } from './board_projection';
import { classOf, colourOf, lineClassesFor, scaleOf, type Classes } from './classes';
import { choice, controls, kept, slider } from './controls';
import { classLegend, legendHeight } from './legend';
import { gridLines, sparse, type Link } from './grid_lines';
import { present, unitText, type Numbers } from './numbers';
import type { Places } from './nearest';
import type { PlotContext } from './plot';
import { redrawer } from './redraw';
import { DotStage, type Place } from './stage';
import { halo, svg } from './svg';
import type { Turn } from './turn';

/** The measured board against the true one, its errors drawn larger than they are. */
export interface Board3dView extends BoardPoints {
  unit: string;
  ids: readonly number[];
  column: readonly number[];
  row: readonly number[];
}

interface BoardState {
  turn: Turn;
  /** Place in `factors`; null: chosen from the errors. */
  factor: number | null;
}

const factors = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000];
const oblique: Turn = { around: -30, back: 62 };
const views: Record<string, Turn> = {
  Oblique: oblique,
  Front: { around: 0, back: 0 },
  Edge: { around: 0, back: 90 },
  Side: { around: 90, back: 90 },
};
const stateOf = kept<Board3dView, BoardState>(() => ({ turn: { ...oblique }, factor: null }));

export function board3d(view: Board3dView, context: PlotContext): HTMLElement {
  return new Board3d(view, context).element;
}

class Board3d {
  readonly element: HTMLElement;
  private readonly stage: DotStage;
  private readonly state: BoardState;
  private readonly off: number[];
  private readonly links: Link[];
  private readonly truth: Link[];
  private readonly classes: Classes;
  private last: Place | null = null;
  private readonly redraw: () => void;

  constructor(
    private readonly view: Board3dView,
    private readonly context: PlotContext,
  ) {
    this.state = stateOf(view);
    this.redraw = redrawer(() => this.draw(), context.signal);
    this.off = view.ids.map((_, i) => Math.hypot(view.offX[i] ?? NaN, view.offY[i] ?? NaN, view.offZ[i] ?? NaN));
    this.links = gridLines(view.column, view.row);
    this.truth = sparse(this.links, view.column, view.row);
    this.classes = lineClassesFor(scaleOf(this.off));
    const label = 'Measured board against the true one. Arrow keys turn it, Home turns it back';
    const own = { turned: true as const, drag: this.drag.bind(this), key: this.key.bind(this) };
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
      slider('Errors enlarged', factors, this.factorPlace(), (f) => `${f} \u00d7`, enlarge).element,
    );
  }

  private factorPlace(): number {
    if (this.state.factor !== null) return this.state.factor;
    // Large enough to be seen, and not so large that noise hides the board.
    const pitch = this.extent() / Math.max(...this.view.column, ...this.view.row, 1);
    const largest = present(this.off).reduce((most, off) => Math.max(most, off), 0) || 1;
    const wanted = Math.min(
      Math.min(0.1 * this.extent(), 4 * pitch) / (scaleOf(this.off) || 1),
      this.extent() / largest,
    );
    return Math.max(0, factors.filter((factor) => factor <= wanted).length - 1);
  }

  private extent(): number {
    const { boardX, boardY } = this.view;
    const largest = (values: Numbers) => values.reduce<number>((most, v) => Math.max(most, Math.abs(v ?? 0)), 0);
    return Math.max(largest(boardX), largest(boardY), 1e-9);
  }

  private change(set: () => void): void {
    set();
    this.redraw();
  }

  private turnBy(around: number, back: number): void {
    const { turn } = this.state;
    const laid = Math.min(90, Math.max(0, turn.back + back));
    this.change(() => (this.state.turn = { around: turn.around + around, back: laid }));
  }

  private drag(from: Place, to: Place, done: boolean): boolean {
    const before = this.last ?? from;
    this.last = done ? null : to;
    this.turnBy((before.x - to.x) * 0.5, (before.y - to.y) * 0.5);
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
    else if (event.key === 'Home') this.change(() => (this.state.turn = { ...oblique }));
    else return false;
    return true;
  }

  private draw(): void {
    const { width } = this.context;
    const height = Math.round(Math.min(600, width * 0.72)) + legendHeight + 44;
    const box = { x: 8, y: 22, width: width - 16, height: height - legendHeight - 44 };
    const factor = factors[this.factorPlace()] ?? 1;
    const projection = new BoardProjection(this.view, this.state.turn, box, factor);
    const measured = projection.dots(factor);
    const told = { frameAnchor: 'top-left' as const, dx: 8, dy: 8, fontSize, fill: 'var(--faint)' };
    const enlarged = factor === 1 ? 'Errors as they are' : `Errors ${factor} times as large`;
    const drawing = plotted({
      width,
      height,
      margin: 0,
      x: { type: 'identity', axis: null },
      y: { type: 'identity', axis: null },
      marks: [
        Plot.geo(lines(this.truth, projection.dots(0)), { stroke: 'var(--dot)', strokeWidth: 1, strokeOpacity: 0.55 }),
        ...this.meshes(measured),
        Plot.text([`${enlarged}; grey: true board`], told),
      ],
    });
    const unit = `${unitText(this.view.unit)} off`;
    drawing.append(...this.names(projection), classLegend(this.classes, unit, 12, height - legendHeight, width - 24));
    this.stage.show({ svg: drawing, places: measured, box, base: null });
  }

  /** Tells where the board begins, however it is turned. */
  private names(projection: BoardProjection): SVGElement[] {
    const first = this.view.ids.findIndex((_, i) => this.view.column[i] === 0 && this.view.row[i] === 0);
    const at = projection.at({ x: this.view.boardX[first] ?? NaN, y: this.view.boardY[first] ?? NaN, z: 0 });
    if (Number.isNaN(at.x + at.y)) return [];
    const look = { ...halo, fill: 'var(--text)', 'text-anchor': 'end' };
    const ring = svg('circle', { cx: at.x, cy: at.y, r: 4, fill: 'none', stroke: 'var(--text)', 'stroke-width': 1.5 });
    return [ring, svg('text', { x: Math.max(44, at.x - 8), y: at.y - 9, ...look }, 'dot 0')];
  }

  /** One line work a class of error: five nodes, whatever the number of dots. */
  private meshes(places: Places): Plot.Markish[] {
    const byClass: Link[][] = this.classes.edges.map(() => []);
    for (const link of this.links) {
      const error = ((this.off[link[0]] ?? NaN) + (this.off[link[1]] ?? NaN)) / 2;
      if (Number.isFinite(error)) (byClass[classOf(error, this.classes)] ??= []).push(link);
    }
    return byClass.map((list, place) =>
      Plot.geo(lines(list, places), { stroke: colourOf(place, this.classes), strokeWidth: 1 + place * 0.25 }),
    );
  }
}

function lines(links: readonly Link[], { x, y }: Places) {
  const at = (i: number): [number, number] => [Math.round((x[i] ?? 0) * 10) / 10, Math.round((y[i] ?? 0) * 10) / 10];
  const there = links.filter(([i, j]) => !Number.isNaN((x[i] ?? NaN) + (x[j] ?? NaN) + (y[i] ?? NaN) + (y[j] ?? NaN)));
  return [{ type: 'MultiLineString' as const, coordinates: there.map(([i, j]) => [at(i), at(j)]) }];
}

const sameTurn = (a: Turn | undefined, b: Turn) => a?.around === b.around && a.back === b.back;
