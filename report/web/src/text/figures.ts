import type { CheckPair, Explanation, FigureValue, Uncertainty } from '../page_data';

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

/** How certain the figure is, where that is known. */
export function uncertaintyOf(pair: CheckPair, source: Source, name: string): Uncertainty | undefined {
  return (source === 'library' ? pair : pair.refined)?.uncertainty?.[name];
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

/** The six distances of four chosen dots, then the errors of smallest and of largest size. */
const fourPoints = new Set(['tri_dis', 'pol_dis']);
const entries = ['1 to 2', '1 to 3', '2 to 4', '3 to 4', '1 to 4', '2 to 3', 'smallest', 'largest'];

/** Short headings of figures that are known by their names only; lists are `title entry`. */
const titles: Record<string, string> = {
  finished: 'Pairs finished',
  given_up: 'Pairs given up',
  pairs: 'Pairs',
  tri_rms: 'Residual, rms',
  tri_mean: 'Mean residual',
  tri_min: 'Smallest residual',
  tri_max: 'Largest residual',
  tri_dis: 'Distance error, chosen dots',
  dy_means: 'Mean row difference',
  dy_min: 'Smallest row difference',
  dy_max: 'Largest row difference',
  dy_ratio: 'Share of dots beyond the bound',
  allpoints_means: 'Mean error of the spacing',
  allpoints_min: 'Smallest error of the spacing',
  allpoint_max: 'Largest error of the spacing',
  pol_dis: 'Distance error, rectified',
  id_dis: 'Distance error of id pairs',
  frameValues: 'Distance error of frame pairs',
  PoseReport: 'Pose of the board',
  space_rms: 'Fit onto the board, rms',
  dis_rms: 'Distance error, rms',
  nor_rms: 'Relative distance error, rms',
  zero_dis: 'Mean range of the board',
  icp_x_rms: 'Board fit along x, rms',
  icp_y_rms: 'Board fit along y, rms',
  icp_z_rms: 'Board fit along z, rms',
  icp_nor_rms: 'Board fit, rms',
  gt_rms: 'Board in the left picture, rms',
};

export class Explanations {
  constructor(private readonly known: Record<string, Explanation>) {}

  of(name: string): Explanation {
    const bare = bareName(name);
    const known = this.known[bare] ?? { title: bare, text: '', unit: '' };
    return known.title === bare ? { ...known, title: titles[bare] ?? bare } : known;
  }

  /** In words, with the entry's number where it is one of a list. */
  title(name: string): string {
    if (name.startsWith('refined.')) return `${this.title(name.slice('refined.'.length))}, refined`;
    const index = /\[(\d+)\]$/.exec(name)?.[1];
    if (index === undefined) return this.of(name).title;
    const words = fourPoints.has(bareName(name)) ? entries[Number(index)] : undefined;
    return `${this.of(name).title}, ${words ?? index}`;
  }

  /** In a few words: what the explanation says first, without what it is and how it is judged. */
  meaning(name: string): string {
    if (name !== bareName(name)) return this.title(name);
    const [first = ''] = this.of(name)
      .text.replace(/^A figure,[^:]*: /, '')
      .split(/\.(?:\s|$)/);
    return first === '' ? this.title(name) : first.charAt(0).toUpperCase() + first.slice(1);
  }

  unit(name: string): string {
    return this.of(name).unit;
  }
}
