import { fontSize, letterWidth } from './base';
import type { Box } from './svg';

export interface LabelPlace {
  /** Where the letters begin. */
  x: number;
  /** Of the line on which they stand. */
  y: number;
}

/** Of a cross about its middle, and a little. */
const reach = 6;

/** Where the name of a level line covers fewest of the points: at either end of the line, above or below it. */
export function labelPlace(
  text: string,
  at: number,
  box: Box,
  points: readonly { x: number; y: number }[],
): LabelPlace {
  const width = text.length * letterWidth;
  const places = [box.x + 4, box.x + box.width - width - 4].flatMap((x) => [
    { x, y: at - 4 },
    { x, y: at + fontSize + 2 },
  ]);
  const covered = (place: LabelPlace) =>
    points.filter(
      ({ x, y }) =>
        x > place.x - reach && x < place.x + width + reach && y > place.y - fontSize - reach && y < place.y + reach,
    ).length;
  // Above there is room beyond the box, below stands the axis.
  const inside = places.filter(({ y }) => y <= box.y + box.height);
  return inside.reduce((best, place) => (covered(place) < covered(best) ? place : best));
}
