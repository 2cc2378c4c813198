import { el } from '../dom/el';
import { tableElement } from '../dom/table';
import { percent, shown, typographic } from '../text/number';
import type { PairScope } from './scope';

interface Row {
  key: string;
  title: string;
  words: (value: number) => string;
}

/** To three figures that count, without zeros that nobody measured. */
const plain = (unit: string) => (value: number) =>
  `${typographic(String(Number(value.toPrecision(3))))}${unit && ` ${unit}`}`;
const whole = (unit: string) => (value: number) => `${typographic(value.toFixed(0))} ${unit}`;

/** Keys that are not here are shown by their names, so that none is lost. */
const known: Row[] = [
  { key: 'dots', title: 'Dots looked at', words: plain('') },
  { key: 'contrast', title: 'Contrast', words: percent },
  { key: 'dot', title: 'Grey of the dots', words: plain('') },
  { key: 'ground', title: 'Grey of the ground', words: plain('') },
  { key: 'full_scale', title: 'Whitest grey', words: plain('') },
  { key: 'saturated', title: 'Overexposed', words: percent },
  { key: 'noise', title: 'Noise, grey values', words: plain('') },
  { key: 'dot_radius', title: 'Radius of a dot', words: plain('px') },
  { key: 'edge_width', title: 'Width of the edges', words: plain('px') },
  { key: 'edge_width_along', title: 'Width along the blur', words: plain('px') },
  { key: 'edge_width_across', title: 'Width across the blur', words: plain('px') },
  { key: 'blur_direction', title: 'Direction of the blur', words: whole('°') },
  { key: 'board_share', title: 'Part of the picture that the board fills', words: percent },
];

/** What both pictures are like. */
export function quality(scope: PairScope): HTMLElement | null {
  const found = scope.pair.quality;
  if (!found) return null;
  const { left, right } = found;
  const keys = new Set([...Object.keys(left ?? {}), ...Object.keys(right ?? {})]);
  const others = [...keys].filter((key) => !known.some((row) => row.key === key));
  const rows = [
    ...known.filter(({ key }) => keys.has(key)),
    ...others.map((key) => ({ key, title: key, words: shown })),
  ];
  const cell = (value: number | null | undefined, words: (value: number) => string) =>
    typeof value === 'number' ? { content: document.createTextNode(words(value)), value } : '–';
  return el(
    'div',
    { class: 'card' },
    el('h3', {}, 'What the pictures are like'),
    tableElement({
      caption: 'Quality of the pictures',
      columns: [{ title: 'Quality' }, { title: 'Left', numbers: true }, { title: 'Right', numbers: true }],
      rows: rows.map(({ key, title, words }) => [title, cell(left?.[key], words), cell(right?.[key], words)]),
      headed: true,
    }),
  );
}
