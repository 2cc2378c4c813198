import { classLegend, keyLegend, legendHeight } from './legend';
import { classesFor, classOf, colourOf, roundOf, scaleOf, strengthOf, type Classes } from './classes';
import { choice, kept, slider, toggle } from './controls';
import type { Places } from './nearest';
import { niceStep, present, quantile, plain, unitText, type Numbers } from './numbers';
import { freshPictureState, PictureStage, type DotPainter, type PictureSide, type PictureState } from './picture_stage';
import type { PlotContext } from './plot';
import { arrowPath, batched, circlePath, squarePath, svg } from './svg';

/** A value of each dot over the picture, as a map or, for row differences, as arrows. */
export interface PictureMapView {
  /** "Row difference". */
  name: string;
  unit: string;
  ids: readonly number[];
  /** The left picture first. */
  sides: readonly PictureSide[];
  values: Numbers;
  /** What the told causes make of it; with it the reader may look at what remains. Empty: no such switch. */
  pattern?: Numbers;
  /** Values go both ways from zero. */
  signed: boolean;
  /** Offers arrows: the value is a shift along the picture's columns, down where it is above zero. */
  arrows: boolean;
  /** |value| above it is told apart. */
  limit: number | null;
  /** Largest value of the scale, the same for maps that are to be compared; from the values where it is null. */
  largest: number | null;
}

interface MapState extends PictureState {
  as: 'arrows' | 'map';
  remains: boolean;
  /** Place in `enlargements`; null: chosen from the values. */
  enlarged: number | null;
}

const enlargements = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000, 100000];
const stateOf = kept<PictureMapView, MapState>((view) => ({
  ...freshPictureState(),
  as: view.arrows ? 'arrows' : 'map',
  remains: false,
  enlarged: null,
}));

export function pictureMap(view: PictureMapView, context: PlotContext): HTMLElement {
  const state = stateOf(view);
  const painter = new MapPainter(view, state);
  const stage = new PictureStage(view.sides, view.ids, painter, state, context, `${view.name} over the picture`, [
    ...mapControls(view, state, painter, (set) => stage.change(set)),
  ]);
  return stage.element;
}

function mapControls(
  view: PictureMapView,
  state: MapState,
  painter: MapPainter,
  change: (set: () => void) => void,
): (Node | null)[] {
  const forms = [['arrows', 'Arrows'] as const, ['map', 'Map'] as const];
  const write = (factor: number) => `${factor} \u00d7`;
  const enlarge = (place: number) => change(() => (state.enlarged = place));
  const enlarged = slider('Enlarged', enlargements, painter.enlargement(), write, enlarge);
  // What remains is often a hundred times smaller: the arrows find their own length again.
  const remains = (on: boolean) =>
    change(() => {
      state.remains = on;
      state.enlarged = null;
      enlarged.show(painter.enlargement());
    });
  return [
    view.arrows ? choice('Shown as', forms, state.as, (as) => change(() => (state.as = as))) : null,
    view.arrows ? enlarged.element : null,
    view.pattern?.length ? toggle('What remains without the causes', state.remains, remains) : null,
  ];
}

class MapPainter implements DotPainter {
  legendHeight = legendHeight;

  constructor(
    private readonly view: PictureMapView,
    private readonly state: MapState,
  ) {}

  private values(): Numbers {
    const { values, pattern } = this.view;
    if (!this.state.remains || !pattern) return values;
    return values.map((value, i) => (value === null ? null : value - (pattern[i] ?? NaN)));
  }

  /** The scale stays when the pattern is taken out, so that both can be compared; it follows what is left only if
   * all of that would fall into the middle class. */
  private classes(): Classes {
    const all = this.view.largest ?? scaleOf(this.view.values);
    const left = scaleOf(this.values());
    return classesFor(left < all / 4.5 ? left : all, this.view.signed);
  }

  /** Arrows of most dots reach to the next dot, 1/40 of the picture or so. */
  enlargement(): number {
    if (this.state.enlarged !== null) return this.state.enlarged;
    const long = quantile(present(this.values()).map(Math.abs), 0.95);
    const wanted = (this.view.sides[0]?.width ?? 1000) / 40 / (this.view.largest ?? long);
    return long > 0 ? Math.max(0, enlargements.filter((factor) => factor <= wanted).length - 1) : 0;
  }

