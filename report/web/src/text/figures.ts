import type { CheckPair, Explanation, FigureValue } from '../page_data';

export type Source = 'library' | 'refined';

/** One number of a pair; the entries of a list are `name[0]`, `name[1]`, … */
export interface NamedValue {
  name: string;
  value: number | null;
}

export function flattened(figures: Record<string, FigureValue>): NamedValue[] {
  return Object.entries(figures).flatMap(([name, value]) =>
    Array.isArray(value)
      ? value.map((entry, index) => ({ name: `${name}[${index}]`, value: entry }))
      : [{ name, value }],
  );
}

export function bareName(name: string): string {
  return name.replace(/\[\d+\]$/, '');
}

export function figuresOf(pair: CheckPair, source: Source): Record<string, FigureValue> | null {
  return source === 'library' ? pair.figures : (pair.refined?.figures ?? null);
}

export function valueOf(pair: CheckPair, source: Source, name: string): number | null {
  const figures = figuresOf(pair, source);
  const value = figures?.[bareName(name)];
  if (!Array.isArray(value)) return value ?? null;
  const index = /\[(\d+)\]$/.exec(name)?.[1];
  return index === undefined ? null : (value[Number(index)] ?? null);
}

/** Why a figure is not there. */
export function reasonOfAbsence(pair: CheckPair, source: Source, name: string): string {
  if (pair.state !== 'finished') return 'the pair was given up';
  if (source === 'refined' && !pair.refined) return 'the pair was not refined';
  if (source === 'refined' && pair.refined?.problem) return pair.refined.problem;
  if (pair.carried.includes(bareName(name))) return 'carried from the pair before, not measured on this one';
  return 'not measured, or not a number';
}

const units: Record<string, string> = { pixels: 'px', px: 'px', 'board unit': 'board units', degrees: '°', deg: '°' };

export function shortUnit(unit: string): string {
  return units[unit] ?? unit;
}

export class Explanations {
  constructor(private readonly known: Record<string, Explanation>) {}

  of(name: string): Explanation {
    return this.known[bareName(name)] ?? { title: bareName(name), text: '', unit: '' };
  }

  /** In words, with the entry's number where it is one of a list. */
  title(name: string): string {
    const index = /\[(\d+)\]$/.exec(name)?.[1];
    return this.of(name).title + (index === undefined ? '' : ` ${index}`);
  }

  unit(name: string): string {
    return this.of(name).unit;
  }
}
