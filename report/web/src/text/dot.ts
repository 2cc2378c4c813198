import type { DotColumns } from '../page_data';
import { error, shown, signed } from './number';

type Line = [name: string, value: string];

function pixel(x: number | null | undefined, y: number | null | undefined): string | null {
  return typeof x === 'number' && typeof y === 'number' ? `${x.toFixed(2)}, ${y.toFixed(2)} px` : null;
}

/** What became of a centre: how certain it is, or why it stayed where it was detected. */
function centre(points: DotColumns, index: number, side: 'left' | 'right'): string | null {
  const state = points[`${side}_state`]?.[index];
  if (state === undefined) return null;
  const [x, y] = [points[`${side}_sd_x`]?.[index], points[`${side}_sd_y`]?.[index]];
  const known = typeof x === 'number' && typeof y === 'number';
  return known ? `${state}, ± ${error(x)}, ${error(y)} px` : state.replace(/_/g, ' ');
}

/** All that is known of a dot, in words. What was not measured is left out. */
export function dotLines(points: DotColumns, index: number, unit: string): Line[] {
  const number = (column: (number | null)[], words: (value: number) => string, suffix: string): string | null => {
    const value = column[index];
    return typeof value === 'number' ? `${words(value)} ${suffix}` : null;
  };
  const dy = points.dy[index];
  const pattern = points.dy_pattern[index];
  const remains = typeof dy === 'number' && typeof pattern === 'number' ? `${signed(dy - pattern)} px` : null;
  const place = [points.x[index], points.y[index], points.z[index]];
  const off = [points.off_x[index], points.off_y[index], points.off_z[index]];
  const three = (values: (number | null | undefined)[], words: (value: number) => string): string | null =>
    values.every((value) => typeof value === 'number')
      ? `${values.map((v) => words(v as number)).join(', ')} ${unit}`
      : null;
  const lines: [string, string | null][] = [
    ['Dot', String(points.id[index])],
    ['Row, column', points.row.length > 0 ? `${points.row[index]}, ${points.column[index]}` : null],
    ['Left pixel', pixel(points.left_x[index], points.left_y[index])],
    ['Right pixel', pixel(points.right_x[index], points.right_y[index])],
    ['Left centre', centre(points, index, 'left')],
    ['Right centre', centre(points, index, 'right')],
    ['Rectified left', pixel(points.rectified_left_x[index], points.rectified_left_y[index])],
    ['Rectified right', pixel(points.rectified_right_x[index], points.rectified_right_y[index])],
    ['Row difference', number(points.dy, signed, 'px')],
    ['… of the causes', number(points.dy_pattern, signed, 'px')],
    ['… what remains', remains],
    ['Residual', number(points.residual, shown, 'px')],
    ['Disparity', number(points.disparity, shown, 'px')],
    ['Place x, y, z', three(place, shown)],
    ['Off the board x, y, z', three(off, signed)],
    ['Depth error', number(points.depth_error, signed, unit)],
  ];
  return lines.filter((line): line is Line => line[1] !== null);
}