  private over(value: number): boolean {
    return this.view.limit !== null && Math.abs(value) > this.view.limit;
  }

  glyphs(places: Places, indices: number[], scale: number): SVGElement {
    const values = this.values();
    const there = indices.filter((i) => Number.isFinite(values[i] ?? NaN));
    const missing = indices.filter((i) => !Number.isFinite(values[i] ?? NaN));
    const group = svg('g', {});
    const cross = (i: number) => `M${(places.x[i] ?? 0) - 2} ${places.y[i] ?? 0}h4`;
    group.append(batched(missing, cross, { stroke: 'var(--faint)' }));
    if (this.state.as === 'arrows') this.drawArrows(group, values, places, there, scale);
    else this.drawMap(group, values, places, there, spacing(places, indices));
    return group;
  }

  private drawArrows(group: SVGGElement, values: Numbers, { x, y }: Places, indices: number[], scale: number): void {
    const long = scale * (enlargements[this.enlargement()] ?? 1);
    const arrow = (i: number) => arrowPath(x[i] ?? 0, y[i] ?? 0, (values[i] ?? 0) * long);
    const foot = (i: number) => circlePath(x[i] ?? 0, y[i] ?? 0, 1.2);
    const line = { fill: 'none', 'stroke-linecap': 'round' };
    for (const over of [false, true]) {
      const some = indices.filter((i) => this.over(values[i] ?? 0) === over);
      const colour = over ? 'var(--over)' : 'var(--within)';
      group.append(batched(some, foot, { fill: colour }));
      group.append(batched(some, arrow, { ...line, stroke: colour, 'stroke-width': over ? 2.2 : 1.3 }));
    }
  }

  private drawMap(group: SVGGElement, values: Numbers, { x, y }: Places, indices: number[], gap: number): void {
    const classes = this.classes();
    const large = Math.min(9, Math.max(1.6, gap * 0.46));
    for (let place = 0; place <= classes.edges.length; place++) {
      const some = indices.filter((i) => classOf(values[i] ?? 0, classes) === place);
      const shape = roundOf(place, classes) ? circlePath : squarePath;
      const r = large * (0.6 + 0.4 * strengthOf(place, classes));
      const rim = gap > 7 ? { stroke: 'var(--card)', 'stroke-width': 0.8 } : {};
      group.append(batched(some, (i) => shape(x[i] ?? 0, y[i] ?? 0, r), { fill: colourOf(place, classes), ...rim }));
    }
  }

  legend(scale: number, x: number, y: number, width: number): SVGElement {
    const unit = unitText(this.view.unit);
    if (this.state.as === 'map') {
      return classLegend(this.classes(), unit, x, y, width);
    }
    const factor = enlargements[this.enlargement()] ?? 1;
    const told = niceStep(40 / scale / factor / 2.5);
    const length = told * factor * scale;
    const line = (colour: string, wide: number, d: string) =>
      svg('path', { d, stroke: colour, fill: 'none', 'stroke-width': wide, 'stroke-linecap': 'round' });
    const { limit } = this.view;
    const keys = [
      { sign: line('var(--text)', 1.3, `M${-length / 2} 0h${length}`), text: `${plain(told)} ${unit}`, wide: length },
      ...(limit === null
        ? []
        : [
            { sign: line('var(--within)', 1.3, arrowPath(0, -7, 14)), text: `up to ${plain(limit)} ${unit}` },
            { sign: line('var(--over)', 2.2, arrowPath(0, -7, 14)), text: `above (thick)` },
          ]),
    ];
    return keyLegend(keys, x, y, width);
  }
}

/** Usual distance of neighbours on the screen. */
function spacing({ x, y }: Places, indices: readonly number[]): number {
  const gaps: number[] = [];
  for (let k = 1; k < indices.length; k += 7) {
    const [i, j] = [indices[k] ?? 0, indices[k - 1] ?? 0];
    gaps.push(Math.hypot((x[i] ?? NaN) - (x[j] ?? NaN), (y[i] ?? NaN) - (y[j] ?? NaN)));
  }
  return quantile(gaps.filter(Number.isFinite), 0.5) || 10;
}
