export interface CusumSettings {
  target: number;
  sigma: number;
  /** Both in sigma: a shift of twice the allowance is what is looked for. */
  allowance: number;
  decision: number;
}

/** The tabular cumulative sum (Page, 1954), in sigma. */
export interface Cusum {
  up: number[];
  down: number[];
}

export interface Drift {
  side: 'up' | 'down';
  /** First and last point off the target. */
  from: number;
  to: number;
  /** It has not come back. */
  lasts: boolean;
  /** Mean of those points less the target. */
  shift: number;
}

export interface Drifts extends Cusum {
  drifts: Drift[];
}

function sumsOf(values: readonly number[], { target, sigma, allowance }: CusumSettings, sign: number): number[] {
  let sum = 0;
  return values.map((value) => (sum = Math.max(0, sum + (sign * (value - target)) / sigma - allowance)));
}

export function cusum(values: readonly number[], settings: CusumSettings): Cusum {
  return { up: sumsOf(values, settings, 1), down: sumsOf(values, settings, -1) };
}

interface Excursion {
  from: number;
  to: number;
  lasts: boolean;
}

/** Where a sum went beyond the decision: from where it was last at zero to its highest point. */
function excursion(sums: readonly number[], decision: number): Excursion | null {
  const alarm = sums.findIndex((sum) => sum > decision);
  if (alarm < 0) return null;
  let from = alarm;
  while (from > 0 && sums[from - 1]! > 0) from--;
  let to = alarm;
  for (let at = alarm + 1; at < sums.length; at++) {
    if (sums[at]! >= sums[to]!) to = at;
    // Fallen by half of what it takes to alarm: it has come back.
    else if (sums[to]! - sums[at]! > decision / 2) return { from, to, lasts: false };
  }
  return { from, to: sums.length - 1, lasts: true };
}

/**
 * Where the shift began: the sum's last zero is early for a large one, so it is looked for once more with half of the
 * shift found as allowance.
 */
function beginOf(values: readonly number[], { target, sigma }: CusumSettings, from: number, to: number): number {
  const points = values.slice(from, to + 1).map((value) => (value - target) / sigma);
  const half = points.reduce((sum, z) => sum + z, 0) / points.length / 2;
  let sum = 0;
  let least = 0;
  let begin = 0;
  points.forEach((z, k) => {
    sum += Math.sign(half) * (z - half);
    if (sum >= least) return;
    least = sum;
    begin = k + 1;
  });
  return from + Math.min(begin, points.length - 1);
}

/** Excursions of one side. Behind one that has come back the sum begins at zero again. */
function side(values: readonly number[], settings: CusumSettings, sign: 1 | -1): { sums: number[]; drifts: Drift[] } {
  const sums: number[] = [];
  const drifts: Drift[] = [];
  while (sums.length < values.length) {
    const start = sums.length;
    const rest = sumsOf(values.slice(start), settings, sign);
    const found = excursion(rest, settings.decision);
    if (!found) {
      sums.push(...rest);
      break;
    }
    const to = start + found.to;
    const from = beginOf(values, settings, start + found.from, to);
    const off = values.slice(from, to + 1);
    const shift = off.reduce((sum, value) => sum + value, 0) / off.length - settings.target;
    drifts.push({ side: sign > 0 ? 'up' : 'down', from, to, lasts: found.lasts, shift });
    sums.push(...rest.slice(0, found.to + 1));
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
