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

/** Every few rows and columns, and the rim: enough to see where a flat board lies. */
export function sparse(links: readonly Link[], column: readonly number[], row: readonly number[]): Link[] {
  const last = (places: readonly number[]) => places.reduce((most, at) => Math.max(most, at), 0);
  const kept = (places: readonly number[]) => {
    const [end, every] = [last(places), Math.max(1, Math.round(last(places) / 6))];
    return (i: number) => (places[i] ?? 0) % every === 0 || places[i] === end;
  };
  const [inColumn, inRow] = [kept(column), kept(row)];
  return links.filter(([i, j]) => (row[i] === row[j] ? inRow(i) : inColumn(i)));
}
