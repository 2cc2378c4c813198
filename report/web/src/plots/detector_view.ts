import type { DotColumns } from '../page_data';
import { keyLegend } from './legend';
import { kept, toggle } from './controls';
import type { Places } from './nearest';
import { freshPictureState, PictureStage, type DotPainter, type PictureSide, type PictureState } from './picture_stage';
import type { PlotContext } from './plot';
import { batched, circlePath, svg } from './svg';

/** What the detector saw: both pictures with the dots that it found and numbered. */
export interface DetectorView {
  ids: readonly number[];
  column: readonly number[];
  row: readonly number[];
  sides: readonly PictureSide[];
  /** Of each dot whether its centre was refined, or kept as it was found; empty: only found. */
  refined: readonly boolean[];
}

/** What a column of states says of each dot; empty where there is none. */
export function refinedDots({ left_state, right_state }: DotColumns): boolean[] {
  return (left_state ?? []).map((state, i) => state === 'refined' && right_state?.[i] === 'refined');
}

interface DetectorState extends PictureState {
  numbers: boolean;
}

const stateOf = kept<DetectorView, DetectorState>(() => ({ ...freshPictureState(), fade: 4, numbers: true }));

export function detectorView(view: DetectorView, context: PlotContext): HTMLElement {
  const state = stateOf(view);
  const numbers = toggle('Numbers', state.numbers, (on) => stage.change(() => (state.numbers = on)));
  const painter = new FoundPainter(view, state);
  const stage = new PictureStage(view.sides, view.ids, painter, state, context, 'What the detector saw', [numbers]);
  return stage.element;
}

const refinedLook = { fill: 'none', stroke: 'var(--within)' };
const keptLook = { fill: 'none', stroke: 'var(--given-up)', 'stroke-dasharray': '3 2' };

class FoundPainter implements DotPainter {
  legendHeight = 26;

  constructor(
    private readonly view: DetectorView,
    private readonly state: DetectorState,
  ) {}

  glyphs(places: Places, indices: number[]): SVGElement {
    const group = svg('g', {});
    const gap = this.gap(places, indices);
    const shape = (i: number) => circlePath(places.x[i] ?? 0, places.y[i] ?? 0, Math.min(9, Math.max(1.5, gap * 0.33)));
    const { refined } = this.view;
    const some = (state: boolean) => indices.filter((i) => refined[i] === state);
    group.setAttribute('stroke-width', String(Math.min(2, 0.14 * gap)));
    if (refined.length === 0) group.append(batched(indices, shape, refinedLook));
    else group.append(batched(some(true), shape, refinedLook), batched(some(false), shape, keptLook));
    if (this.state.numbers) group.append(this.numbers(places, indices, gap));
    return group;
  }

  /** Numbers as close as they stay legible: each dot's where there is room, else every second, fifth, tenth. */
  private numbers({ x, y }: Places, indices: number[], gap: number): SVGElement {
    const every = [1, 2, 5, 10, 20, 50].find((n) => n * gap > 44) ?? 100;
    const { column, row, ids } = this.view;
    const look = { fill: 'var(--text)', stroke: 'var(--card)', 'stroke-width': 3.5, 'paint-order': 'stroke' };
    const group = svg('g', { ...look, 'font-size': 11, 'text-anchor': 'middle', 'stroke-linejoin': 'round' });
    for (const i of indices) {
      if ((column[i] ?? 0) % every || (row[i] ?? 0) % every) continue;
      group.append(svg('text', { x: (x[i] ?? 0).toFixed(1), y: ((y[i] ?? 0) + 4).toFixed(1) }, String(ids[i])));
    }
    return group;
  }

  private gap({ x, y }: Places, indices: readonly number[]): number {
    let least = Infinity;
    for (let k = 1; k < indices.length; k += 3) {
      const [i, j] = [indices[k] ?? 0, indices[k - 1] ?? 0];
      const far = Math.hypot((x[i] ?? NaN) - (x[j] ?? NaN), (y[i] ?? NaN) - (y[j] ?? NaN));
      if (far > 1) least = Math.min(least, far);
    }
    return Number.isFinite(least) ? least : 20;
  }

  legend(_scale: number, x: number, y: number, width: number): SVGElement {
    const ring = (look: Record<string, string | number>) =>
      svg('path', { d: circlePath(0, 0, 6), 'stroke-width': 2, ...look });
    if (this.view.refined.length === 0) {
      return keyLegend([{ sign: ring(refinedLook), text: 'found and numbered' }], x, y, width);
    }
    const keys = [
      { sign: ring(refinedLook), text: 'refined' },
      { sign: ring(keptLook), text: 'kept as found' },
    ];
    return keyLegend(keys, x, y, width);
  }
}
