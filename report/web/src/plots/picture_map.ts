import { classLegend, keyLegend, legendHeight } from './legend';
import { strictest, type Bound } from './bounds';
import { classesFor, classOf, colourOf, roundOf, scaleOf, strengthOf, type Classes } from './classes';
import { choice, controls, kept, slider, toggle } from './controls';
import type { Places } from './nearest';
import { niceStep, present, quantile, plain, unitText, type Numbers } from './numbers';
import {
  axesRoom,
  freshPictureState,
  PictureStage,
  type DotPainter,
  type PictureSide,
  type PictureState,
} from './picture_stage';
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
  /** |value| above the strictest limit of them is told apart. */
  bounds: readonly Bound[];
  /** Hears that what remains without the causes is looked at, or the whole again. */
  remains?: (on: boolean) => void;
  /** Of maps that are to be compared; the scale comes from the values where there is none. */
  shared?: SharedScale;
}

/** How the values are shown. */
export interface MapForm {
  as: 'arrows' | 'map';
  remains: boolean;
  /** Place in `enlargements`; null: chosen from the values. */
  enlarged: number | null;
}

/** What maps side by side have in common: whoever changes it changes it in all of them. */
export interface SharedScale {
  /** Size of nearly all values of all maps, and of what remains of them without the causes. */
  whole: number;
  left: number;
  /** Pixels across of the widest picture, which is enlarged as the switch says; in narrower ones an arrow of as many
   * pixels is as long. */
  width: number;
  form: MapForm;
}

interface MapState extends PictureState {
  form: MapForm;
}

const enlargements = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000, 100000];
const stateOf = kept<PictureMapView, MapState>((view) => ({
  ...freshPictureState(),
  form: view.shared?.form ?? { as: view.arrows ? 'arrows' : 'map', remains: false, enlarged: null },
}));

/** The scale stays when the pattern is taken out, so that both can be compared; it follows what is left only if
 * all of that would fall into the middle class. */
function scaleFor(whole: number, left: number): number {
  return left < whole / 4.5 ? left : whole;
}

/** Arrows of most dots reach to the next dot, 1/40 of the picture or so. */
function enlargementFor(form: MapForm, width: number, long: number): number {
  if (form.enlarged !== null) return form.enlarged;
  return long > 0 ? Math.max(0, enlargements.filter((factor) => factor <= width / 40 / long).length - 1) : 0;
}

function sharedEnlargement({ form, width, whole, left }: SharedScale): number {
  return enlargementFor(form, width, form.remains ? left : whole);
}

/** Arrows or map, how large, and what of it: for one map or for all that are compared. */
function formControls(
  form: MapForm,
  enlargement: () => number,
  hasPattern: boolean,
  change: (set: () => void) => void,
  told: (on: boolean) => void = () => undefined,
): (Node | null)[] {
  const forms = [['arrows', 'Arrows'] as const, ['map', 'Map'] as const];
  const write = (factor: number) => `${factor} \u00d7`;
  const enlarge = (place: number) => change(() => (form.enlarged = place));
  const enlarged = slider('Enlarged', enlargements, enlargement(), write, enlarge);
  // What remains is often a hundred times smaller: the arrows find their own length again.
  const remains = (on: boolean) =>
    change(() => {
      form.remains = on;
      form.enlarged = null;
      enlarged.show(enlargement());
      told(on);
    });
  return [
    choice('Shown as', forms, form.as, (as) => change(() => (form.as = as))),
    enlarged.element,
    hasPattern ? toggle('What remains without the causes', form.remains, remains) : null,
  ];
}

/** The switches of maps side by side, once for all of them. */
export function sharedControls(shared: SharedScale, hasPattern: boolean, redraw: () => void): HTMLElement {
  const change = (set: () => void): void => {
    set();
    redraw();
  };
  return controls(...formControls(shared.form, () => sharedEnlargement(shared), hasPattern, change));
}

