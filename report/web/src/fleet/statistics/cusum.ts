import { changesIn, type Change } from './change_point';

export interface CusumSettings {
  target: number;
  sigma: number;
  /** Both in sigma: a shift of twice the allowance is what is looked for. */
  allowance: number;
  decision: number;
  /** A point is the mean of several sets: the first one off may be so in part. */
  mixed: boolean;
}

/** The tabular cumulative sum (Page, 1954), in sigma. */
export interface Cusum {
  up: number[];
  down: number[];
}

export interface Drift extends Change {
  side: 'up' | 'down';
  /** Last point off the target. */
  to: number;
  /** It has not come back. */
  lasts: boolean;
  /** Mean of those points less the target, without one that is off in part. */
  shift: number;
  /** Other changes that the points leave open, the likeliest first. */
  open: Change[];
  /** Minutes that it began in, the end left out, where more than its points say so. */
  within?: [from: number, to: number];
}

export interface Drifts extends Cusum {
  drifts: Drift[];
}

/** Of numbers in sigma from the target. */
function sumsOf(points: readonly number[], allowance: number): number[] {
  let sum = 0;
  return points.map((point) => (sum = Math.max(0, sum + point - allowance)));
}

/** In sigma from the target, those off to the side are above zero. */
function pointsOf(values: readonly number[], { target, sigma }: CusumSettings, sign: 1 | -1): number[] {
  return values.map((value) => (sign * (value - target)) / sigma);
}

export function cusum(values: readonly number[], settings: CusumSettings): Cusum {
  return {
    up: sumsOf(pointsOf(values, settings, 1), settings.allowance),
    down: sumsOf(pointsOf(values, settings, -1), settings.allowance),
  };
}

/**
 * The last point off the target, when the sum alarmed at a point: a second sum counts the other way, from half of the
 * shift. Where it comes to half of the decision they have come back, since it was last at zero.
 */
function endOf(
  points: readonly number[],
  alarm: number,
  half: number,
  decision: number,
): { to: number; lasts: boolean } {
  let sum = 0;
  let to = alarm;
  for (let at = alarm + 1; at < points.length; at++) {
    sum = Math.max(0, sum + half - points[at]!);
    if (sum === 0) to = at;
    if (sum > decision / 2) return { to, lasts: false };
  }
  return { to: points.length - 1, lasts: true };
}

/** Drifts of one side. Behind one that has come back the sum begins at zero again. */
function side(values: readonly number[], settings: CusumSettings, sign: 1 | -1): { sums: number[]; drifts: Drift[] } {
  const points = pointsOf(values, settings, sign);
  const sums: number[] = [];
  const drifts: Drift[] = [];
  while (sums.length < points.length) {
    const start = sums.length;
    const rest = points.slice(start);
    const here = sumsOf(rest, settings.allowance);
    const alarm = here.findIndex((sum) => sum > settings.decision);
    if (alarm < 0) {
      sums.push(...here);
      break;
    }
    const first = changesIn(rest.slice(0, alarm + 1), settings.mixed)[0]!;
    const { to, lasts } = endOf(rest, alarm, first.level / 2, settings.decision);
    const found = changesIn(rest.slice(0, to + 1), settings.mixed);
    const [change, ...open] = found.map((each) => ({ ...each, from: start + each.from }));
    const shift = sign * change!.level * settings.sigma;
    drifts.push({ ...change!, side: sign > 0 ? 'up' : 'down', to: start + to, lasts, shift, open });
    sums.push(...here.slice(0, to + 1));
  }
  return { sums, drifts };
}

export function drifts(values: readonly number[], settings: CusumSettings): Drifts {
  if (!(settings.sigma > 0)) return { up: values.map(() => 0), down: values.map(() => 0), drifts: [] };
  const up = side(values, settings, 1);
  const down = side(values, settings, -1);
  const all = [...up.drifts, ...down.drifts].sort((a, b) => a.from - b.from);
  return { up: up.sums, down: down.sums, drifts: all };
}
