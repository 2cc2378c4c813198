import type { Fleet } from '../fleet_data';

/** For each key the index of the value that is asked for; null: all. */
export type Filter = (number | null)[];

/** What the address says beside the filter. */
export interface Place {
  filter: Filter;
  /** Station and model of the charts, as indices into their values; null: the worst. */
  course: [number, number] | null;
  measure: number | null;
}

const by = 'by.';
const without = 'without.';

/** A key's value stands in the address as it is, so that a link lives longer than the order of values. */
export function placeOf(hash: string, { keys, measures }: Fleet): Place {
  const words = new URLSearchParams(hash.replace(/^#/, ''));
  const filter = keys.map(({ key, values }) => {
    const asked = words.has(without + key) ? null : words.get(by + key);
    const at = words.has(without + key) || asked !== null ? values.indexOf(asked) : -1;
    return at < 0 ? null : at;
  });
  const [, station, model] = /^(\d{1,6})\.(\d{1,6})$/.exec(words.get('at') ?? '') ?? [];
  const measure = /^\d{1,3}$/.test(words.get('figure') ?? '') ? Number(words.get('figure')) : null;
  return {
    filter,
    course: station === undefined ? null : [Number(station), Number(model)],
    measure: measure !== null && measure < measures.length ? measure : null,
  };
}

export function hashOf({ filter, course, measure }: Place, { keys }: Fleet): string {
  const words = new URLSearchParams();
  filter.forEach((value, k) => {
    const { key, values } = keys[k]!;
    if (value === null) return;
    const text = values[value] ?? null;
    if (text === null) words.set(without + key, '');
    else words.set(by + key, text);
  });
  if (course) words.set('at', course.join('.'));
  if (measure !== null) words.set('figure', String(measure));
  return `#${words.toString()}`;
}

/** Which groups are seen through the filter. */
export function seenGroups(filter: Filter, groups: number[][]): boolean[] {
  return groups.map((group) => filter.every((value, key) => value === null || group[key] === value));
}