export function pictureMap(view: PictureMapView, context: PlotContext): HTMLElement {
  const state = stateOf(view);
  const painter = new MapPainter(view, state, context.width);
  const own =
    view.shared || !view.arrows
      ? []
      : formControls(
          state.form,
          () => painter.enlargement(),
          (view.pattern?.length ?? 0) > 0,
          (set) => stage.change(set),
          view.remains,
        );
  const stage: PictureStage = new PictureStage(
    view.sides,
    view.ids,
    painter,
    state,
    context,
    `${view.name} over the picture`,
    own,
  );
  return stage.element;
}

class MapPainter implements DotPainter {
  legendHeight = legendHeight;

  constructor(
    private readonly view: PictureMapView,
    private readonly state: MapState,
    /** CSS pixels of the whole plot. */
    private readonly width: number,
  ) {}

  /** What remains is judged by nobody. */
  private get limit(): number | null {
    return this.state.form.remains ? null : strictest(this.view.bounds);
  }

  private values(): Numbers {
    const { values, pattern } = this.view;
    if (!this.state.form.remains || !pattern) return values;
    return values.map((value, i) => (value === null ? null : value - (pattern[i] ?? NaN)));
  }

  private classes(): Classes {
    const { shared, values, signed } = this.view;
    const whole = shared?.whole ?? scaleOf(values);
    if (!this.state.form.remains) return classesFor(whole, signed);
    return classesFor(scaleFor(whole, shared?.left ?? scaleOf(this.values())), signed);
  }

  enlargement(): number {
    const { shared, sides } = this.view;
    if (shared) return sharedEnlargement(shared);
    const long = quantile(present(this.values()).map(Math.abs), 0.95);
    return enlargementFor(this.state.form, sides[0]?.width ?? 1000, long);
  }

  /**
   * CSS pixels of an arrow for each pixel of the value. One map's arrows are as much larger as its picture; of maps that
   * are compared the pictures differ in size and zoom and the axes in room for their numbers, and none of it may count.
   */
  private arrowScale(scale: number): number {
    const { shared } = this.view;
    const drawn = shared ? (this.width - axesRoom) / shared.width : scale;
    return drawn * (enlargements[this.enlargement()] ?? 1);
  }

  private over(value: number): boolean {
    return this.limit !== null && Math.abs(value) > this.limit;
  }

  glyphs(places: Places, indices: number[], scale: number): SVGElement {
    const values = this.values();
    const there = indices.filter((i) => Number.isFinite(values[i] ?? NaN));
    const missing = indices.filter((i) => !Number.isFinite(values[i] ?? NaN));
    const group = svg('g', {});
    const cross = (i: number) => `M${(places.x[i] ?? 0) - 2} ${places.y[i] ?? 0}h4`;
    group.append(batched(missing, cross, { stroke: 'var(--faint)' }));
    if (this.state.form.as === 'arrows') this.drawArrows(group, values, places, there, scale);
    else this.drawMap(group, values, places, there, spacing(places, indices));
    return group;
  }

  private drawArrows(group: SVGGElement, values: Numbers, { x, y }: Places, indices: number[], scale: number): void {
    const long = this.arrowScale(scale);
    const arrow = (i: number) => arrowPath(x[i] ?? 0, y[i] ?? 0, (values[i] ?? 0) * long);
    const foot = (i: number) => circlePath(x[i] ?? 0, y[i] ?? 0, 1.2);
    const line = { fill: 'none', 'stroke-linecap': 'round' };
    for (const over of this.limit === null ? [false] : [false, true]) {
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
    if (this.state.form.as === 'map') {
      return classLegend(this.classes(), unit, x, y, width);
    }
    const long = this.arrowScale(scale);
    const told = niceStep(40 / long / 2.5);
    const length = told * long;
    const line = (colour: string, wide: number, d: string) =>
      svg('path', { d, stroke: colour, fill: 'none', 'stroke-width': wide, 'stroke-linecap': 'round' });
    const { limit } = this;
    const keys = [
      { sign: line('var(--text)', 1.3, `M${-length / 2} 0h${length}`), text: `${plain(told)} ${unit}`, wide: length },
      ...(limit === null
        ? []
        : [
            { sign: line('var(--within)', 1.3, arrowPath(0, -7, 14)), text: `up to the limit ${plain(limit)} ${unit}` },
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
