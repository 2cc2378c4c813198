import { error } from '../../text/number';

/** What the right camera does against the left, for a value above zero and for one below. */
const words: Record<string, [string, string]> = {
  rotation_x: ['the right cameras look down by', 'the right cameras look up by'],
  rotation_y: ['the right cameras look to the left by', 'the right cameras look to the right by'],
  rotation_z: ['the right cameras are rolled to the left by', 'the right cameras are rolled to the right by'],
  focal_ratio: [
    'the focal lengths of the right cameras are longer by',
    'the focal lengths of the right cameras are shorter by',
  ],
  row_offset: [
    'the principal points of the right cameras are lower by',
    'the principal points of the right cameras are higher by',
  ],
  baseline_y: ['the right cameras stand higher by', 'the right cameras stand lower by'],
  baseline_z: ['the right cameras stand further back by', 'the right cameras stand further forward by'],
  k1: [
    'the first lens coefficient (k1) of the right cameras is more by',
    'the first lens coefficient (k1) of the right cameras is less by',
  ],
};

/** A size with its error and unit: "0.050° ± 0.0021°". */
export function causeSize(name: string, unit: string, value: number, sd: number): string {
  const factor = name === 'focal_ratio' ? 100 : 1;
  const behind =
    name === 'focal_ratio'
      ? ' %'
      : unit === 'deg'
        ? '°'
        : unit === ''
          ? ''
          : ` ${unit === 'board unit' ? 'board units' : unit}`;
  const size = Math.abs(value) * factor;
  const off = sd * factor;
  const last = off > 0 ? Math.floor(Math.log10(off)) - 1 : Number.NaN;
  const number = last >= -9 && last < 0 ? size.toFixed(-last) : String(Number(size.toPrecision(3)));
  return `${number}${behind} ± ${error(off)}${behind}`;
}

/** "the right cameras look down by 0.050° ± 0.0021°" */
export function causeWords(name: string, unit: string, value: number, sd: number): string {
  const said = words[name]?.[value < 0 ? 1 : 0] ?? `${name} is ${value < 0 ? 'less' : 'more'} by`;
  return `${said} ${causeSize(name, unit, value, sd)}`;
}

export function capital(text: string): string {
  return text.charAt(0).toUpperCase() + text.slice(1);
}
