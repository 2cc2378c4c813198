/** Two dots side by side on the board, by index. */
export type Link = readonly [number, number];

/** Links each dot with its right and lower neighbour where both are there. */
export function gridLines(column: readonly number[], row: readonly number[]): Link[] {
  const wide = column.reduce((most, at) => Math.max(most, at), 0) + 2;
  const index = new Map(column.map((at, i) => [(row[i] ?? 0) * wide + at, i]));
  const links: Link[] = [];
  column.forEach((at, i) => {
    const place = (row[i] ?? 0) * wide + at;
    for (const next of [place + 1, place + wide]) {
      const j = index.get(next);
      if (j !== undefined) links.push([i, j]);
    }
  });
  return links;
}
