import { capability, type Capability } from '../statistics/capability';
import { pooled, type Moments } from '../statistics/moments';
import type { FleetView } from './view';

export interface MeasureSpread {
  moments: Moments;
  counts: number[];
  lower: number | null;
  upper: number | null;
  /** The seen groups have different bounds, so there is no one index. */
  mixed: boolean;
  capability: Capability;
}

/** The bound that all groups with numbers have in common. */
function common(
  bounds: readonly (number | null)[],
  groups: ReadonlySet<number>,
): { bound: number | null; mixed: boolean } {
  const found = new Set([...groups].map((group) => bounds[group] ?? null));
  return found.size === 1 ? { bound: [...found][0]!, mixed: false } : { bound: null, mixed: found.size > 1 };
}

/** A measure over all that is seen. */
export function spreadOf({ fleet, rows, seen }: FleetView, index: number): MeasureSpread {
  const measure = fleet.measures[index]!;
  const lots = rows.map((row) => ({ n: measure.n[row] ?? 0, mean: measure.mean[row] ?? 0, sd: measure.sd[row] ?? 0 }));
  const moments = pooled(lots);
  const groups = new Set(rows.flatMap((row) => ((measure.n[row] ?? 0) > 0 ? [fleet.cells.group[row]!] : [])));
  const counts: number[] = [];
  measure.bins.forEach((bins, group) => {
    if (seen[group]) bins.forEach((count, k) => (counts[k] = (counts[k] ?? 0) + count));
  });
  const lower = common(measure.lower, groups);
  const upper = common(measure.upper, groups);
  const mixed = lower.mixed || upper.mixed;
  const [low, high] = mixed ? [null, null] : [lower.bound, upper.bound];
  return { moments, counts, lower: low, upper: high, mixed, capability: capability(moments, low, high) };
}
