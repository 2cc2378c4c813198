/** A rule that is broken by the points from `from` to `to`. */
export interface Break {
  rule: number;
  from: number;
  to: number;
}

/** Nelson (1984). 1, 5 and 6 are those of Western Electric (1956), too, and 2, of which theirs asks for eight. */
export const ruleTexts: Record<number, string> = {
  1: 'a point beyond three sigma',
  2: 'nine in a row on one side of the centre',
  3: 'six in a row rising or falling',
  4: 'fourteen in a row going up and down in turn',
  5: 'two of three beyond two sigma on one side',
  6: 'four of five beyond one sigma on one side',
  7: 'fifteen in a row within one sigma',
  8: 'eight in a row beyond one sigma, on either side',
};

/** Says of the points `last - length + 1` to `last`, in sigma from the centre, whether they break a rule. */
interface Rule {
  rule: number;
  length: number;
  broken(points: readonly number[]): boolean;
}

const onOneSide = (points: readonly number[], beyond: number, least: number): boolean =>
  points.filter((z) => z > beyond).length >= least || points.filter((z) => z < -beyond).length >= least;

const steps = (points: readonly number[]): number[] => points.slice(1).map((z, k) => Math.sign(z - points[k]!));

const rules: Rule[] = [
  { rule: 1, length: 1, broken: (points) => Math.abs(points[0]!) > 3 },
  { rule: 2, length: 9, broken: (points) => onOneSide(points, 0, 9) },
  {
    rule: 3,
    length: 6,
    broken: (points) => steps(points).every((step) => step > 0) || steps(points).every((step) => step < 0),
  },
  {
    rule: 4,
    length: 14,
    broken: (points) => steps(points).every((step, k, all) => step !== 0 && (k === 0 || step === -all[k - 1]!)),
  },
  { rule: 5, length: 3, broken: (points) => onOneSide(points, 2, 2) },
  { rule: 6, length: 5, broken: (points) => onOneSide(points, 1, 4) },
  { rule: 7, length: 15, broken: (points) => points.every((z) => Math.abs(z) < 1) },
  { rule: 8, length: 8, broken: (points) => points.every((z) => Math.abs(z) > 1) },
];

/** Which rules a course breaks and where; what overlaps or follows at once is told as one. */
export function brokenRules(values: readonly number[], centre: number, sigma: number): Break[] {
  if (!(sigma > 0)) return [];
  const points = values.map((value) => (value - centre) / sigma);
  return rules.flatMap(({ rule, length, broken }) => {
    const found: Break[] = [];
    for (let to = length - 1; to < points.length; to++) {
      const from = to - length + 1;
      if (!broken(points.slice(from, to + 1))) continue;
      const before = found[found.length - 1];
      if (before && from <= before.to + 1) before.to = to;
      else found.push({ rule, from, to });
    }
    return found;
  });
}
