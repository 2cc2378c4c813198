/** A column of numbers, one a dot. An empty column is one that nobody measured. */
export type Numbers = readonly (number | null)[];

/** Steps that a reader divides by in his head. */
const steps = [1, 2, 2.5, 5, 10];

/** The smallest of 1, 2, 2.5, 5 times a power of ten that is not below `value`; 1 where there is nothing to measure. */
export function niceStep(value: number): number {
  if (!Number.isFinite(value) || value <= 0) return 1;
  const power = 10 ** Math.floor(Math.log10(value));
  const step = steps.find((candidate) => candidate * power >= value * (1 - 1e-9)) ?? 10;
  return Number((step * power).toPrecision(3));
}

/** Decimals that tell two neighbours of this distance apart. */
export function decimalsOf(step: number): number {
  for (let decimals = 0; decimals < 12; decimals++) {
    const scaled = step * 10 ** decimals;
    if (Math.abs(scaled - Math.round(scaled)) < 1e-6 * scaled) return decimals;
  }
  return 12;
}

/** With a true minus, as a hyphen is easily missed in small print, and without a sign before zero. */
export function fixed(value: number, decimals: number, plus = false): string {
  const text = Math.abs(value).toFixed(decimals);
  if (Number(text) === 0) return text;
  if (value < 0) return `\u2212${text}`;
  return plus ? `+${text}` : text;
}

/** Three digits that mean something, never an exponent; en dash for a number that is not there. */
export function short(value: number | null | undefined, plus = false): string {
  if (value === null || value === undefined || !Number.isFinite(value)) return '\u2013';
  if (value === 0) return '0';
  const digits = 2 - Math.floor(Math.log10(Math.abs(value)));
  return fixed(value, Math.min(Math.max(digits, 0), 9), plus);
}

/** As short as the number allows, as for a limit that somebody wrote. */
export function plain(value: number): string {
  const digits = Math.min(Math.max(5 - Math.floor(Math.log10(Math.abs(value) || 1)), 0), 12);
  const text = fixed(value, digits);
  return text.includes('.') ? text.replace(/\.?0+$/, '') : text;
}

export interface Ticks {
  values: number[];
  decimals: number;
}

/** About `count` round values inside the range, not nearer than `least`. */
export function ticksOf(from: number, to: number, count: number, least = 0): Ticks {
  const step = niceStep(Math.max((to - from) / Math.max(count, 1), least));
  const values: number[] = [];
  for (let k = Math.ceil(from / step - 1e-9); k <= Math.floor(to / step + 1e-9); k++) {
    values.push(Number((k * step).toPrecision(12)));
  }
  return { values, decimals: decimalsOf(step) };
}

/** The values that are there. */
export function present(values: Numbers): number[] {
  return values.filter((value): value is number => value !== null && Number.isFinite(value));
}

/** Value below which the part `p` of the list lies; 0 of an empty one. */
export function quantile(values: readonly number[], p: number): number {
  const sorted = Float64Array.from(values).sort();
  return sorted[Math.min(sorted.length - 1, Math.floor(p * sorted.length))] ?? 0;
}

/** Range of the values, widened by a part of itself; around one single value by a part of that. */
export function rangeOf(values: readonly number[], margin = 0.05): [number, number] {
  let from = Infinity;
  let to = -Infinity;
  for (const value of values) {
    from = Math.min(from, value);
    to = Math.max(to, value);
  }
  if (from > to) return [0, 1];
  const wide = to > from ? to - from : Math.abs(to) || 1;
  return [from - margin * wide, to + margin * wide];
}

/** "pixels" as it stands behind a number, or alone at an axis where the heading above has the name, which may be too
 * long for a narrow drawing. */
export function unitText(unit: string): string {
  if (unit === 'pixels') return 'px';
  if (unit === 'board unit') return 'board units';
  return unit;
}

/** A label with its unit. */
export function withUnit(name: string, unit: string): string {
  return unit ? `${name} (${unitText(unit)})` : name;
}
