/** Where points left zero for another level. */
export interface Change {
  /** The first point off. */
  from: number;
  /** The part of it that is; 1 where points are not mixed. */
  share: number;
  /** That of the points behind it, above zero. */
  level: number;
}

/**
 * Chance alone moves a point before the change up half the time: one that stands nearer to zero than this is not taken
 * for off in part. So a change at noon and one at night are told on their day equally often.
 */
const leastShare = 0.2;

const meanFrom = (sums: readonly number[], from: number) => sums[from]! / (sums.length - 1 - from);

/**
 * The change of greatest likelihood (Hinkley, 1970), for normal points whose level was zero and is another from some
 * point on to the last. Of points that are means of several sets the change may lie within one, which then stands
 * between the levels by the share of its sets behind it.
 */
export function changeIn(points: readonly number[], mixed: boolean): Change {
  // Sums of the points from each one on.
  const sums = [...points, 0];
  for (let at = points.length - 1; at >= 0; at--) sums[at]! += sums[at + 1]!;
  let best: Change = { from: points.length - 1, share: 1, level: points[points.length - 1]! };
  let most = -Infinity;
  const consider = (gain: number, change: Change) => {
    if (gain <= most || change.level <= 0) return;
    most = gain;
    best = change;
  };
  for (let from = 0; from < points.length; from++) {
    // How much less the squares are that the levels leave.
    const level = meanFrom(sums, from);
    consider(level * level * (points.length - from), { from, share: 1, level });
    if (!mixed || from === points.length - 1) continue;
    const behind = meanFrom(sums, from + 1);
    const share = points[from]! / behind;
    if (!(share > leastShare && share < 1)) continue;
    consider(behind * behind * (points.length - 1 - from) + points[from]! ** 2, { from, share, level: behind });
  }
  return best;
}
