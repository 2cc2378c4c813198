/** Where points left zero for another level. */
export interface Change {
  /** The first point off. */
  from: number;
  /** The part of it that is; 1 where points are not mixed. */
  share: number;
  /** That of the points behind it, above zero. */
  level: number;
  /** How much less the squares are that it leaves: twice the logarithm of its likelihood against none. */
  gain: number;
}

/** The points leave a change open that gains less than the likeliest by no more than this (99 % of chi-square). */
const open = 6.63;

/**
 * Chance alone moves a point before the change up half the time: one that stands nearer to zero than this is not taken
 * for off in part. So a change at noon and one at night are told on their day equally often.
 */
const leastShare = 0.2;

const meanFrom = (sums: readonly number[], from: number) => sums[from]! / (sums.length - 1 - from);

/**
 * The change of greatest likelihood (Hinkley, 1970), for normal points whose level was zero and is another from some
 * point on to the last, and behind it the others that the points leave open. Of points that are means of several sets
 * the change may lie within one, which then stands between the levels by the share of its sets behind it.
 */
export function changesIn(points: readonly number[], mixed: boolean): Change[] {
  // Sums of the points from each one on.
  const sums = [...points, 0];
  for (let at = points.length - 1; at >= 0; at--) sums[at]! += sums[at + 1]!;
  const all: Change[] = [];
  for (let from = 0; from < points.length; from++) {
    const level = meanFrom(sums, from);
    all.push({ from, share: 1, level, gain: level * level * (points.length - from) });
    if (!mixed || from === points.length - 1) continue;
    const behind = meanFrom(sums, from + 1);
    const share = points[from]! / behind;
    if (!(share > leastShare && share < 1)) continue;
    all.push({ from, share, level: behind, gain: behind * behind * (points.length - 1 - from) + points[from]! ** 2 });
  }
  const likeliest = all.filter(({ level }) => level > 0).sort((a, b) => b.gain - a.gain);
  if (likeliest.length === 0) return all.slice(-1);
  return likeliest.filter(({ gain }) => gain >= likeliest[0]!.gain - open);
}
